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

using namespace std::chrono_literals;

namespace {

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

// A proxy between a client and the server that passes on so many pieces of what the server says, and then nothing.
class FallingSilent {
public:
  FallingSilent(int server, int answers)
  {
    sockaddr_in address = onLoopback(0);
    socklen_t size = sizeof address;
    auto* const general = reinterpret_cast<sockaddr*>(&address);
    if (bind(m_socket, general, size) != 0 || listen(m_socket, 5) != 0 || getsockname(m_socket, general, &size) != 0)
      ADD_FAILURE() << "cannot listen";
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this, server, answers] { passOn(onLoopback(server), answers); });
  }
  ~FallingSilent()
  {
    m_thread.join();
    close(m_socket);
  }

  int port() const { return m_port; }

private:
  static sockaddr_in onLoopback(int port)
  {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(in_port_t(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
  }

  // Until the client hangs up.
  void passOn(const sockaddr_in& server, int answers) const
  {
    pollfd ends[] = {{accept(m_socket, nullptr, nullptr), POLLIN, 0}, {socket(AF_INET, SOCK_STREAM, 0), POLLIN, 0}};
    char piece[65536];
    bool goesOn = ends[1].fd >= 0 && connect(ends[1].fd, reinterpret_cast<const sockaddr*>(&server), sizeof server) == 0;
    while (goesOn && poll(ends, 2, -1) > 0)
      for (const auto& [from, to] : {std::pair(0, 1), std::pair(1, 0)}) {
        if (!ends[from].revents)
          continue;
        const ssize_t size = read(ends[from].fd, piece, sizeof piece);
        goesOn = goesOn && size > 0;
        if (goesOn && (from == 0 || answers-- > 0))
          goesOn = write(ends[to].fd, piece, std::size_t(size)) == size;
      }
    for (const pollfd& end : ends)
      close(end.fd);
  }

  const int m_socket = socket(AF_INET, SOCK_STREAM, 0);
  int m_port = 0;
  std::thread m_thread;
};

struct ServerEngineTest : testing::Test {
  static void SetUpTestSuite()
  {
    if (TestServer::administrator())
      database = std::make_unique<TestServer::Database>("engine_test");
  }
  static void TearDownTestSuite() { database.reset(); }

  void SetUp() override
  {
    if (!database)
      GTEST_SKIP() << "tools/with-server runs these tests";
    ASSERT_EQ(errorOf(database->made), "");
    engine = *ServerEngine::open(database->clerk.server, waits);
    ASSERT_EQ(answerOf(engine->execute("delete from TabPayfundBill")), "");
    ASSERT_EQ(answerOf(engine->execute("delete from TabClient")), "");
  }

  // As the program opens it.
  DatabaseResult<void> open(Connection& connection)
  {
    const ServerAddress& server = database->clerk.server;
    const QString text = "Driver={SQL Server};Server=%1,%2;DataBase=%3;UID=%4;PWD={p;w}}x y}; ";
    return connection.open(text.arg(server.host, server.port, server.database, server.user));
  }

  // As an administrator of the server would.
  void dropConnections()
  {
    const auto server = Store::open(*TestServer::administrator());
    ASSERT_TRUE((*server)->run("select pg_terminate_backend(pid) from pg_stat_activity where datname='engine_test'"));
    std::this_thread::sleep_for(50ms);
  }

  QString countOfClients() { return answerOf((*ServerEngine::open(database->clerk.server))->execute("select count(*) from TabClient")); }

  static inline std::unique_ptr<TestServer::Database> database;
  static constexpr ServerWaits waits{.connect = 2s, .lock = 300ms, .statement = 3s};
  static constexpr ServerWaits shortWaits{.connect = 1s, .lock = 300ms, .statement = 1s};
  std::unique_ptr<Engine> engine;
};

} // namespace

