#include "session/ModuleADO.h"

#include "platform/RunTimeError.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString Unknown = u"不能确定当前操作账套，请重新登陆系统！"_s;

struct ModuleADOTest : testing::Test, SessionFixture {
  ModuleADOTest() { file.run(u"create table Bill(Code text primary key, Datee text collate ZDATE, Period text)"_s); }

  SessionParams& params = session.params;
};

} // namespace

TEST_F(ModuleADOTest, TheConnectionTextIsWordedByTypeAndFolder)
{
  struct Row {
    const char* what;
    QString type, folder, port;
    QString expected;
  };
  for (
      const auto& [what, type, programFolder, port, expected] : {
          Row{"file",
              u"Access"_s,
              u"/opt/zv"_s,
              {},
              u"Provider = Microsoft.Jet.OLEDB.4.0;Data Source = /opt/zv\\Data\\A001.mdb;Jet OLEDB:Database Password='qp7ezm4tw2hx9c'"_s},
          Row{"file in a root folder: the separator is doubled",
              u"Access"_s,
              u"C:\\"_s,
              {},
              u"Provider = Microsoft.Jet.OLEDB.4.0;Data Source = C:\\\\Data\\A001.mdb;Jet OLEDB:Database Password='qp7ezm4tw2hx9c'"_s},
          Row{"file, second form",
              u"Access2"_s,
              u"/opt/zv"_s,
              {},
              u"Provider = Microsoft.Jet.OLEDB.4.0;Data Source = /opt/zv\\Data\\A001.mdb;  Jet OLEDB:Database Password='qp7ezm4tw2hx9c'"_s},
          Row{"file, second form in a root folder: one separator",
              u"Access2"_s,
              u"C:\\"_s,
              {},
              u"Provider = Microsoft.Jet.OLEDB.4.0;Data Source = C:\\Data\\A001.mdb;  Jet OLEDB:Database Password='qp7ezm4tw2hx9c'"_s},
          Row{"server", u"SQL"_s, u"/opt/zv"_s, {}, u"Driver={SQL Server};Server=10.0.0.5,1433;DataBase=A001.mdb;UID=sa;PWD=; "_s},
          Row{"blank port", u"SQL"_s, u"/opt/zv"_s, u"  "_s, u"Driver={SQL Server};Server=10.0.0.5,1433;DataBase=A001.mdb;UID=sa;PWD=; "_s},
          Row{"a port keeps its blank", u"SQL"_s, u"/opt/zv"_s, u" 1500"_s,
              u"Driver={SQL Server};Server=10.0.0.5, 1500;DataBase=A001.mdb;UID=sa;PWD=; "_s},
          Row{"wrong case", u"access"_s, u"/opt/zv"_s, {}, {}},
          Row{"wrong case", u"sql"_s, u"/opt/zv"_s, {}, {}},
          Row{"no type", {}, u"/opt/zv"_s, {}, {}},
      }) {
    params.DatabaseType = type;
    params.ConPortNum = port;
    params.ConServerIP = u"10.0.0.5"_s;
    params.ConDataBaseUID = u"sa"_s;
    machine.folder = programFolder;
    EXPECT_EQ(GetConnectionString(session), expected) << what;
  }
  EXPECT_EQ(desk.takeTexts(), u""_s);
  params.DatabaseType = u"Access"_s;
  params.demoData = true;
  EXPECT_EQ(GetConnectionString(session), u""_s);
}

TEST_F(ModuleADOTest, AnUnknownAccountSetIsWarnedOfAndTheTextBuiltAllTheSame)
{
  params.ConDataName.clear();
  EXPECT_TRUE(GetConnectionString(session).contains(u"\\Data\\;"_s));
  EXPECT_EQ(desk.boxes.value(0).icon, Desk::Icon::Stop);
  EXPECT_EQ(desk.takeTexts(), Unknown);
  params.DatabaseType = u"SQL"_s;
  EXPECT_TRUE(GetConnectionString(session).startsWith(u"Driver="_s));
  EXPECT_EQ(desk.takeTexts(), Unknown + u'\n' + Unknown) << "neither account set nor server";
  params.ConDataName = u"A"_s;
  params.ConServerIP = u"x"_s;
  GetConnectionString(session);
  EXPECT_EQ(desk.takeTexts(), Unknown) << "no user";
}

