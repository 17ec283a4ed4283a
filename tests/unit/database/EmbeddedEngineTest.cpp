#include "database/EmbeddedEngine.h"

#include "database/Connection.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct EmbeddedEngineTest : testing::Test {
  QTemporaryDir folder;
  QString path = folder.filePath(u"set.mdb"_s);

  // A file with the table Bill(Code, Datee, Moneyy) and these rows.
  void makeFile(const QString& rows = u"('B1','2022-06-08',1.5)"_s)
  {
    RawDatabase file(path);
    file.run(u"create table Bill(Code text collate nocase primary key, Datee text collate ZDATE, Moneyy real);"
             "create index BillDatee on Bill(Datee)"_s);
    if (!rows.isEmpty())
      file.run(u"insert into Bill values"_s + rows);
  }

  std::unique_ptr<Engine> open()
  {
    auto engine = EmbeddedEngine::open(path, 20ms);
    EXPECT_EQ(errorOf(engine), u""_s);
    return *std::move(engine);
  }

  // The first column of a query's rows, joined; or the words of the error.
  QString firstColumn(const QString& sql)
  {
    const auto rows = open()->execute(sql);
    if (!rows)
      return u"error: "_s + rows.error().description;
    QStringList values;
    for (std::int64_t row = 0; row < rows->rows(); ++row)
      values.append(rows->value(row, 0).toText());
    return values.join(u' ');
  }

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
  EXPECT_EQ(refusal(), u"找不到数据库文件："_s + path);
  EXPECT_FALSE(QFile::exists(path)) << "opening must not make a file";
  write({});
  EXPECT_EQ(refusal(), u"不可识别的数据库格式："_s + path);
  write("This is a text, and a long one, with more characters than a header has.");
  EXPECT_EQ(refusal(), u"不可识别的数据库格式："_s + path);
  QFile::remove(path);
  QDir().mkdir(path);
  EXPECT_EQ(refusal(), u"不是数据库文件："_s + path);
}

TEST_F(EmbeddedEngineTest, AFileLockedByAnotherProgramIsAnErrorUntilItIsFree)
{
  makeFile();
  RawDatabase other(path);
  const auto engine = open();
  other.run(u"begin exclusive"_s);
  EXPECT_FALSE(engine->execute(u"select * from Bill"_s));
  EXPECT_FALSE(engine->execute(u"delete from Bill"_s));
  EXPECT_EQ(refusal(), u"database is locked"_s);
  other.run(u"commit"_s);
  EXPECT_EQ(engine->execute(u"select * from Bill"_s)->rows(), 1);
}

TEST_F(EmbeddedEngineTest, AReadRecordsetBlocksNobody)
{
  makeFile(u"('B1','2022-06-08',1),('B2','2022-06-08',2)"_s);
  const auto engine = open();
  const auto read = engine->execute(u"select * from Bill"_s);
  RawDatabase(path).run(u"delete from Bill where Code='B1'"_s);
  EXPECT_EQ(read->rows(), 2);
}

TEST_F(EmbeddedEngineTest, DatesCompareByTheDayHoweverTheyAreWritten)
{
  makeFile(u"('a','2022-6-1',0),('b','2022/06/01',0),('c','2022-06-01 09:00:00',0),('d','2021-12-31',0),('e','2022-10-1',0),"
           "('f','',0),('g','abc',0),('h','2022-02-30',0),('i','2024-02-29',0)"_s);
  EXPECT_EQ(firstColumn(u"select Code from Bill where Datee=#2022-06-01# order by Code"_s), u"a b c"_s);
  EXPECT_EQ(firstColumn(u"select Code from Bill where Datee<'2022-06-01'"_s), u"d"_s);
  EXPECT_EQ(firstColumn(u"select Code from Bill where Datee>#2022-6-1# and Datee<='2024-2-29' order by Code"_s), u"e i"_s);
  EXPECT_EQ(firstColumn(u"select Code from Bill order by Datee,Code"_s), u"d a b c e i f h g"_s);
}