// The same rows and the same queries on a file and on a server: case, spaces, dates by the day however they are written,
// texts that are not dates after them, patterns, sums, both dialects.
TEST_F(ServerEngineTest, AnswersAsTheFileDoes)
{
  const QTemporaryDir folder;
  const QString path = folder.filePath("set.mdb");
  ASSERT_TRUE(AccountSet::create(path));
  const std::unique_ptr<Engine> file = *EmbeddedEngine::open(path);
  const auto both = [&](const QString& sql) {
    const QString expected = answerOf(file->execute(sql));
    EXPECT_EQ(answerOf(engine->execute(sql)), expected) << shown(sql);
    return expected;
  };
  const QStringList dates =
      QString("'2022-06-08'|'2022-6-8'|' 2022-06-08'|'2022/06/07'|'2022.6.9 10:30'|'2022-06-07T9:00:00'|'2022-02-30'|'2024-02-29'|"
              "'2023-02-29'|''|null|'abc'|'2022-06-08 25:00'|'0999-12-31'|'2022-12-31'")
          .split(u'|');
  for (int i = 0; i < dates.size(); ++i)
    both(QString("insert into TabPayfundBill(Code,Datee,SumMoney,MoneyRate) values('%1',%2,%3,6.8312)")
             .arg(i, 2, 10, QChar(u'0'))
             .arg(dates[i])
             .arg(i + 0.1));
  for (const char* name : {"('a1','ABC')", "('A2','abc ')", "('A10','Ａbc')", "('b','50%')", "('c','a\\b')", "('D','a_b')", "('e','清泉')",
                           "('f','O''Neill #1# top')", "('É','É')", "('é','é')", "('g',null)", "('h','')"})
    both(QString("insert into TabClient(Code,Name) values") + QString::fromUtf8(name));

  both("select Code, Datee from TabPayfundBill order by Datee, Code");
  both("select max(Datee), min(Datee), sum(SumMoney), max(SumMoney), count(*), count(Datee) from TabPayfundBill");
  for (const char* date : {"#2022-06-08#", "'2022-6-8'", "#2022/6/8 9:00#", "'2022-06-07'", "'2022-02-30'", "''", "'zz'"})
    for (const char* sign : {"=", "<", "<=", ">", ">=", "<>"})
      both(QString("select Code from TabPayfundBill where Datee%1%2 order by Code").arg(QLatin1String(sign), QLatin1String(date)));
  both("select Datee, count(*) from TabPayfundBill where Datee='2022-06-08' group by Datee, Code order by Code");
  both("select Code from TabPayfundBill where Datee like '2022-06%' or MoneyRate=6.8312 order by code");
  EXPECT_EQ(both("select Code from TabClient where Code='A1'"), "a1");
  for (const char* where : {"Name='abc'", "Name='ABC '", "Name like 'AB%'", "Name like '50\\%'", "Name like 'a\\%'", "Name like '%\\'",
                            "Name like 'A_B'", "Name='é'", "Code='É'", "Name like '清%'", "Name like '%#1#%'", "isnull(Name)", "Name<>''",
                            "Code>'A1' and Code<'E'", "Name='O''NEILL #1# TOP'"})
    both(QString("select Code from TabClient where %1 order by Code").arg(where));
  both("select top 3 Code, Name from TabClient order by Code desc");
  both("select max(cint(Code)) as M, max(convert(int,Code)) as N from TabPayfundBill");
  both("select sum(S) as T from (select SumMoney as S from TabPayfundBill union all select 0.2 as S from TabClient) a");
  both("select [Code] from TabClient where \"Name\"='50%'");
  // The keys are the same: 'A1' is there.
  EXPECT_NE(answerOf(engine->execute("insert into TabClient(Code) values('A1')")), "");
  EXPECT_NE(answerOf(file->execute("insert into TabClient(Code) values('A1')")), "");
}

