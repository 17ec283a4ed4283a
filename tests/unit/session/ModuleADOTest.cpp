#include "session/ModuleADO.h"

#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

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
  const auto jet = [](const QString& source, const QString& blanks) {
    return u"Provider = Microsoft.Jet.OLEDB.4.0;Data Source = %1;%2Jet OLEDB:Database Password='qp7ezm4tw2hx9c'"_s.arg(source, blanks);
  };
  const auto server = [](const QString& port) {
    return u"Driver={SQL Server};Server=10.0.0.5,%1;DataBase=A001.mdb;UID=sa;PWD=; "_s.arg(port);
  };
  const Row rows[] = {
      {"file", u"Access"_s, u"/opt/zv"_s, {}, jet(u"/opt/zv\\Data\\A001.mdb"_s, {})},
      {"file in a root folder: the separator is doubled", u"Access"_s, u"C:\\"_s, {}, jet(u"C:\\\\Data\\A001.mdb"_s, {})},
      {"file, second form", u"Access2"_s, u"/opt/zv"_s, {}, jet(u"/opt/zv\\Data\\A001.mdb"_s, u"  "_s)},
      {"second form in a root folder: one separator", u"Access2"_s, u"C:\\"_s, {}, jet(u"C:\\Data\\A001.mdb"_s, u"  "_s)},
      {"server", u"SQL"_s, u"/opt/zv"_s, {}, server(u"1433"_s)},
      {"blank port", u"SQL"_s, u"/opt/zv"_s, u"  "_s, server(u"1433"_s)},
      {"a port keeps its blank", u"SQL"_s, u"/opt/zv"_s, u" 1500"_s, server(u" 1500"_s)},
      {"wrong case", u"sql"_s, u"/opt/zv"_s, {}, {}},
      {"no type", {}, u"/opt/zv"_s, {}, {}},
  };
  for (const auto& [what, type, programFolder, port, expected] : rows) {
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
    const Statement day = SqlDialect::date(session, QDate(2022, 6, 8));
    EXPECT_EQ(OpenRecordset(session, {u"select count(*) as n from Bill where Datee>={}", day}).number(u"n"_s), 2) << shown(type);
    const Statement period = SqlDialect::integer(session, u"Period");
    EXPECT_EQ(OpenRecordset(session, {u"select max({}) as m from Bill", period}).number(u"m"_s), 5);
    const Statement isNull = SqlDialect::isNull(session, u"Period");
    const Statement last(u"select top 1 Code from Bill where (Period='' or {}) order by Code desc", isNull);
    EXPECT_EQ(OpenRecordset(session, last).text(u"Code"_s), u"B3"_s);
  }
  const auto pieces = [this] {
    return (SqlDialect::date(session, u"2022-06-08"_s) + SqlDialect::integer(session, u"Y") + SqlDialect::isNull(session, u"x")).sql();
  };
  params.IsAccessSQL = true;
  EXPECT_EQ(pieces(), u"#2022-06-08#cint(Y)isnull(x)"_s);
  params.IsAccessSQL = false;
  EXPECT_EQ(pieces(), u"'2022-06-08'convert(int,Y)x is null"_s);
}
