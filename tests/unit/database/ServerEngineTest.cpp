#include "database/ServerEngine.h"

#include "database/Connection.h"
#include "database/ConnectionText.h"
#include "database/EmbeddedEngine.h"
#include "database/Odbc.h"
#include "support/Printing.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The rows of a query, or the error.
QString told(const StatementResult& result)
{
  if (result.error)
    return u"error: "_s + result.error->description;
  QStringList rows;
  for (qint64 row = 0; row < result.rows.rows(); ++row) {
    QStringList values;
    for (int i = 0; i < result.rows.names().size(); ++i)
      values.append(result.rows.value(row, i).isNull() ? u"NULL"_s : result.rows.value(row, i).toText());
    rows.append(values.join(u'|'));
  }
  return rows.join(u' ');
}

// A port on loopback that takes the call and says nothing.
class SilentPort {
public:
  SilentPort()
  {
    m_address.sin_family = AF_INET;
    m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof m_address;
    if (bind(m_socket, general(), size) != 0 || listen(m_socket, 5) != 0 || getsockname(m_socket, general(), &size) != 0)
      ADD_FAILURE() << "cannot listen";
  }
  ~SilentPort() { close(m_socket); }

  int number() const { return ntohs(m_address.sin_port); }

private:
  sockaddr* general() { return reinterpret_cast<sockaddr*>(&m_address); }

  int m_socket = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in m_address = {};
};

struct ServerEngineTest : testing::Test {
  static void SetUpTestSuite()
  {
    if (TestServer::administrator())
      database = std::make_unique<TestServer::Database>(u"engine_test"_s);
  }
  static void TearDownTestSuite() { database.reset(); }

  void SetUp() override
  {
    if (!database)
      GTEST_SKIP() << "tools/with-server runs these tests";
    ASSERT_EQ(database->reason, u""_s);
    engine = ServerEngine::open(database->clerk.server, waits).engine;
    ASSERT_TRUE(engine);
    ASSERT_EQ(told(engine->execute(u"delete from TabPayfundBill"_s)), u""_s);
    ASSERT_EQ(told(engine->execute(u"delete from TabClient"_s)), u""_s);
  }

  // As the program opens it.
  std::unique_ptr<DatabaseError> open(Connection& connection)
  {
    const ServerPlace& place = database->clerk.server;
    return connection.open("Driver={SQL Server};Server="_L1 + place.host + ',' + place.port + ";DataBase=" + place.database +
                           ";UID=" + place.user + ";PWD={p;w}}x y}; ");
  }

  // As the administrator of the server ends connections.
  void dropConnections()
  {
    const auto server = Store::open(*TestServer::administrator());
    ASSERT_EQ(server.store->runAll({u"select pg_terminate_backend(pid) from pg_stat_activity where datname='engine_test'"_s}), u""_s);
    std::this_thread::sleep_for(50ms);
  }

  QString countOfClients() { return told(ServerEngine::open(database->clerk.server).engine->execute(u"select count(*) from TabClient"_s)); }

  static inline std::unique_ptr<TestServer::Database> database;
  static constexpr ServerWaits waits{.connect = 2s, .lock = 300ms, .statement = 3s};
  std::unique_ptr<Engine> engine;
};

} // namespace

