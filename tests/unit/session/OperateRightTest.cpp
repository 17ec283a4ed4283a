#include "session/OperateRight.h"

#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString Administrator = u"系统管理员"_s;
const QString OnAnotherMachine = u"本云账号已在别的终端设备上登陆，本终端自动终止操作！"_s;

struct OperateRightTest : testing::Test, SessionFixture {
  OperateRightTest()
  {
    file.run(u"create table TabOperateRight(UserName, FunctionName, AllowRead, AllowEdit, AllowDelete, AllowPrint, AllowAuditing);"
             "create table TabCloudAccountLoginInf(Account, Account2, UserCode)"_s);
  }

  void logOn(const QString& account, const QString& account2, const QString& storedCode)
  {
    session.params.CloudAccount = account;
    session.params.CloudAccount2 = account2;
    file.run(u"delete from TabCloudAccountLoginInf"_s);
    if (!storedCode.isNull())
      file.run(u"insert into TabCloudAccountLoginInf values('%1','%2','%3')"_s.arg(account, account2, storedCode));
  }
};

} // namespace

TEST_F(OperateRightTest, OnlyAOneOfTheirOwnRowIsARight)
{
  file.run(u"insert into TabOperateRight values('赵','付款单',null,0,-1,2,'是'),('钱','收款单',1,1,1,1,1)"_s);
  for (int kind = 1; kind <= 6; ++kind)
    EXPECT_FALSE(CheckOperateRight(session, u"赵"_s, u"付款单"_s, RightKind(kind))) << kind;
  EXPECT_FALSE(CheckOperateRight(session, u"赵"_s, u"收款单"_s, RightKind::Read));
  EXPECT_FALSE(CheckOperateRight(session, u"钱"_s, u"付款单"_s, RightKind::Read));
  EXPECT_FALSE(CheckOperateRight(session, {}, u"付款单"_s, RightKind::Read));
  EXPECT_FALSE(CheckOperateRight(session, u"钱"_s, {}, RightKind::Read));
  EXPECT_FALSE(CheckOperateRight(session, u"钱"_s, u"收款单"_s, RightKind(6)));
  EXPECT_EQ(desk.boxes.size(), 11);
  EXPECT_EQ(desk.boxes[0].icon, Desk::Icon::Information);
}

TEST_F(OperateRightTest, TheLastMachineToLogOnHoldsTheCloudAccount)
{
  struct Row {
    const char* what;
    QString account, account2, storedCode;
    QString refusal;
  };
  const Row rows[] = {
      {"this machine", u"a"_s, u"b"_s, u"TERMINAL"_s, {}},
      {"this machine, with blanks", u"a"_s, u"b"_s, u" TERMINAL "_s, {}},
      {"another machine", u"a"_s, u"b"_s, u"OTHER"_s, OnAnotherMachine},
      {"in another case", u"a"_s, u"b"_s, u"terminal"_s, OnAnotherMachine},
      {"an empty code", u"a"_s, u"b"_s, u""_s, OnAnotherMachine},
      {"no row", u"a"_s, u"b"_s, QString(), OnAnotherMachine},
      {"no account: no cloud session", u" "_s, u"b"_s, QString(), {}},
      {"no second account: no cloud session", u"a"_s, u""_s, QString(), {}},
  };
  for (const auto& [what, account, account2, storedCode, refusal] : rows) {
    logOn(account, account2, storedCode);
    EXPECT_EQ(CheckOperateRight(session, Administrator, u"付款单"_s, RightKind::Edit), refusal.isEmpty()) << what;
    EXPECT_EQ(desk.takeTexts(), refusal) << what;
  }
}
