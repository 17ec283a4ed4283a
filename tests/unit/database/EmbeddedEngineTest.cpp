#include "database/EmbeddedEngine.h"

#include "database/Connection.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace std::chrono_literals;

namespace {

struct EmbeddedEngineTest : testing::Test {
  QTemporaryDir folder;
  QString path = folder.filePath("set.mdb");

  // A file with the table Bill(Code, Datee, Moneyy) and these rows.
  void makeFile(const QString& rows = "('B1','2022-06-08',1.5)")
  {
    RawDatabase file(path);
    file.run("create table Bill(Code text collate nocase primary key, Datee text collate ZDATE, Moneyy real);"
             "create index BillDatee on Bill(Datee)");
    if (!rows.isEmpty())
      file.run(QString("insert into Bill values") + rows);
  }

  std::unique_ptr<Engine> open()
  {
    auto engine = EmbeddedEngine::open(path, 20ms);
    EXPECT_EQ(errorOf(engine), "");
    return *std::move(engine);
  }

  QString answer(const QString& sql) { return answerOf(open()->execute(sql)); }

  void write(const QByteArray& content)
  {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  QString refusal()
  {
    const auto engine = EmbeddedEngine::open(path, 20ms);
    EXPECT_TRUE(!engine && engine.error().number != 0);
    return errorOf(engine);
  }
};

} // namespace

TEST_F(EmbeddedEngineTest, OpensOnlyADatabaseFileThatIsThere)
{
  EXPECT_EQ(refusal(), QString("找不到数据库文件：") + path);
  EXPECT_FALSE(QFile::exists(path)) << "opening must not make a file";
  write({});
  EXPECT_EQ(refusal(), QString("不可识别的数据库格式：") + path);
  write("This is a text, and a long one, with more characters than a header has.");
  EXPECT_EQ(refusal(), QString("不可识别的数据库格式：") + path);
  QFile::remove(path);
  QDir().mkdir(path);
  EXPECT_EQ(refusal(), QString("不是数据库文件：") + path);
}

TEST_F(EmbeddedEngineTest, AFileLockedByAnotherProgramIsAnErrorUntilItIsFree)
{
  makeFile();
  RawDatabase other(path);
  const auto engine = open();
  other.run("begin exclusive");
  EXPECT_FALSE(engine->execute("select * from Bill"));
  EXPECT_FALSE(engine->execute("delete from Bill"));
  EXPECT_EQ(refusal(), "database is locked");
  other.run("commit");
  EXPECT_EQ(engine->execute("select * from Bill")->rows(), 1);
}

TEST_F(EmbeddedEngineTest, AReadRecordsetBlocksNobody)
{
  makeFile("('B1','2022-06-08',1),('B2','2022-06-08',2)");
  const auto engine = open();
  const auto read = engine->execute("select * from Bill");
  RawDatabase(path).run("delete from Bill where Code='B1'");
  EXPECT_EQ(read->rows(), 2);
}

TEST_F(EmbeddedEngineTest, DatesCompareByTheDayHoweverTheyAreWritten)
{
  makeFile("('a','2022-6-1',0),('b','2022/06/01',0),('c','2022-06-01 09:00:00',0),('d','2021-12-31',0),('e','2022-10-1',0),"
           "('f','',0),('g','abc',0),('h','2022-02-30',0),('i','2024-02-29',0)");
  EXPECT_EQ(answer("select Code from Bill where Datee=#2022-06-01# order by Code"), "a b c");
  EXPECT_EQ(answer("select Code from Bill where Datee<'2022-06-01'"), "d");
  EXPECT_EQ(answer("select Code from Bill where Datee>#2022-6-1# and Datee<='2024-2-29' order by Code"), "e i");
  EXPECT_EQ(answer("select Code from Bill order by Datee,Code"), "d a b c e i f h g");
}

TEST_F(EmbeddedEngineTest, TheOrderOfDatesIsOneOrder)
{
  // An index over an order that contradicts itself loses rows.
  const QStringList dates{"2022-13-01", "2022-06-08", "2023/1/1",   "2023-01-01", "2022-02-29", "2022-2-28",
                          "2022-03-01", "0000-01-01", "2024-02-29", "2024-2-29",  "2024-03-01", "x"};
  makeFile({});
  RawDatabase file(path);
  for (qsizetype i = 0; i < dates.size(); ++i)
    file.run(QString("insert into Bill values('%1','%2',0)").arg(i).arg(dates[i]));
  EXPECT_EQ(file.rows("pragma integrity_check"), "ok");
  for (const QString& a : dates)
    for (const QString& b : dates)
      for (const QString& c : dates) {
        const QString sql = "select '%1'<='%2' collate ZDATE and '%2'<='%3' collate ZDATE and not '%1'<='%3' collate ZDATE";
        EXPECT_EQ(file.rows(sql.arg(a, b, c)), "0") << shown(a + u' ' + b + u' ' + c);
      }
}

TEST_F(EmbeddedEngineTest, ValuesKeepTheirKind)
{
  makeFile("('B1',null,1.5)");
  const QString sql = "select Code, Datee, Moneyy, 7 as Seven, 'a😀' as Emoji, '' as Empty from Bill";
  EXPECT_EQ(answer(sql), "B1|NULL|1.5|7|a😀|");
  EXPECT_EQ(open()->execute(sql)->column("SEVEN"), 3);
}

TEST_F(EmbeddedEngineTest, AStatementThatFailsLeavesTheRestUnharmed)
{
  makeFile("('B1','2022-06-08',1.5)");
  const auto engine = open();
  for (const char* sql : {
           "insert into Bill values('B1','2022-06-09',2)",
           "insert into Bill values('B2','2022-06-09',2),('b1','',0)",
           "insert into Bill values('O'Neill','2022-06-09',2)",
           "insert into Bill values('x');drop table Bill;--','2022-06-09',2)",
           "drop table Bill",
           "attach 'other' as other",
           "select * from pragma_table_info('Bill')",
           "select load_extension('x')",
           "delete from sqlite_master",
       })
    EXPECT_FALSE(engine->execute(sql)) << sql;
  EXPECT_EQ(RawDatabase(path).rows("select * from Bill"), "B1|2022-06-08|1.5");
  EXPECT_TRUE(engine->execute("insert into Bill values('B2','2022-06-09',2)"));
}

TEST_F(EmbeddedEngineTest, AConnectionOpensWhatItsTextNames)
{
  makeFile();
  Connection connection;
  EXPECT_FALSE(connection.run("select 1")) << "not open yet";
  EXPECT_FALSE(connection.open({}));
  EXPECT_FALSE(connection.open("Driver={Nothing};Server=x"));
  QString windowsPath = path;
  windowsPath.replace(u'/', u'\\');
  for (const QString& name : {path, windowsPath}) {
    EXPECT_TRUE(connection.open(QString("Provider = Microsoft.Jet.OLEDB.4.0;Data Source = ") + name + ";Jet OLEDB:Database Password='x'"));
    EXPECT_TRUE(connection.isOpen());
    EXPECT_EQ(connection.run("select * from Bill")->recordCount(), 1);
  }
  connection.close();
  EXPECT_FALSE(connection.isOpen());
}