// The same rows and the same questions on a file and on a server: case, blanks, dates by the day however
// they are written, what is no day behind them, patterns, sums, both columns of the dialect rule.
TEST_F(ServerEngineTest, AnswersAsTheFileDoes)
{
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"set.mdb"_s);
  ASSERT_EQ(AccountSet::create(path, AccountSet::Content::Empty), u""_s);
  const std::unique_ptr<Engine> file = EmbeddedEngine::open(path).engine;
  const auto both = [&](const QString& sql) {
    const QString expected = told(file->execute(sql));
    EXPECT_EQ(told(engine->execute(sql)), expected) << shown(sql);
    return expected;
  };
  const QStringList dates =
      u"'2022-06-08'|'2022-6-8'|' 2022-06-08'|'2022/06/07'|'2022.6.9 10:30'|'2022-06-07T9:00:00'|'2022-02-30'|'2024-02-29'|"
      "'2023-02-29'|''|null|'abc'|'2022-06-08 25:00'|'0999-12-31'|'2022-12-31'"_s.split(u'|');
  for (int i = 0; i < dates.size(); ++i)
    both(u"insert into TabPayfundBill(Code,Datee,SumMoney,MoneyRate) values('%1',%2,%3,6.8312)"_s.arg(i, 2, 10, QChar(u'0'))
             .arg(dates[i])
             .arg(i + 0.1));
  for (const char* name : {"('a1','ABC')", "('A2','abc ')", "('A10','Ａbc')", "('b','50%')", "('c','a\\b')", "('D','a_b')", "('e','清泉')",
                           "('f','O''Neill #1# top')", "('É','É')", "('é','é')", "('g',null)", "('h','')"})
    both(u"insert into TabClient(Code,Name) values"_s + QString::fromUtf8(name));

  both(u"select Code, Datee from TabPayfundBill order by Datee, Code"_s);
  both(u"select max(Datee), min(Datee), sum(SumMoney), max(SumMoney), count(*), count(Datee) from TabPayfundBill"_s);
  for (const char* date : {"#2022-06-08#", "'2022-6-8'", "#2022/6/8 9:00#", "'2022-06-07'", "'2022-02-30'", "''", "'zz'"})
    for (const char* sign : {"=", "<", "<=", ">", ">=", "<>"})
      both(u"select Code from TabPayfundBill where Datee%1%2 order by Code"_s.arg(QLatin1String(sign), QLatin1String(date)));
  both(u"select Datee, count(*) from TabPayfundBill where Datee='2022-06-08' group by Datee, Code order by Code"_s);
  both(u"select Code from TabPayfundBill where Datee like '2022-06%' or MoneyRate=6.8312 order by code"_s);
  EXPECT_EQ(both(u"select Code from TabClient where Code='A1'"_s), u"a1"_s);
  for (const char* where : {"Name='abc'", "Name='ABC '", "Name like 'AB%'", "Name like '50\\%'", "Name like 'a\\%'", "Name like '%\\'",
                            "Name like 'A_B'", "Name='é'", "Code='É'", "Name like '清%'", "Name like '%#1#%'", "isnull(Name)", "Name<>''",
                            "Code>'A1' and Code<'E'", "Name='O''NEILL #1# TOP'"})
    both(u"select Code from TabClient where %1 order by Code"_s.arg(QString::fromUtf8(where)));
  both(u"select top 3 Code, Name from TabClient order by Code desc"_s);
  both(u"select max(cint(Code)) as M, max(convert(int,Code)) as N from TabPayfundBill"_s);
  both(u"select sum(S) as T from (select SumMoney as S from TabPayfundBill union all select 0.2 as S from TabClient) a"_s);
  both(u"select [Code] from TabClient where \"Name\"='50%'"_s);
  // The keys are the same: 'A1' is there.
  EXPECT_NE(told(engine->execute(u"insert into TabClient(Code) values('A1')"_s)), u""_s);
  EXPECT_NE(told(file->execute(u"insert into TabClient(Code) values('A1')"_s)), u""_s);
}

