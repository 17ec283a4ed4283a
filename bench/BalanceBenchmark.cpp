#include "FilledAccountSet.h"

#include "database/DialectTranslator.h"
#include "ledger/Balance.h"
#include "ledger/BalanceStatement.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <sqlite3.h>
#include <vector>

// The balance of one partner among 20,000, beside the same statements on the bare engine. The partner has
// the same 56 movements since the last closing however many rows the tables hold, so that the time shows
// whether its cost depends on them or on the size of the tables.

namespace {

constexpr int Partners = 20000;
constexpr int TablesOfMovements = 8;
constexpr int OwnRowsPerTable = 7;
const QString Partner = QStringLiteral("K00000");
const QDate LastClosing(2022, 3, 31);
const QDate Today(2022, 6, 8);

class ManyMovements : FilledAccountSet {
public:
  explicit ManyMovements(int rows)
  {
    run("begin");
    fillMasters();
    fillMovements(rows / TablesOfMovements);
    run("commit");
    prepareBaseline();
  }

  void askProgram()
  {
    const Currency balance = ModFuntion::GetOutstandingBalance(m_session, Partner, Today, QStringLiteral("人民币"), false);
    if (balance.isZero() || !m_desk.boxes.isEmpty())
      qFatal("no balance");
  }

  void askEngine()
  {
    for (const QByteArray& sql : m_statements) {
      sqlite3_stmt* statement = nullptr;
      sqlite3_prepare_v2(m_database, sql.constData(), int(sql.size()), &statement, nullptr);
      while (sqlite3_step(statement) == SQLITE_ROW)
        benchmark::DoNotOptimize(sqlite3_column_double(statement, 0));
      if (sqlite3_finalize(statement) != SQLITE_OK)
        qFatal("%s: %s", sqlite3_errmsg(m_database), sql.constData());
    }
  }

private:
  void fillMasters()
  {
    run("insert into TabAccountantNameSet values(1,1)");
    run("insert into TabAccountantType(Code,ParentCode,Name,WLHS) values"
        "('1122','1','应收',1),('2203','2','预收',1),('2202','2','应付',1),('1123','1','预付',1)");
    fill(Partners, "TabClient", "Code,Name,YingShouCode,YuShouCode,YingFuCode,YuFuCode",
         "printf('K%05d',i),'华联商厦第'||i||'分店','1122','2203','2202','1123'");
    run("insert into TabTurn values('2022-03-31')");
    fill(Partners, "TabClientTurn", "Code,Datee,Num,SumMoney,MoneyRate,MoneyName", "printf('K%05d',i),'2022-03-31',2,100,1,'人民币'");
  }

  // The rows of the one partner are spread evenly among the others', dated over half a year.
  void fillMovements(int count)
  {
    const QString isOwn = QStringLiteral("i%%1=%2").arg(count / OwnRowsPerTable).arg(count / OwnRowsPerTable / 2);
    const auto row = [&isOwn](const char* values) {
      return QString(values)
          .replace("PARTNER", "case when " + isOwn + " then 'K00000' else printf('K%05d',1+i*7919%19999) end")
          .replace("DAY", "case when " + isOwn + " then '2022-05-01' else date('2022-01-01','+'||(i%180)||' days') end")
          .replace("SOURCE", "case when " + isOwn + " or i%50=0 then '' else 'B'||i end");
    };
    for (const char* table : {"TabOutBill", "TabOutCancleBill", "TabInBill", "TabInCancleBill"})
      fill(count, table, "Code,Datee,UnitCode,SumMoney,AllDiscount,Cash,Credit,State,MoneyName,MoneyRate,Auditing",
           row("'X'||i,DAY,PARTNER,100+i%7,1,10,20,'正常','人民币',1,''"));
    for (const char* table : {"TabGathefundBillInf", "TabPayfundBillInf"})
      fill(count, table, "LineNo,Datee,BillCode,UnitCode,AccountantCode,Moneyy,State,MoneyName,MoneyRate,Auditing",
           row("1,DAY,'X'||i,PARTNER,'1002',10,'正常','人民币',1,''"));
    fill(count, "TabSustain", "Code,SustainType", "'X'||i,'客户'");
    fill(count, "TabSustainInf", "LineNo,Datee,Code,UnitCode,Moneyy,State,MoneyName,MoneyRate,Auditing",
         row("1,DAY,'X'||i,PARTNER,10,'正常','人民币',1,''"));
    fill(count, "TabWarrant", "Code,Datee,JXCBillCode,AccountBook1", row("'P'||i,DAY,SOURCE,1"));
    fill(count, "TabWarrantInf", "LineNum,BillCode,AccountantCode,Debtor,Lender,WLHS,MoneyName,MoneyRate",
         row("1,'P'||i,'1122',10,0,PARTNER,'人民币',1"));
  }

  // What the program asks, in its order, as the engine takes it.
  void prepareBaseline()
  {
    QStringList statements = {
        "select * from TabAccountantNameSet  where Main=1 ", "select max(Datee) as Dateee from TabTurn  where Datee<='2022-06-08'",
        "select     SumMoney   from TabClientTurn    where  Code='K00000'  and Datee='2022-03-31'  and  MoneyName = '人民币' "};
    for (const char* column : {"YingShouCode", "YuShouCode", "YuFuCode", "YingFuCode"})
      statements +=
          QString("select TabAccountantType.WLHS  from  TabAccountantType,TabClient  where TabClient.Code='K00000'  and TabClient.") +
          column + "=TabAccountantType.Code ";
    statements +=
        DialectTranslator::forEmbedded(
            ModFuntion::movementStatement(
                m_session,
                {.code = Partner, .lastClosing = LastClosing, .date = Today, .moneyName = QStringLiteral("人民币"), .auditedOnly = false})
                .sql())
            ->sql;
    for (const QString& sql : statements)
      m_statements.push_back(sql.toUtf8());
  }

  std::vector<QByteArray> m_statements;
};

ManyMovements& movements(int rows)
{
  static std::map<int, std::unique_ptr<ManyMovements>> BySize;
  auto& found = BySize[rows];
  if (!found)
    found = std::make_unique<ManyMovements>(rows);
  return *found;
}

void program(benchmark::State& state, int rows)
{
  ManyMovements& set = movements(rows);
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    set.askProgram();
  }
}

void baselineOf(benchmark::State& state, int rows)
{
  ManyMovements& set = movements(rows);
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    set.askEngine();
  }
}

} // namespace

BENCHMARK_CAPTURE(program, 10k, 10000)->Name("Balance10k/program")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(baselineOf, 10k, 10000)->Name("Balance10k/baseline")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(program, 100k, 100000)->Name("Balance100k/program")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(baselineOf, 100k, 100000)->Name("Balance100k/baseline")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(program, 1M, 1000000)->Name("Balance1M/program")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(baselineOf, 1M, 1000000)->Name("Balance1M/baseline")->Unit(benchmark::kMillisecond);
