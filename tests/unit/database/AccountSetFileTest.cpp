#include "database/AccountSetFile.h"

#include "accountset/AccountSet.h"
#include "database/EmbeddedEngine.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr char Endless[] = "with recursive r(n) as (select 1 union all select n+1 from r) select n as Code, n as Num from r";

// Account sets that were made to do harm, over which the program's own statements are run.
struct AccountSetFileTest : testing::Test {
  QTemporaryDir folder;
  QString path = folder.filePath("set.mdb");

  // A file with one payment and then these changes.
  void makeFile(const QString& changes)
  {
    QFile::remove(path);
    ASSERT_TRUE(AccountSet::create(path));
    RawDatabase(path).run(QString("insert into TabPayfundBill(Code) values('FKD1');") + changes);
  }

  // The error of opening the file or of running a statement; empty if neither failed.
  QString error(const QString& sql = "select * from TabPayfundBill")
  {
    const auto engine = EmbeddedEngine::open(path, 20ms, 300ms);
    return engine ? errorOf((*engine)->execute(sql)) : errorOf(engine);
  }
};

} // namespace

TEST_F(AccountSetFileTest, AViewInATablesPlaceIsNotRead)
{
  makeFile(QString("drop table TabDotSet; create view TabDotSet as ") + QLatin1String(Endless));
  EXPECT_NE(error("select * from TabDotSet where Name='单价型' "), "");
  EXPECT_EQ(error(), "") << "the rest is as it was";
}

TEST_F(AccountSetFileTest, TriggersDoNotRun)
{
  makeFile("create trigger t after insert on TabPayfundBill begin delete from TabPayfundBill; end;"
           "create trigger u before update on TabPayfundBill begin select raise(abort, 'no'); end");
  EXPECT_EQ(error("insert into TabPayfundBill(Code) values('FKD2')"), "");
  EXPECT_EQ(error("update TabPayfundBill set Remark='x'"), "");
  EXPECT_EQ(RawDatabase(path).rows("select Code from TabPayfundBill order by Code"), "FKD1\nFKD2");
}

TEST_F(AccountSetFileTest, DefinitionsHoldNoExpressions)
{
  for (const char* definition :
       {"create table X(a text, b generated always as (a like '%a%a%a%a%a%a%b'))", "create table X(a text check (instr(a, a||'x')=0))",
        "create table X(a default (hex(zeroblob(60000000))))", "create table X(a, constraint c check (a > 0))",
        "create index X on TabPayfundBill(lower(Code))", "create index X on TabPayfundBill(Code || Code)",
        "create unique index X on TabPayfundBill(Code) where Code like '%a%a%a%b'", "create virtual table X using fts5(a)",
        "create table X(\"a`(\" text, b as (`a``(`) /* ( */)"}) {
    makeFile(QString::fromLatin1(definition));
    EXPECT_EQ(error(), "账套文件含有不允许的定义：X") << definition;
  }
}

// What people and their tools make beside the family's own tables.
TEST_F(AccountSetFileTest, WhatAnHonestFileHoldsIsLeftAlone)
{
  makeFile("create table \"My Table\" (Id integer primary key autoincrement, [Key] varchar(50) not null collate nocase default 'a(b', "
           "Price decimal(18, 2) default -1.5, At text default current_timestamp, -- a comment (with brackets\n"
           "Bill text references TabPayfundBill(Code) on delete cascade, constraint u unique (Price, At), foreign key (At) references "
           "Other (A)); create table Keyed(a int, b int, primary key (a, b desc)) without rowid, strict;"
           "create index if not exists i on \"My Table\" (Price collate binary desc, \"Key\" asc); "
           "create view Report as select max(Code) from TabPayfundBill; analyze; alter table TabPayfundBill add column Extra text");
  EXPECT_EQ(error(), "");
}

TEST_F(AccountSetFileTest, ValuesAndResultsHaveTheirMeasure)
{
  makeFile("insert into TabPayfundBill(Code,Remark) values('FKD2',zeroblob(300000000))");
  EXPECT_EQ(error(), "string or blob too big");
  EXPECT_EQ(error("select Code from TabPayfundBill order by Code"), "") << "what does not read it works";
  makeFile("with recursive r(n) as (select 1 union all select n+1 from r where n<30) insert into TabPayfundBill(Code,Remark) "
           "select n, zeroblob(10000000) from r");
  EXPECT_EQ(error(), "查询结果超过 256 MB");
  EXPECT_EQ(error("select * from TabPayfundBill where Code='7'"), "");
}

TEST_F(AccountSetFileTest, AStatementWithoutEndIsEnded)
{
  makeFile("with recursive r(n) as (select 1 union all select n+1 from r where n<2000) insert into TabClient(Code) select n from r");
  EXPECT_EQ(error("select count(*) from TabClient a, TabClient b, TabClient c, TabClient d where a.Code<>b.Code"),
            "语句的运行时间超过 1 秒");
  EXPECT_EQ(error("update TabClient set Name=(select count(*) from TabClient a, TabClient b, TabClient c)"), "语句的运行时间超过 1 秒");
  EXPECT_EQ(RawDatabase(path).rows("select count(*) from TabClient where Name is not null"), "0");
}

TEST_F(AccountSetFileTest, WhatLiesBesideTheFileIsAPlainFile)
{
  makeFile({});
  const QByteArray journal = QFile::encodeName(path + "-journal");
  ASSERT_EQ(mkfifo(journal.constData(), 0600), 0);
  EXPECT_EQ(error(), QString("不是数据库文件：") + QFileInfo(path).canonicalFilePath() + "-journal");
  ASSERT_TRUE(QFile::remove(path + "-journal"));
  ASSERT_EQ(symlink(QFile::encodeName(folder.filePath("other")).constData(), journal.constData()), 0);
  EXPECT_NE(error("insert into TabPayfundBill(Code) values('FKD2')"), "");
  EXPECT_FALSE(QFile::exists(folder.filePath("other")));
}