TEST_F(ServerEngineTest, TextArrivesWhole)
{
  for (const QString& text : {u"中文，😀𠮷 é\t\r\nline"_s, u"a?b{c}$1$ \\' --x /*y*/"_s, QString(100'000, u'长'), QString(4095, u'a'),
                              QString(4096, u'a'), QString(1365, u'长')}) {
    ASSERT_EQ(told(engine->execute(u"delete from TabClient"_s)), u""_s);
    const QString quoted = u"'"_s + QString(text).replace(u"'"_s, u"''"_s) + u"'"_s;
    ASSERT_EQ(told(engine->execute(u"insert into TabClient(Code,Address) values('1',"_s + quoted + u")"_s)), u""_s);
    const StatementResult result = engine->execute(u"select Address from TabClient"_s);
    ASSERT_FALSE(result.error);
    EXPECT_EQ(result.rows.value(0, 0).toText(), text);
  }
}

TEST_F(ServerEngineTest, TheLoginReadsAndWritesRowsAndNothingElse)
{
  const auto clerk = Odbc::open(database->clerk.server).connection;
  ASSERT_TRUE(clerk);
  for (const char* sql : {"create table Mine(a integer)", "create temporary table Mine(a integer)", "drop table TabClient",
                          "truncate TabClient", "alter table TabClient add X integer", "create schema mine", "create database mine",
                          "select * into Mine from TabClient", "select pg_read_file('/etc/passwd')", "copy TabClient to '/tmp/x'"})
    EXPECT_TRUE(clerk->run(sql).error) << sql;
  // The engine lets none of them, and no second statement in whatever quotes, come that far.
  for (const char* sql : {"create table Mine(a integer)", "select 1; select 2", "select $$'$$; delete from TabClient where Code<>'x'",
                          "select E'\\''; delete from TabClient where Code<>'x'", "{call x}"})
    EXPECT_TRUE(engine->execute(QString::fromLatin1(sql)).error) << sql;
}

TEST_F(ServerEngineTest, ADroppedConnectionIsMadeAnewByTheNextStatement)
{
  Connection connection;
  ASSERT_FALSE(open(connection));
  dropConnections();
  auto read = connection.run(u"select count(*) as N from TabClient"_s);
  ASSERT_FALSE(read.error) << shown(read.error->description);
  EXPECT_EQ(read.recordset.number(u"N"_s), 0);

  // A write behind a pause finds out before it is sent.
  dropConnections();
  std::this_thread::sleep_for(600ms);
  EXPECT_FALSE(connection.run(u"insert into TabClient(Code) values('1')"_s).error);
  EXPECT_EQ(countOfClients(), u"1"_s);
}

TEST_F(ServerEngineTest, AWriteIsNeverSentTwice)
{
  Connection connection;
  ASSERT_FALSE(open(connection));
  // Ended while it is being written: nobody can know, so it is told, and the next statement works.
  std::thread ending([this] {
    std::this_thread::sleep_for(300ms);
    dropConnections();
  });
  const auto write = connection.run(u"insert into TabClient(Code) select '1' from (select pg_sleep(1)) s"_s);
  ending.join();
  ASSERT_TRUE(write.error);
  EXPECT_FALSE(connection.isOpen());
  EXPECT_EQ(countOfClients(), u"0"_s);
  ASSERT_FALSE(open(connection));
  EXPECT_FALSE(connection.run(u"insert into TabClient(Code) values('1')"_s).error);
  EXPECT_EQ(countOfClients(), u"1"_s);

  // Dropped just ahead of it: told or done once, but never both.
  const auto first = connection.run(u"select 1 as N"_s);
  dropConnections();
  const bool failed = connection.run(u"insert into TabClient(Code) values('2')"_s).error != nullptr;
  EXPECT_EQ(countOfClients(), failed ? u"1"_s : u"2"_s);
}

TEST_F(ServerEngineTest, NothingWaitsWithoutAnEnd)
{
  ASSERT_EQ(told(engine->execute(u"insert into TabClient(Code) values('1')"_s)), u""_s);
  const auto holder = Store::open(database->administrator);
  ASSERT_EQ(holder.store->runAll({u"begin"_s, u"update TabClient set Name='held'"_s}), u""_s);
  QElapsedTimer clock;
  clock.start();
  EXPECT_TRUE(engine->execute(u"update TabClient set Name='mine'"_s).error);
  EXPECT_LT(clock.restart(), 2000);
  EXPECT_TRUE(engine->isOpen());
  EXPECT_TRUE(engine->execute(u"select pg_sleep(60)"_s).error);
  EXPECT_LT(clock.restart(), 6000);
  EXPECT_EQ(told(engine->execute(u"select Name from TabClient"_s)), u"NULL"_s);

  const SilentPort silent;
  ServerPlace place = database->clerk.server;
  place.port = QString::number(silent.number());
  clock.restart();
  EXPECT_FALSE(ServerEngine::open(place, waits).engine);
  EXPECT_LT(clock.elapsed(), 6000);
}

TEST(Odbc, EachDriverGetsHostAndPortInItsForm)
{
  const ConnectionText text(u"Driver={SQL Server};Server=db.firm, 1500;DataBase=A001;UID=sa;PWD={a;b}}c}; "_s);
  ASSERT_TRUE(text.isDriver());
  const ServerPlace place = text.server();
  EXPECT_EQ(place.password, u"a;b}c"_s);
  EXPECT_EQ(place.database, u"A001"_s);
  const auto has = [&place](const QString& library, const QString& words) { return Odbc::driverText(place, {}, library).contains(words); };
  EXPECT_TRUE(has(u"/usr/lib/odbc/psqlodbcw.so"_s, u"Driver={SQL Server};Server=db.firm;Port=1500;"_s));
  EXPECT_TRUE(has(u"libtdsodbc.so"_s, u"Server=db.firm;Port=1500;TDS_Version="_s));
  EXPECT_TRUE(has(u"another.so"_s, u"Server=db.firm,1500;Database=A001;UID=sa;PWD={a;b}}c};"_s));
}