TEST_F(ServerEngineTest, TextArrivesWhole)
{
  for (const QString& text : QStringList{"中文，😀𠮷 é\t\r\nline", "a?b{c}$1$ \\' --x /*y*/", QString(100'000, u'长'), QString(4095, u'a'),
                                         QString(4096, u'a'), QString(1365, u'长')}) {
    ASSERT_EQ(answerOf(engine->execute("delete from TabClient")), "");
    const QString literal = SqlTokens::quoted(text, u'\'');
    ASSERT_EQ(answerOf(engine->execute(QString("insert into TabClient(Code,Address) values('1',") + literal + ")")), "");
    EXPECT_EQ(engine->execute("select Address from TabClient")->value(0, 0).toText(), text);
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
    EXPECT_FALSE(engine->execute(sql)) << sql;
}

TEST_F(ServerEngineTest, TheNextStatementReconnects)
{
  Connection connection;
  ASSERT_TRUE(open(connection));
  dropConnections();
  const auto read = connection.run("select count(*) as N from TabClient");
  ASSERT_EQ(errorOf(read), "");
  EXPECT_EQ(read->number("N"), 0);

  // A write after a pause finds out before it is sent.
  dropConnections();
  std::this_thread::sleep_for(600ms);
  EXPECT_TRUE(connection.run("insert into TabClient(Code) values('1')"));
  EXPECT_EQ(countOfClients(), "1");
}

TEST_F(ServerEngineTest, AWriteIsNeverSentTwice)
{
  Connection connection;
  ASSERT_TRUE(open(connection));
  // Ended during the write: nobody can know its outcome, so the error is reported, and the next statement works.
  std::thread ending([this] {
    std::this_thread::sleep_for(300ms);
    dropConnections();
  });
  const auto write = connection.run("insert into TabClient(Code) select '1' from (select pg_sleep(1)) s");
  ending.join();
  ASSERT_FALSE(write);
  EXPECT_FALSE(connection.isOpen());
  EXPECT_EQ(countOfClients(), "0");
  ASSERT_TRUE(open(connection));
  EXPECT_TRUE(connection.run("insert into TabClient(Code) values('1')"));
  EXPECT_EQ(countOfClients(), "1");

  // Dropped just before it: reported or done once, but never both.
  ASSERT_TRUE(connection.run("select 1 as N"));
  dropConnections();
  const bool done = connection.run("insert into TabClient(Code) values('2')").has_value();
  EXPECT_EQ(countOfClients(), done ? "2" : "1");
}

TEST_F(ServerEngineTest, NothingWaitsWithoutAnEnd)
{
  ASSERT_EQ(answerOf(engine->execute("insert into TabClient(Code) values('1')")), "");
  const auto holder = *Store::open(database->administrator);
  ASSERT_TRUE(holder->runAll({"begin", "update TabClient set Name='held'"}));
  QElapsedTimer clock;
  clock.start();
  EXPECT_FALSE(engine->execute("update TabClient set Name='mine'"));
  EXPECT_LT(clock.restart(), 2000);
  EXPECT_TRUE(engine->isOpen());
  EXPECT_FALSE(engine->execute("select pg_sleep(60)"));
  EXPECT_LT(clock.restart(), 6000);
  EXPECT_EQ(answerOf(engine->execute("select Name from TabClient")), "NULL");
}

// A stopped server keeps its connections and answers nothing, so that its own limits don't end anything.
TEST_F(ServerEngineTest, AStoppedServerIsGivenUp)
{
  const QString reported = "服务器在 2 秒内没有应答，连接已断开";
  engine = *ServerEngine::open(database->clerk.server, shortWaits);
  const StoppedServer queried(answerOf(engine->execute("select pg_backend_pid()")));
  const auto query = engine->execute("select 1");
  EXPECT_EQ(answerOf(query), QString("error: ") + reported);
  EXPECT_FALSE(engine->isOpen());
  EXPECT_FALSE(query.error().isRepeatable) << "it has had its time";

  // A write that the server has received, and one that it has not even read.
  for (const QByteArray& sql : {QByteArray("insert into TabClient(Code) values('1')"),
                                "insert into TabClient(Code,Address) values('2','" + QByteArray(20'000'000, 'x') + "')"}) {
    const auto odbc = *Odbc::open(database->clerk.server, shortWaits);
    const StoppedServer stopped(answerOf(odbc->run("select pg_backend_pid()")));
    EXPECT_EQ(answerOf(odbc->run(sql)), QString("error: ") + reported);
    EXPECT_TRUE(odbc->isLost());
  }
  // It may execute what it has received when it goes on, once.
  EXPECT_LE(countOfClients().toInt(), 1);

  // After a pause a write is not sent to it at all, and goes over a new connection.
  Connection connection;
  ASSERT_TRUE(open(connection));
  const auto outcome = connection.run("select pg_backend_pid() as Id");
  const StoppedServer stopped(outcome->text("Id"));
  std::this_thread::sleep_for(600ms);
  EXPECT_TRUE(connection.run("insert into TabClient(Code) values('3')"));
  EXPECT_EQ(connection.run("select * from TabClient where Code='3'")->recordCount(), 1);
}

// While it is connected to, after any of its answers.
TEST_F(ServerEngineTest, AServerThatFallsSilentIsGivenUp)
{
  for (const int answers : {0, 1, 3, 5, 6, 8}) {
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
  const ConnectionText text("Driver={SQL Server};Server=db.firm, 1500;DataBase=A001;UID=sa;PWD={a;b}; ");
  ASSERT_TRUE(text.isDriver());
  const ServerAddress server = text.server();
  EXPECT_EQ(server.password, "a;b");
  EXPECT_EQ(server.database, "A001");
  const auto has = [&server](const QString& library, const QString& words) {
    return Odbc::driverText(server, {}, library).contains(words);
  };
  EXPECT_TRUE(has("/usr/lib/odbc/psqlodbcw.so", "Driver={SQL Server};Server=db.firm;Port=1500;"));
  EXPECT_TRUE(has("libtdsodbc.so", "Server=db.firm;Port=1500;TDS_Version="));
  EXPECT_TRUE(has("another.so", "Server=db.firm,1500;Database=A001;UID=sa;PWD={a;b};"));
}
