#include "StandInCaller.h"
#include "pickers/CodeWriteBack.h"
#include "pickers/TreeWriteBack.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

namespace {

struct WriteBackTest : testing::Test, SessionFixture {
  WriteBackTest()
  {
    file.run("create table TabClient(Code text, SaleMan text)");
    file.run("insert into TabClient values('G001','李四')");
  }

  QString afterCode(const QString& caller, const CodeWriteBack::Choice& choice)
  {
    StandInCaller form(desk, caller);
    CodeWriteBack::write(session, form, choice);
    return form.written();
  }

  QString afterTree(const QString& caller, const TreeWriteBack::Choice& choice)
  {
    StandInCaller form(desk, caller);
    TreeWriteBack::write(form, choice);
    return form.written();
  }
};

TEST_F(WriteBackTest, ACodeGoesWhereItsCallerAndItsTableSay)
{
  struct Case {
    const char* caller;
    const char* table;
    const char* returnField;
    const char* written;
  };
  static constexpr char Partner[] = "TxtCode=G001 TxtName=华联 TxtSaleMan=李四";
  static constexpr char SaleMan[] = "TxtSaleMan=华联";
  static constexpr Case Cases[] = {
      {"frmPayfund", "TabClient", "", Partner},
      {"frmPayfund", "TabStuff", "", SaleMan},
      {"frmGathefund", "TabClient", "", Partner},
      {"frmGathefund", "TabStuff", "", SaleMan},
      {"frmFeeSustain", "TabClient", "", Partner},
      {"frmFeeSustain", "TabStuff", "", SaleMan},
      {"frmBankKeepTake", "TabStuff", "", SaleMan},
      {"frmBankKeepTake", "TabClient", "", ""},
      {"frmFeeElseIncome", "TabStuff", "", SaleMan},
      {"frmGouDui", "TabClient", "Code", "TxtUnitCode=G001"},
      {"frmGouDui", "TabClient", "Name", "TxtUnitName=华联"},
      {"frmGouDuiTogather", "TabClient", "Code", "TxtUnitCode=G001"},
      {"frmGouDuiTogather", "TabClient", "", "TxtUnitName=华联"},
  };
  for (const Case& each : Cases)
    EXPECT_EQ(afterCode(each.caller, {each.table, each.returnField, "G001", "华联"}), each.written)
        << each.caller << " " << each.table << " " << each.returnField;
}

TEST_F(WriteBackTest, ANodeGoesWhereItsCallerKindAndTargetSay)
{
  struct Case {
    const char* caller;
    const char* kind;
    const char* target;
    const char* written;
  };
  static constexpr char Line[] = "select * from TabAccountantType where Code='1001'";
  static constexpr Case Cases[] = {
      {"frmPayfund", "", "", Line},
      {"frmGathefund", "", "现金", Line},
      {"frmFeeSustain", "费用科目", "", Line},
      {"frmBankKeepTake", "转出账户", "", "TxtAccountCodeC=1001 TxtAccountNameC=现金"},
      {"frmBankKeepTake", "转入账户", "现金", "TxtAccountCodeR=1001 TxtAccountNameR=现金"},
      {"frmFeeElseIncome", "收入科目", "Text2", Line},
      {"frmFeeElseIncome", "", "现金", "TxtCashAccouCode=1001 TxtCashAccouName=现金"},
      {"frmFeeElseIncome", "", "银行存款", "TxtTransferCode=1001 TxtTransferName=现金"},
  };
  for (const Case& each : Cases)
    EXPECT_EQ(afterTree(each.caller, {"TabAccountantType", each.kind, each.target, "1001", "现金"}), each.written)
        << each.caller << " " << each.kind << " " << each.target;
  EXPECT_EQ(afterTree("frmFeeElseIncome", {"TabWarehouseType", "", "现金", "1001", "现金"}), "");
}

} // namespace
