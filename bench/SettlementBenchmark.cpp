#include "FilledAccountSet.h"

#include "screen/Controls.h"
#include "settlement/frmGouDui.h"
#include "settlement/frmSFKHeXiao.h"

#include <benchmark/benchmark.h>

#include <QFile>

#include <cstring>
#include <malloc.h>
#include <map>
#include <memory>
#include <sqlite3.h>
#include <vector>

// The lists of the settlement: the write-off list over many sales with three links each, and the
// longest list of invoice matching, beside the same statements read bare into typed memory.

namespace {

constexpr int LinesOfABill = 3;
constexpr int MostLines = 32767;

constexpr char BenchList[] = "select Code,BillType,Datee,UnitCode,UnitName,Remark,SumMoney,SumMoney,0,0,0 from TabOutBill "
                             "order by UnitCode,Datee ";
constexpr char MatchingList[] =
    "select TabInBill.Code as BillCode,TabInBill.BillType as BillType,TabInBill.Datee as BillDatee,TabInBill.UnitCode as UnitCode,"
    "TabInBill.UnitName as UnitName,TabInBill.InvoiceType as InvoiceType,TabInBillInf.* from TabInBill,TabInBillInf "
    "where TabInBill.Code=TabInBillInf.BillCode and TabInBill.State='正常' and (TabInBill.InvoiceType='增值税发票' or "
    "TabInBill.InvoiceType='普通发票' or TabInBill.InvoiceType='收据') "
    "order by TabInBill.UnitCode,TabInBill.Datee,TabInBill.Code,TabInBillInf.Num ";

// Rows as a program without any screen would keep them.
class BareRows {
public:
  void read(sqlite3* database, const char* sql)
  {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW)
      for (int column = 0; column < sqlite3_column_count(statement); ++column)
        keep(statement, column);
    if (sqlite3_finalize(statement) != SQLITE_OK)
      qFatal("%s: %s", sqlite3_errmsg(database), sql);
  }

  std::size_t cells() const { return m_cells.size(); }
  std::string text(std::size_t cell) const { return m_texts.substr(m_cells[cell].offset, m_cells[cell].size); }

private:
  struct Cell {
    union {
      sqlite3_int64 integer;
      double real;
      std::size_t offset;
    };
    std::uint32_t size;
    int type;
  };

  void keep(sqlite3_stmt* statement, int column)
  {
    Cell cell{{0}, 0, sqlite3_column_type(statement, column)};
    if (cell.type == SQLITE_INTEGER) {
      cell.integer = sqlite3_column_int64(statement, column);
    } else if (cell.type == SQLITE_FLOAT) {
      cell.real = sqlite3_column_double(statement, column);
    } else if (cell.type == SQLITE_TEXT) {
      const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
      cell.offset = m_texts.size();
      cell.size = std::uint32_t(sqlite3_column_bytes(statement, column));
      m_texts.append(text, cell.size);
    }
    m_cells.push_back(cell);
  }

  std::vector<Cell> m_cells;
  std::string m_texts;
};

// An account set with this many sales and purchases.
class ManyBills : FilledAccountSet {
public:
  explicit ManyBills(int bills)
  {
    fillBills(bills);
    m_session.params.OperateDate = QDate(2022, 6, 8);
    m_session.DotSet = {2, 2, 2};
    m_writeOff.Form_Load();
    m_desk.show(m_writeOff);
    m_writeOff.TxtDateeFrom.setText({});
    m_writeOff.TxtDateeTo.setText({});
    m_writeOff.find<ComboBox>(QStringLiteral("CombHXState"))->setText({});
    renewMatching();
  }

  void renewMatching()
  {
    m_matching = std::make_unique<frmGouDui>(m_session);
    m_matching->Form_Load();
    m_desk.show(*m_matching);
  }

  void listWriteOff() { list(m_writeOff); }
  void listMatching() { list(*m_matching); }

  void listWriteOffBare()
  {
    BareRows list;
    list.read(m_database, BenchList);
    BareRows lookUps;
    for (std::size_t cell = 0; cell < list.cells(); cell += 11) {
      const std::string code = list.text(cell);
      lookUps.read(m_database, ("select sumMoney-Cash-Credit as sumYHXMoney  from TabOutBill   where Code='" + code + "' ").c_str());
      lookUps.read(m_database, ("select sum(HXMoney) as sumHXMoney  from TabSFKHeXiao   where InOutBillCode='" + code + "' ").c_str());
    }
    benchmark::DoNotOptimize(lookUps);
  }

