#include "ledger/MasterData.h"
#include "screen/FilterKeyPress.h"

#include "ledger/BillCatalogue.h"
#include "ledger/BillCode.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace ModFuntion;

namespace {

struct MasterDataTest : testing::Test, AccountSetFixture {
  // A chart of four levels, with faults: an account without its parent, a cycle, a code that is there twice.
  MasterDataTest()
  {
    file.run("insert into TabAccountantType(Code,ParentCode,Name,WLHS,ZDYHS) values"
             "('1','0','资产',0,0),('1002',' 1','银行存款',0,0),('100201','1002',' 工行 ',1,1),('10020101','100201','基本户',0,0),"
             "('77','7','孤儿',0,null),('88','89','甲',0,0),('89','88','乙',0,0),('66','1','双',0,0),('66','1','双',0,0)");
  }

  QString leaf(const QString& text, const QString& field = "Code")
  {
    const auto found = CheckLeafRecord(session, text, "TabAccountantType", field);
    return found ? found->Code + '|' + found->Name : "none";
  }
};

} // namespace

TEST_F(MasterDataTest, OnlyALeafIsFound)
{
  EXPECT_EQ(leaf(" 10020101 "), "10020101|基本户");
  EXPECT_EQ(leaf("基本户", "Name"), "10020101|基本户");
  EXPECT_EQ(leaf("基本户"), "none");
  EXPECT_EQ(leaf("100201"), "none") << "a group";
  EXPECT_EQ(leaf("66"), "66|双") << "the first of two";
  EXPECT_EQ(leaf(""), "none");
}

TEST_F(MasterDataTest, AnAccountsPathEndsBelowTheTop)
{
  const struct {
    const char* code;
    const char* path;
    const char* withCode;
  } rows[] = {
      {" 10020101 ", "银行存款>工行>基本户", "10020101>银行存款>工行>基本户"},
      {"1002", "银行存款", "1002>银行存款"},
      {"1", "资产", "资产"},
      {"77", "孤儿", "孤儿"},
      {"88", "甲>乙>甲", "甲>乙>甲"},
      {"66", "", ""},
      {"99", "", ""},
  };
  for (const auto& [code, path, withCode] : rows) {
    EXPECT_EQ(GetAccountPath(session, code, false), path) << code;
    EXPECT_EQ(GetAccountPath(session, code, true), withCode) << code;
  }
}

TEST_F(MasterDataTest, AValueDependsOnTheAccountsFlag)
{
  EXPECT_EQ(GetAuxiliaryValue(session, "往来核算", " 100201 ", " K001 "), "K001");
  EXPECT_EQ(GetAuxiliaryValue(session, "往来核算", "10020101", " K001 "), "");
  EXPECT_EQ(GetAuxiliaryValue(session, "自定义", "100201", "K001"), "True") << "the answer, never the value";
  EXPECT_EQ(GetAuxiliaryValue(session, "自定义", "77", "K001"), "False") << "no flag at all";
  EXPECT_EQ(GetAuxiliaryValue(session, "自定义", "99", "K001"), "");
}

TEST_F(MasterDataTest, ABillsCodeIsOneAboveTheHighestOfToday)
{
  session.params.OperateDate = QDate(2021, 1, 1); // the clock decides, not the session
  const struct {
    const char* stored;
    const char* next;
  } rows[] = {
      {"FKD202206070005", "FKD202206080001"}, // another day
      {"SKD202206080005", "FKD202206080001"}, // another bill
      {"FKD202206080009", "FKD202206080010"},   {"FKD202206089999", "FKD2022060810000"},
      {"FKD2022060810000", "FKD2022060810000"}, // the greatest text is still 9999
      {"fkd202206089999x", "FKD2022060810000"},
  };
  for (const auto& [stored, next] : rows) {
    file.run(QString("insert into TabPayfundBill(Code) values('%1')").arg(stored));
    EXPECT_EQ(GetNextBillCode(session, " FKD ", "TabPayfundBill"), next) << stored;
  }
}

TEST_F(MasterDataTest, ATextFieldTakesOnlyItsCharacters)
{
  const auto takes = [this](const Key& key, bool backspace = true) { return FilterKeyPress(desk, key, ".0123456789aB", backspace); };
  for (const char* good : {"5", ".", "A", "b"})
    EXPECT_TRUE(takes(Key::character(good))) << good;
  EXPECT_TRUE(takes({Key::Backspace, {}}) && takes({Key::Left, {}}, false));
  EXPECT_EQ(desk.beeps, 0);
  for (const char* bad : {"-", "c", "。", "５"})
    EXPECT_FALSE(takes(Key::character(bad))) << bad;
  EXPECT_FALSE(takes({Key::Backspace, {}}, false));
  EXPECT_EQ(desk.beeps, 5);
}

TEST(BillCatalogueTest, NamesTheTablesOfABill)
{
  for (const auto& [name, header, line] : {std::tuple{" 付款单 ", "TabPayfundBill", "TabPayfundBillInf"},
                                           {"采购退货单", "TabInCancleBill", "TabInCancleBillInf"},
                                           {"银行存取款单", "TabKeepTake", ""},
                                           {"费用抵冲(客户)", "TabSustain", "TabSustainInf"},
                                           {"", "", ""}}) {
    EXPECT_EQ(GetBillHeaderTable(name), header) << name;
    EXPECT_EQ(GetBillLineTable(name), line) << name;
  }
}
