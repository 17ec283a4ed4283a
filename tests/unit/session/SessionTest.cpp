#include "session/ModuleADO.h"
#include "session/OperateRight.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

namespace {

struct SessionTest : testing::Test, SessionFixture {
  SessionParams& params = session.params;
};

} // namespace

TEST_F(SessionTest, TheConnectionTextFollowsTypeAndFolder)
{
  const QString jet = "Provider = Microsoft.Jet.OLEDB.4.0;Data Source = %1\\A001.mdb;%2Jet OLEDB:Database Password='qp7ezm4tw2hx9c'";
  const QString server = "Driver={SQL Server};Server=10.0.0.5,%1;DataBase=A001.mdb;UID=sa;PWD=; ";
  params.ConServerIP = "10.0.0.5";
  params.ConDataBaseUID = "sa";
  const struct {
    const char* type;
    const char* folder;
    const char* port;
    QString expected;
  } rows[] = {
      {"Access", "/opt/zv", "", jet.arg("/opt/zv\\Data", "")},
      {"Access", "C:\\", "", jet.arg("C:\\\\Data", "")},
      {"Access2", "/opt/zv", "", jet.arg("/opt/zv\\Data", "  ")},
      {"Access2", "C:\\", "", jet.arg("C:\\Data", "  ")},
      {"SQL", "/opt/zv", "  ", server.arg("1433")},
      {"SQL", "/opt/zv", " 1500", server.arg(" 1500")},
      {"sql", "/opt/zv", "", {}},
  };
  for (const auto& row : rows) {
    params.DatabaseType = row.type;
    params.ConPortNum = row.port;
    machine.folder = row.folder;
    EXPECT_EQ(GetConnectionString(session), row.expected) << row.type << row.folder;
  }
}

TEST_F(SessionTest, DecimalsAreReadByTheirNames)
{
  file.run("create table TabDotSet(Name, Num); insert into TabDotSet values('单价型',4),('数值型',-2),('货币型',0)");
  const DotType dots = LoadDotSet(session);
  EXPECT_EQ(QString("%1 %2 %3").arg(dots.DotPrice).arg(dots.DotNumber).arg(dots.DotMoney), "4 -2 0");
}

TEST_F(SessionTest, OnlyAOneOfTheirOwnRowIsARight)
{
  file.run("create table TabOperateRight(UserName, FunctionName, AllowRead, AllowEdit, AllowDelete, AllowPrint, AllowAuditing);"
           "insert into TabOperateRight values('赵','付款单',null,0,-1,2,'是'),('钱','收款单',1,1,1,1,1)");
  for (int kind = 1; kind <= 6; ++kind) {
    EXPECT_FALSE(CheckOperateRight(session, "赵", "付款单", RightKind(kind))) << kind;
    EXPECT_EQ(CheckOperateRight(session, "钱", "收款单", RightKind(kind)), kind < 6) << kind;
  }
  for (const auto& [user, function] : {std::pair{"赵", "收款单"}, {"钱", "付款单"}, {"", "收款单"}, {"钱", ""}})
    EXPECT_FALSE(CheckOperateRight(session, user, function, RightKind::Read)) << user << function;
}

TEST_F(SessionTest, TheLastMachineToLogOnHoldsTheCloudAccount)
{
  file.run("create table TabCloudAccountLoginInf(Account, Account2, UserCode);"
           "insert into TabCloudAccountLoginInf values('a','b',' TERMINAL "
           "'),('a','elsewhere','OTHER'),('a','case','terminal'),('a','empty','')");
  const struct {
    const char* account;
    const char* account2;
    bool isAllowed;
  } rows[] = {{"a", "b", true},      {"a", "elsewhere", false}, {"a", "case", false},
              {"a", "empty", false}, {"a", "no row", false},    {" ", "b", true}, // no cloud session
              {"a", "", true}};
  for (const auto& [account, account2, isAllowed] : rows) {
    params.CloudAccount = account;
    params.CloudAccount2 = account2;
    EXPECT_EQ(CheckOperateRight(session, "系统管理员", "付款单", RightKind::Edit), isAllowed) << account << account2;
  }
}