  void listMatchingBare()
  {
    BareRows list;
    list.read(m_database, MatchingList);
    benchmark::DoNotOptimize(list);
  }

private:
  void fillBills(int bills)
  {
    const int lines = qMin(bills * LinesOfABill, MostLines);
    run("begin");
    run("insert into TabAttribute(Code,Name) values('01','白色'),('02','黑色')");
    for (const char* const table : {"TabOutBill", "TabInBill"})
      fill(bills, table, "Code,BillType,Datee,UnitCode,UnitName,SumMoney,State,InvoiceType",
           "printf('XSD%08d',i),'销售出库',date('2022-01-01','+'||(i%180)||' days'),printf('K%03d',i*7%200),'华联商厦第'||(i%200)||'分店',"
           "1000.5+i%97,'正常','收据'");
    fill(bills * LinesOfABill, "TabSFKHeXiao", "HXDatee,InOutBillCode,SFKBillCode,HXMoney",
         "'2022-06-08',printf('XSD%08d',i/3),printf('SKD%08d',i),100.25");
    fill(lines, "TabInBillInf",
         "BillCode,Num,Datee,WareCode,WareName,WareSpec,AttributeCode,Unite,Amount,Price,Moneyy,DisCount,Price_Discount,"
         "Moneyy_Discount,TaxLu,Tax,Price_Tax,Moneyy_Tax,Remark,GouDui",
         "printf('XSD%08d',i/3),i%3+1,'2022-06-08',1000+i%50,'电饭煲'||(i%50),'5升',case i%3 when 0 then '' else '0'||(i%3) "
         "end,'台',20,128.5,"
         "2570,100,128.5,2570,13,334.1,145.2,2904.1,'',0");
    run("commit");
  }

  void list(ListForm& screen)
  {
    screen.CmdQuery_Click();
    if (!m_desk.boxes.isEmpty())
      qFatal("%s", qPrintable(m_desk.takeTexts()));
  }

  frmSFKHeXiao m_writeOff{m_session};
  std::unique_ptr<frmGouDui> m_matching;
};

ManyBills& manyBills(int bills)
{
  static std::map<int, std::unique_ptr<ManyBills>> BySize;
  auto& found = BySize[bills];
  if (!found)
    found = std::make_unique<ManyBills>(bills);
  return *found;
}

// Bytes that this process holds, or has held at most since forgetPeak.
double heldBytes(const char* what)
{
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly))
    return 0;
  for (const QByteArray& line : status.readAll().split('\n'))
    if (line.startsWith(what))
      return line.mid(qsizetype(std::strlen(what)) + 1).trimmed().split(' ').first().toDouble() * 1024;
  return 0;
}

void forgetPeak()
{
  malloc_trim(0);
  QFile peak(QStringLiteral("/proc/self/clear_refs"));
  if (peak.open(QIODevice::WriteOnly))
    peak.write("5");
}

void measure(benchmark::State& state, int bills, void (ManyBills::*list)())
{
  ManyBills& set = manyBills(bills);
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    (set.*list)();
  }
}

// The same for one list of a fresh screen, with the memory that it needs at most for a line.
void measureLines(benchmark::State& state, void (ManyBills::*list)())
{
  ManyBills& set = manyBills((MostLines + LinesOfABill - 1) / LinesOfABill);
  set.renewMatching();
  forgetPeak();
  const double before = heldBytes("VmRSS");
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    (set.*list)();
  }
  state.counters["bytes"] = (heldBytes("VmHWM") - before) / MostLines;
}

} // namespace

BENCHMARK_CAPTURE(measure, bench1k, 1000, &ManyBills::listWriteOff)->Name("WriteOff1k/program")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(measure, bench10k, 10000, &ManyBills::listWriteOff)->Name("WriteOff10k/program")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(measure, bare10k, 10000, &ManyBills::listWriteOffBare)->Name("WriteOff10k/baseline")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(measureLines, lines, &ManyBills::listMatching)->Name("Matching/program")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(measureLines, bare, &ManyBills::listMatchingBare)
    ->Name("Matching/baseline")
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