TEST_F(EmbeddedEngineTest, TheOrderOfDatesIsOneOrder)
{
  // An index over an order that contradicts itself loses rows.
  const QStringList dates{u"2022-13-01"_s, u"2022-06-08"_s, u"2023/1/1"_s,   u"2023-01-01"_s, u"2022-02-29"_s, u"2022-2-28"_s,
                          u"2022-03-01"_s, u"0000-01-01"_s, u"2024-02-29"_s, u"2024-2-29"_s,  u"2024-03-01"_s, u"x"_s};
  makeFile({});
  RawDatabase file(path);
  for (qsizetype i = 0; i < dates.size(); ++i)
    file.run(u"insert into Bill values('%1','%2',0)"_s.arg(i).arg(dates[i]));
  EXPECT_EQ(file.rows(u"pragma integrity_check"_s), u"ok"_s);
  for (const QString& a : dates)
    for (const QString& b : dates)
      for (const QString& c : dates) {
        const QString sql = u"select '%1'<='%2' collate ZDATE and '%2'<='%3' collate ZDATE and not '%1'<='%3' collate ZDATE"_s;
        EXPECT_EQ(file.rows(sql.arg(a, b, c)), u"0"_s) << shown(a + u' ' + b + u' ' + c);
      }
}

TEST_F(EmbeddedEngineTest, ValuesKeepTheirKind)
{
  makeFile(u"('B1',null,1.5)"_s);
  const auto rows = open()->execute(u"select Code, Datee, Moneyy, 7 as Seven, 'a😀' as Emoji, '' as Empty from Bill"_s);
  ASSERT_EQ(rows->rows(), 1);
  EXPECT_TRUE(rows->value(0, 1).isNull());
  EXPECT_EQ(rows->value(0, 1).toText(), u""_s);
  EXPECT_EQ(rows->value(0, 2).toNumber(), 1.5);
  EXPECT_EQ(rows->value(0, 4).toText(), u"a😀"_s);
  EXPECT_FALSE(rows->value(0, 5).isNull());
  EXPECT_EQ(rows->column(u"SEVEN"_s), 3);
}

TEST_F(EmbeddedEngineTest, AStatementThatFailsLeavesTheRestUnharmed)
{
  makeFile(u"('B1','2022-06-08',1.5)"_s);
  const auto engine = open();
  for (const QString& sql : {
           u"insert into Bill values('B1','2022-06-09',2)"_s,
           u"insert into Bill values('B2','2022-06-09',2),('b1','',0)"_s,
           u"insert into Bill values('O'Neill','2022-06-09',2)"_s,
           u"insert into Bill values('x');drop table Bill;--','2022-06-09',2)"_s,
           u"drop table Bill"_s,
           u"attach 'other' as other"_s,
           u"select * from pragma_table_info('Bill')"_s,
           u"select load_extension('x')"_s,
           u"delete from sqlite_master"_s,
       })
    EXPECT_FALSE(engine->execute(sql)) << shown(sql);
  EXPECT_EQ(RawDatabase(path).rows(u"select * from Bill"_s), u"B1|2022-06-08|1.5"_s);
  EXPECT_TRUE(engine->execute(u"insert into Bill values('B2','2022-06-09',2)"_s));
}

TEST_F(EmbeddedEngineTest, AConnectionOpensWhatItsTextNames)
{
  makeFile();
  Connection connection;
  EXPECT_FALSE(connection.run(u"select 1"_s)) << "not open yet";
  EXPECT_FALSE(connection.open({}));
  EXPECT_FALSE(connection.open(u"Driver={Nothing};Server=x"_s));
  QString windowsPath = path;
  windowsPath.replace(u'/', u'\\');
  for (const QString& name : {path, windowsPath}) {
    EXPECT_TRUE(connection.open(u"Provider = Microsoft.Jet.OLEDB.4.0;Data Source = "_s + name + u";Jet OLEDB:Database Password='x'"_s));
    EXPECT_TRUE(connection.isOpen());
    EXPECT_EQ(connection.run(u"select * from Bill"_s)->recordCount(), 1);
  }
  connection.close();
  EXPECT_FALSE(connection.isOpen());
}
