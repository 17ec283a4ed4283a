#include "FilledAccountSet.h"

#include "pickers/CodePicker.h"
#include "screen/Controls.h"
#include "screen/Form.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <sqlite3.h>
#include <string>
#include <vector>

// The code picker over 20,000 partners in 40 categories: opened, refreshed and searched, beside the
// bare query read into memory.

namespace {

using Clock = std::chrono::steady_clock;

constexpr int Partners = 20000;
constexpr int Categories = 40;
constexpr SqlLiteral ListSql = u"select Code,Name from TabClient order by code";
constexpr char SearchSql[] = "select Code,Name from TabClient     where Name  like '%商%'order by Code  ";

class ManyPartners : FilledAccountSet {
public:
  ManyPartners() { fillPartners(); }

  // Reads a query into memory, as a program without any screen would.
  void readBare(const char* sql)
  {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr);
    std::vector<std::vector<std::string>> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      std::vector<std::string>& row = rows.emplace_back();
      for (int column = 0; column < sqlite3_column_count(statement); ++column)
        row.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                         std::size_t(sqlite3_column_bytes(statement, column)));
    }
    sqlite3_finalize(statement);
    if (rows.size() != Partners)
      qFatal("%s finds %zu rows", sql, rows.size());
    benchmark::DoNotOptimize(rows);
  }

  // Opens the picker; `operate` acts as its user.
  void pick(const std::function<void(Form&)>& operate)
  {
    m_desk.inDialog = operate;
    CodePicker::pick(m_session, {Statement(ListSql), QStringLiteral("TabClient"), QStringLiteral("选择往来单位")});
  }

private:
  void fillPartners()
  {
    run(QStringLiteral("begin; insert into TabClientType(Code,Name,ParentCode) values('1','往来单位','0')"));
    for (int i = 0; i < Categories; ++i)
      run(QStringLiteral("insert into TabClientType(Code,Name,ParentCode) values('%1','地区%1','1')").arg(101 + i));
    for (int i = 0; i < Partners; ++i)
      run(QStringLiteral("insert into TabClient(Code,Name,Address,TypeCode) values('K%1','华联商厦第%2分店','人民路%2号','%3')")
              .arg(i, 5, 10, QChar(u'0'))
              .arg(i)
              .arg(101 + i % Categories));
    run(QStringLiteral("commit"));
  }
};

ManyPartners& manyPartners()
{
  static ManyPartners Firm;
  return Firm;
}

// The time from the call until the dialog is shown.
void open(benchmark::State& state)
{
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    const auto start = Clock::now();
    manyPartners().pick([&](Form&) { state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count()); });
  }
}

void refresh(benchmark::State& state)
{
  manyPartners().pick([&](Form& dialog) {
    for (auto iteration : state) {
      Q_UNUSED(iteration)
      dialog.find<Button>(QStringLiteral("CmdRefresh"))->click();
    }
  });
}

void search(benchmark::State& state)
{
  manyPartners().pick([&](Form& dialog) {
    TextBox& name = *dialog.find<TextBox>(QStringLiteral("TxtName"));
    name.setText(QStringLiteral("商"));
    for (auto iteration : state) {
      Q_UNUSED(iteration)
      name.press({Key::Enter, {}, false});
    }
  });
}

void bareList(benchmark::State& state)
{
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    manyPartners().readBare(ListSql.view().toUtf8());
  }
}

void bareSearch(benchmark::State& state)
{
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    manyPartners().readBare(SearchSql);
  }
}

} // namespace

BENCHMARK(open)->Name("PickerOpen/program")->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(refresh)->Name("PickerRefresh/program")->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(search)->Name("PickerSearch/program")->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(bareList)->Name("PickerList/baseline")->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(bareSearch)->Name("PickerSearch/baseline")->Iterations(5)->Unit(benchmark::kMillisecond);