TEST_F(ModuleADOTest, BothDialectsAskTheSameOfTheSameFile)
{
  file.run(u"insert into Bill values('B1','2022-06-07','5'),('B2','2022-06-08',''),('B3','2022-06-09',null)"_s);
  for (const QString& type : {u"Access"_s, u"Access2"_s}) {
    params.DatabaseType = type;
    params.IsAccessSQL = type == u"Access";
    CloseConnection(session);
    const QString day = SqlDialect::date(session, QDate(2022, 6, 8));
    EXPECT_EQ(OpenRecordset(session, u"select count(*) as n from Bill where Datee>="_s + day).number(u"n"_s), 2) << shown(type);
    EXPECT_EQ(OpenRecordset(session, u"select max("_s + SqlDialect::integer(session, u"Period"_s) + u") as m from Bill"_s).number(u"m"_s),
              5);
    const QString isNull = SqlDialect::isNull(session, u"Period"_s);
    EXPECT_EQ(
        OpenRecordset(session, u"select top 1 Code from Bill where (Period='' or "_s + isNull + u") order by Code desc"_s).text(u"Code"_s),
        u"B3"_s);
  }
  params.IsAccessSQL = true;
  EXPECT_EQ(SqlDialect::date(session, u"2022-06-08"_s) + SqlDialect::integer(session, u"Y"_s) + SqlDialect::isNull(session, u"x"_s),
            u"#2022-06-08#cint(Y)isnull(x)"_s);
  params.IsAccessSQL = false;
  EXPECT_EQ(SqlDialect::date(session, u"2022-06-08"_s) + SqlDialect::integer(session, u"Y"_s) + SqlDialect::isNull(session, u"x"_s),
            u"'2022-06-08'convert(int,Y)x is null"_s);
}

TEST_F(ModuleADOTest, AFailedStatementShowsItsErrorAndTheWorkGoesOn)
{
  const Recordset rs = OpenRecordset(session, u"select * frm Bill"_s);
  ASSERT_EQ(desk.boxes.size(), 1);
  EXPECT_EQ(desk.boxes[0].text, u"Error:1\r\nnear \"frm\": syntax error"_s);
  EXPECT_EQ(desk.boxes[0].icon, Desk::Icon::None);
  EXPECT_EQ(desk.boxes[0].title, u""_s);
  EXPECT_THROW(rs.eof(), RunTimeError);
  desk.boxes.clear();
  OpenRecordset(session, u"insert into Bill values('O'Neill','','')"_s);
  OpenRecordset(session, u"insert into Bill values('B1','','')"_s);
  OpenRecordset(session, u"insert into Bill values('B1','','')"_s);
  EXPECT_EQ(desk.boxes.size(), 2) << "the broken text and the double code";
  EXPECT_EQ(file.rows(u"select Code from Bill"_s), u"B1"_s);
}

TEST_F(ModuleADOTest, AConnectionThatIsGoneIsOpenedAgainByTheNextStatement)
{
  EXPECT_FALSE(session.connection.isOpen()) << "made, but not opened";
  OpenRecordset(session, u"select * from Bill"_s);
  EXPECT_TRUE(session.connection.isOpen());
  CloseConnection(session);
  EXPECT_FALSE(session.connection.isOpen());
  EXPECT_TRUE(OpenRecordset(session, u"select * from Bill"_s).isOpen());
}

TEST_F(ModuleADOTest, ADatabaseThatCannotBeOpenedIsShownAtEveryStatement)
{
  QFile::rename(accountSetPath(), folder.filePath(u"elsewhere.mdb"_s));
  for (int i = 0; i < 2; ++i) {
    EXPECT_FALSE(OpenRecordset(session, u"select * from Bill"_s).isOpen());
    EXPECT_TRUE(desk.takeTexts().startsWith(u"Error:14\r\n找不到数据库文件"_s));
  }
  EXPECT_FALSE(QFile::exists(accountSetPath()));
  params.demoData = true;
  EXPECT_FALSE(OpenRecordset(session, u"select * from Bill"_s).isOpen());
  EXPECT_EQ(desk.takeTexts(), u"Error:-2147467259\r\n没有连接字符串"_s);
}
