#include "database/DialectTranslator.h"
#include "database/Odbc.h"
#include "database/ServerEngine.h"
#include "samplefirm/SampleFirm.h"
#include "support/TestServer.h"

#include <benchmark/benchmark.h>

#include <sql.h>
#include <sqlext.h>

// One statement through the server engine, beside the same statement through bare ODBC: a look-up of one
// row, a list of 10,000 and a write. Measured where tools/with-server has started a server.

namespace {

constexpr char LookUp[] = "select * from TabClient where Code='G001'";
constexpr char List[] = "select Code,Datee,UnitName,SumMoney from TabPayfundBill where Datee>='2022-01-01' order by Datee,Code";
constexpr char Write[] = "update TabClient set Tel='1' where Code='G001'";

// The sample firm with a long list of payments.
const TestServer::Database& database()
{
  static const TestServer::Database Database(QStringLiteral("benchmarks"), SampleFirm::write);
  static const bool Filled = [] {
    const auto store = Store::open(Database.administrator);
    return store && (*store)
                        ->runAll({QStringLiteral("insert into TabPayfundBill(Code,Datee,UnitName,SumMoney) select 'X'||i, '2022-05-01', "
                                                 "'清泉饮料公司', i+0.5 from generate_series(1,10000) i"),
                                  QStringLiteral("analyze")})
                        .has_value();
  }();
  if (!Filled)
    qFatal("no database for the benchmarks: %s", Database.made ? "" : qPrintable(Database.made.error()));
  return Database;
}

void require(bool good)
{
  if (!good)
    qFatal("the statement failed");
}

void throughTheEngine(benchmark::State& state, const char* sql)
{
  const auto engine = ServerEngine::open(database().clerk.server);
  require(engine.has_value());
  const QString text = QString::fromLatin1(sql);
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    const auto rows = (*engine)->execute(text);
    require(rows.has_value());
    benchmark::DoNotOptimize(rows->rows());
  }
}

// Runs the statement and looks at each value once.
void runBare(SQLHDBC connection, const QByteArray& sql)
{
  SQLHSTMT statement = SQL_NULL_HANDLE;
  require(SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement)));
  require(SQL_SUCCEEDED(SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(const_cast<char*>(sql.constData())), SQL_NTS)));
  SQLSMALLINT columns = 0;
  SQLNumResultCols(statement, &columns);
  char value[4096];
  SQLLEN size = 0;
  while (columns > 0 && SQL_SUCCEEDED(SQLFetch(statement)))
    for (SQLSMALLINT i = 1; i <= columns; ++i)
      require(SQL_SUCCEEDED(SQLGetData(statement, SQLUSMALLINT(i), SQL_C_CHAR, value, sizeof value, &size)));
  SQLFreeHandle(SQL_HANDLE_STMT, statement);
}

void bare(benchmark::State& state, const char* sql)
{
  SQLHENV environment = SQL_NULL_HANDLE;
  SQLHDBC connection = SQL_NULL_HANDLE;
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
  SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
  QByteArray text = Odbc::driverText(database().clerk.server, {}, QStringLiteral("psqlodbca.so")).toUtf8();
  require(SQL_SUCCEEDED(
      SQLDriverConnect(connection, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)));
  const QByteArray translated = DialectTranslator::translate(QString::fromLatin1(sql), DialectTranslator::Target::PostgreSql)->sql.toUtf8();
  for (auto iteration : state) {
    Q_UNUSED(iteration)
    runBare(connection, translated);
  }
  SQLDisconnect(connection);
  SQLFreeHandle(SQL_HANDLE_DBC, connection);
  SQLFreeHandle(SQL_HANDLE_ENV, environment);
}

// Only beside a server.
[[maybe_unused]] const bool Registered = [] {
  if (!qEnvironmentVariableIsSet("ZORVEK_SERVER"))
    return false;
  for (const auto& [name, sql] : {std::pair("ServerLookUp", LookUp), std::pair("ServerList", List), std::pair("ServerWrite", Write)}) {
    benchmark::RegisterBenchmark((std::string(name) + "/program").c_str(), throughTheEngine, sql)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((std::string(name) + "/baseline").c_str(), bare, sql)->Unit(benchmark::kMillisecond);
  }
  return true;
}();

} // namespace
