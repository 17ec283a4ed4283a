#include "database/ServerEngine.h"

#include "database/Connection.h"
#include "database/ConnectionText.h"
#include "database/EmbeddedEngine.h"
#include "database/Odbc.h"
#include "database/SqlTokens.h"
#include "support/Printing.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <arpa/inet.h>
#include <csignal>
#include <poll.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The rows of a query, or the error.
QString answerOf(const DatabaseResult<RowSet>& read)
{
  if (!read)
    return u"error: "_s + read.error().description;
  QStringList rows;
  for (qint64 row = 0; row < read->rows(); ++row) {
    QStringList values;
    for (int i = 0; i < read->names().size(); ++i)
      values.append(read->value(row, i).isNull() ? u"NULL"_s : read->value(row, i).toText());
    rows.append(values.join(u'|'));
  }
  return rows.join(u' ');
}

// A server's process for one connection, stopped until the end of this.
class StoppedServer {
public:
  explicit StoppedServer(const QString& process) : m_process(process.toInt())
  {
    if (m_process <= 0 || kill(m_process, SIGSTOP) != 0)
      ADD_FAILURE() << "cannot stop the server";
  }
  ~StoppedServer() { kill(m_process, SIGCONT); }

private:
  const pid_t m_process;
};

sockaddr_in onLoopback(int port)
{
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(in_port_t(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

// A port on loopback that takes the call and says nothing.
class SilentPort {
public:
  SilentPort()
  {
    sockaddr_in address = onLoopback(0);
    socklen_t size = sizeof address;
    auto* const general = reinterpret_cast<sockaddr*>(&address);
    if (bind(m_socket, general, size) != 0 || listen(m_socket, 5) != 0 || getsockname(m_socket, general, &size) != 0)
      ADD_FAILURE() << "cannot listen";
    m_port = ntohs(address.sin_port);
  }
  ~SilentPort() { close(m_socket); }

  int number() const { return m_port; }

protected:
  const int m_socket = socket(AF_INET, SOCK_STREAM, 0);

private:
  int m_port = 0;
};

// Stands between a caller and the server, passes on so many pieces of what the server says, and then nothing.
class FallingSilent {
public:
  FallingSilent(int server, int answers) : m_thread([this, server, answers] { passOn(server, answers); }) {}
  ~FallingSilent() { m_thread.join(); }

  int port() const { return m_port.number(); }

private:
  struct Port : SilentPort {
    int take() const { return accept(m_socket, nullptr, nullptr); }
  };

  // Until the caller hangs up.
  void passOn(int server, int answers) const
  {
    const int caller = m_port.take();
    const int called = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = onLoopback(server);
    pollfd ends[] = {{caller, POLLIN, 0}, {called, POLLIN, 0}};
    char piece[65536];
    bool goesOn = connect(called, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    while (goesOn && poll(ends, 2, -1) > 0)
      for (const auto& [from, to] : {std::pair(0, 1), std::pair(1, 0)}) {
        if (!ends[from].revents)
          continue;
        const ssize_t size = read(ends[from].fd, piece, sizeof piece);
        goesOn = goesOn && size > 0;
        if (goesOn && (from == 0 || answers-- > 0))
          goesOn = write(ends[to].fd, piece, std::size_t(size)) == size;
      }
    close(caller);
    close(called);
  }

  const Port m_port;
  std::thread m_thread;
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
    ASSERT_EQ(errorOf(database->made), u""_s);
    engine = *ServerEngine::open(database->clerk.server, waits);
    ASSERT_EQ(answerOf(engine->execute(u"delete from TabPayfundBill"_s)), u""_s);
    ASSERT_EQ(answerOf(engine->execute(u"delete from TabClient"_s)), u""_s);
  }

  // As the program opens it.
  DatabaseResult<void> open(Connection& connection)
  {
    const ServerAddress& server = database->clerk.server;
    return connection.open("Driver={SQL Server};Server="_L1 + server.host + ',' + server.port + ";DataBase=" + server.database +
                           ";UID=" + server.user + ";PWD={p;w}}x y}; ");
  }

  // As the administrator of the server ends connections.
  void dropConnections()
  {
    const auto server = Store::open(*TestServer::administrator());
    ASSERT_TRUE((*server)->run(u"select pg_terminate_backend(pid) from pg_stat_activity where datname='engine_test'"_s));
    std::this_thread::sleep_for(50ms);
  }

  QString countOfClients() { return answerOf((*ServerEngine::open(database->clerk.server))->execute(u"select count(*) from TabClient"_s)); }

  static inline std::unique_ptr<TestServer::Database> database;
  static constexpr ServerWaits waits{.connect = 2s, .lock = 300ms, .statement = 3s};
  static constexpr ServerWaits shortWaits{.connect = 1s, .lock = 300ms, .statement = 1s};
  std::unique_ptr<Engine> engine;
};

} // namespace

// The same rows and the same questions on a file and on a server: case, blanks, dates by the day however
// they are written, what is no day behind them, patterns, sums, both columns of the dialect rule.
TEST_F(ServerEngineTest, AnswersAsTheFileDoes)
{
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"set.mdb"_s);
  ASSERT_TRUE(AccountSet::create(path));
  const std::unique_ptr<Engine> file = *EmbeddedEngine::open(path);
  const auto both = [&](const QString& sql) {
    const QString expected = answerOf(file->execute(sql));
    EXPECT_EQ(answerOf(engine->execute(sql)), expected) << shown(sql);
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
  EXPECT_NE(answerOf(engine->execute(u"insert into TabClient(Code) values('A1')"_s)), u""_s);
  EXPECT_NE(answerOf(file->execute(u"insert into TabClient(Code) values('A1')"_s)), u""_s);
}

TEST_F(ServerEngineTest, TextArrivesWhole)
{
  for (const QString& text : {u"中文，😀𠮷 é\t\r\nline"_s, u"a?b{c}$1$ \\' --x /*y*/"_s, QString(100'000, u'长'), QString(4095, u'a'),
                              QString(4096, u'a'), QString(1365, u'长')}) {
    ASSERT_EQ(answerOf(engine->execute(u"delete from TabClient"_s)), u""_s);
    const QString literal = SqlTokens::quoted(text, u'\'');
    ASSERT_EQ(answerOf(engine->execute(u"insert into TabClient(Code,Address) values('1',"_s + literal + u")"_s)), u""_s);
    EXPECT_EQ(engine->execute(u"select Address from TabClient"_s)->value(0, 0).toText(), text);
  }
}

TEST_F(ServerEngineTest, TheLoginReadsAndWritesRowsAndNothingElse)
{
  const auto clerk = *Odbc::open(database->clerk.server);
  for (const char* sql : {"create table Mine(a integer)", "create temporary table Mine(a integer)", "drop table TabClient",
                          "truncate TabClient", "alter table TabClient add X integer", "create schema mine", "create database mine",
                          "select * into Mine from TabClient", "select pg_read_file('/etc/passwd')", "copy TabClient to '/tmp/x'"})
    EXPECT_FALSE(clerk->run(sql)) << sql;
  // The engine lets none of them, and no second statement in whatever quotes, come that far.
  for (const char* sql : {"create table Mine(a integer)", "select 1; select 2", "select $$'$$; delete from TabClient where Code<>'x'",
                          "select E'\\''; delete from TabClient where Code<>'x'", "{call x}"})
    EXPECT_FALSE(engine->execute(QString::fromLatin1(sql))) << sql;
}

TEST_F(ServerEngineTest, ADroppedConnectionIsMadeAnewByTheNextStatement)
{
  Connection connection;
  ASSERT_TRUE(open(connection));
  dropConnections();
  const auto read = connection.run(u"select count(*) as N from TabClient"_s);
  ASSERT_EQ(errorOf(read), u""_s);
  EXPECT_EQ(read->number(u"N"_s), 0);

  // A write behind a pause finds out before it is sent.
  dropConnections();
  std::this_thread::sleep_for(600ms);
  EXPECT_TRUE(connection.run(u"insert into TabClient(Code) values('1')"_s));
  EXPECT_EQ(countOfClients(), u"1"_s);
}

TEST_F(ServerEngineTest, AWriteIsNeverSentTwice)
{
  Connection connection;
  ASSERT_TRUE(open(connection));
  // Ended while it is being written: nobody can know, so it is told, and the next statement works.
  std::thread ending([this] {
    std::this_thread::sleep_for(300ms);
    dropConnections();
  });
  const auto write = connection.run(u"insert into TabClient(Code) select '1' from (select pg_sleep(1)) s"_s);
  ending.join();
  ASSERT_FALSE(write);
  EXPECT_FALSE(connection.isOpen());
  EXPECT_EQ(countOfClients(), u"0"_s);
  ASSERT_TRUE(open(connection));
  EXPECT_TRUE(connection.run(u"insert into TabClient(Code) values('1')"_s));
  EXPECT_EQ(countOfClients(), u"1"_s);

  // Dropped just ahead of it: told or done once, but never both.
  ASSERT_TRUE(connection.run(u"select 1 as N"_s));
  dropConnections();
  const bool done = connection.run(u"insert into TabClient(Code) values('2')"_s).has_value();
  EXPECT_EQ(countOfClients(), done ? u"2"_s : u"1"_s);
}

TEST_F(ServerEngineTest, NothingWaitsWithoutAnEnd)
{
  ASSERT_EQ(answerOf(engine->execute(u"insert into TabClient(Code) values('1')"_s)), u""_s);
  const auto holder = *Store::open(database->administrator);
  ASSERT_TRUE(holder->runAll({u"begin"_s, u"update TabClient set Name='held'"_s}));
  QElapsedTimer clock;
  clock.start();
  EXPECT_FALSE(engine->execute(u"update TabClient set Name='mine'"_s));
  EXPECT_LT(clock.restart(), 2000);
  EXPECT_TRUE(engine->isOpen());
  EXPECT_FALSE(engine->execute(u"select pg_sleep(60)"_s));
  EXPECT_LT(clock.restart(), 6000);
  EXPECT_EQ(answerOf(engine->execute(u"select Name from TabClient"_s)), u"NULL"_s);

  const SilentPort silent;
  ServerAddress server = database->clerk.server;
  server.port = QString::number(silent.number());
  clock.restart();
  EXPECT_FALSE(ServerEngine::open(server, waits));
  EXPECT_LT(clock.elapsed(), 6000);
}

// A stopped server keeps its connections and answers nothing, so that its own limits don't end anything.
TEST_F(ServerEngineTest, AStoppedServerIsGivenUp)
{
  const QString given = u"服务器在 2 秒内没有应答，连接已断开"_s;
  engine = *ServerEngine::open(database->clerk.server, shortWaits);
  const StoppedServer queried(answerOf(engine->execute(u"select pg_backend_pid()"_s)));
  const auto query = engine->execute(u"select 1"_s);
  EXPECT_EQ(answerOf(query), u"error: "_s + given);
  EXPECT_FALSE(engine->isOpen());
  EXPECT_FALSE(query.error().isRepeatable) << "it has had its time";

  // A write that the server has got, and one that it has not even taken off the line.
  for (const QByteArray& sql : {"insert into TabClient(Code) values('1')"_ba,
                                "insert into TabClient(Code,Address) values('2','"_ba + QByteArray(20'000'000, 'x') + "')"}) {
    const auto odbc = *Odbc::open(database->clerk.server, shortWaits);
    const StoppedServer stopped(answerOf(odbc->run("select pg_backend_pid()")));
    EXPECT_EQ(answerOf(odbc->run(sql)), u"error: "_s + given);
    EXPECT_TRUE(odbc->isLost());
  }
  // What it got it may do when it goes on, once.
  EXPECT_LE(countOfClients().toInt(), 1);

  // After a pause a write is not sent to it at all, and goes over a new connection.
  Connection connection;
  ASSERT_TRUE(open(connection));
  const auto outcome = connection.run(u"select pg_backend_pid() as Id"_s);
  const StoppedServer stopped(outcome->text(u"Id"_s));
  std::this_thread::sleep_for(600ms);
  EXPECT_TRUE(connection.run(u"insert into TabClient(Code) values('3')"_s));
  EXPECT_EQ(connection.run(u"select * from TabClient where Code='3'"_s)->recordCount(), 1);
}

// While it is connected to, after any of its answers.
TEST_F(ServerEngineTest, AServerThatFallsSilentIsGivenUp)
{
  for (const int answers : {1, 3, 5, 6, 8}) {
    const FallingSilent between(database->clerk.server.port.toInt(), answers);
    ServerAddress server = database->clerk.server;
    server.port = QString::number(between.port());
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(ServerEngine::open(server, shortWaits)) << answers;
    EXPECT_LT(clock.elapsed(), 9000) << answers;
  }
}

TEST(Odbc, EachDriverGetsHostAndPortInItsForm)
{
  const ConnectionText text(u"Driver={SQL Server};Server=db.firm, 1500;DataBase=A001;UID=sa;PWD={a;b}}c}; "_s);
  ASSERT_TRUE(text.isDriver());
  const ServerAddress server = text.server();
  EXPECT_EQ(server.password, u"a;b}c"_s);
  EXPECT_EQ(server.database, u"A001"_s);
  const auto has = [&server](const QString& library, const QString& words) {
    return Odbc::driverText(server, {}, library).contains(words);
  };
  EXPECT_TRUE(has(u"/usr/lib/odbc/psqlodbcw.so"_s, u"Driver={SQL Server};Server=db.firm;Port=1500;"_s));
  EXPECT_TRUE(has(u"libtdsodbc.so"_s, u"Server=db.firm;Port=1500;TDS_Version="_s));
  EXPECT_TRUE(has(u"another.so"_s, u"Server=db.firm,1500;Database=A001;UID=sa;PWD={a;b}}c};"_s));
}
