#include "PaymentScreen.h"

#include "database/SqlTokens.h"
#include "database/SqliteArithmetic.h"
#include "database/SqliteCollations.h"
#include "database/Statement.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <sqlite3.h>
#include <vector>

// A new payment of 20 lines, beside the same statements, begin and commit among them, run bare through SQLite's C API.

namespace {

using Clock = std::chrono::steady_clock;

constexpr int Lines = 20;

double secondsSince(Clock::time_point start)
{
  return std::chrono::duration<double>(Clock::now() - start).count();
}

std::vector<std::string>* recording = nullptr;

int record(unsigned, void*, void* statement, void*)
{
  char* const sql = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
  if (recording && sql)
    recording->push_back(sql);
  sqlite3_free(sql);
  return 0;
}

int traceNewConnection(sqlite3* database, char**, const sqlite3_api_routines*)
{
  return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, record, nullptr);
}

// The statements that one save runs, as SQLite gets them.
const std::vector<std::string>& statementsOfASave()
{
  static const std::vector<std::string> Statements = [] {
    std::vector<std::string> statements;
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(traceNewConnection));
    PaymentScreen screen;
    screen.fillIn(Lines);
    recording = &statements;
    screen.save();
    recording = nullptr;
    sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(traceNewConnection));
    return statements;
  }();
  return Statements;
}

void require(int code, sqlite3* database)
{
  if (code != SQLITE_OK && code != SQLITE_DONE)
    qFatal("%s", sqlite3_errmsg(database));
}

void saveThroughTheScreen(benchmark::State& state)
{
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    PaymentScreen screen;
    screen.fillIn(Lines);
    const auto start = Clock::now();
    screen.save();
    state.SetIterationTime(secondsSince(start));
  }
}

void runBare(sqlite3* database, const std::string& sql)
{
  sqlite3_stmt* statement = nullptr;
  require(sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr), database);
  int step = SQLITE_ROW;
  while (step == SQLITE_ROW)
    step = sqlite3_step(statement);
  require(step, database);
  sqlite3_finalize(statement);
}

void saveBare(benchmark::State& state)
{
  const std::vector<std::string>& statements = statementsOfASave();
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    const QTemporaryDir folder{"benchmarks-XXXXXX"};
    sqlite3* database = nullptr;
    require(sqlite3_open(PaymentScreen::freshAccountSet(folder).toUtf8().constData(), &database), database);
    require(SqliteCollations::registerAll(database), database);
    require(SqliteArithmetic::registerAll(database), database);
    require(
        sqlite3_exec(database, "pragma journal_mode=delete; pragma synchronous=extra; select * from TabDotSet", nullptr, nullptr, nullptr),
        database);
    const auto start = Clock::now();
    for (const std::string& sql : statements)
      runBare(database, sql);
    state.SetIterationTime(secondsSince(start));
    sqlite3_close(database);
  }
}

// Every value of the statements of a save, put in its place again.
std::vector<Statement> valuesOfASave()
{
  std::vector<Statement> values;
  for (const std::string& text : statementsOfASave()) {
    const QString sql = QString::fromStdString(text);
    for (const SqlToken& token : SqlTokens::read(sql))
      if (token.kind == SqlToken::Text)
        values.push_back(sqlText(token.text.sliced(1, token.text.size() - 2).toString()));
      else if (token.kind == SqlToken::Number)
        values.push_back(sqlNumber(SqlNumber(token.text.toString())));
  }
  return values;
}

// What it costs to ask whether a value has changed the shape of its statement, for a whole save.
void checkShapes(benchmark::State& state)
{
  const std::vector<Statement> values = valuesOfASave();
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    for (const Statement& value : values)
      benchmark::DoNotOptimize(value.violation());
  }
}

} // namespace

BENCHMARK(checkShapes)->Name("SaveShape/program")->Unit(benchmark::kMillisecond);
BENCHMARK(saveThroughTheScreen)->Name("Save/program")->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(saveBare)->Name("Save/baseline")->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
