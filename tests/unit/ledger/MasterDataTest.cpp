#include "ledger/MasterData.h"
#include "screen/FilterKeyPress.h"

#include "ledger/BillCatalogue.h"
#include "ledger/BillCode.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace ModFuntion;

namespace {

struct MasterDataTest : testing::Test, AccountSetFixture {
  // A chart of four levels, with faults: an account without its parent, a circle, a code that stands twice.
  MasterDataTest()
  {
    file.run(u"insert into TabAccountantType(Code,ParentCode,Name,WLHS,BMHS,GRHS,ZDYHS) values"
             "('1','0','资产',0,0,0,0),('1002',' 1','银行存款',0,0,0,0),('100201','1002',' 工行 ',1,0,null,1),"
             "('10020101','100201','基本户',0,1,1,0),('77','7','孤儿',0,0,0,0),('88','89','甲',0,0,0,0),('89','88','乙',0,0,0,0),"
             "('66','1','双',0,0,0,0),('66','1','双',0,0,0,0)"_s);
  }

  QString leaf(const QString& text, const QString& field = u"Code"_s)
  {
    const auto found = CheckLeafRecord(session, text, u"TabAccountantType"_s, field);
    return found ? found->Code + u'|' + found->Name : u"none"_s;
  }
};

} // namespace

TEST_F(MasterDataTest, OnlyALeafIsFound)
{
  EXPECT_EQ(leaf(u" 10020101 "_s), u"10020101|基本户"_s);
  EXPECT_EQ(leaf(u"基本户"_s, u"Name"_s), u"10020101|基本户"_s);
  EXPECT_EQ(leaf(u"10020101"_s, u"anything"_s), u"10020101|基本户"_s) << "any field but Name is the code";
  EXPECT_EQ(leaf(u"基本户"_s), u"none"_s);
  EXPECT_EQ(leaf(u"100201"_s), u"none"_s) << "a group";
  EXPECT_EQ(leaf(u"66"_s), u"66|双"_s) << "the first of two";
  EXPECT_EQ(leaf(u""_s), u"none"_s);
  EXPECT_EQ(desk.takeTexts(), u""_s);
}

TEST_F(MasterDataTest, AnAccountsTrailStopsBelowTheTop)
{
  struct Row {
    QString code, path, withCode;
  };
  for (const auto& [code, path, withCode] : {
           Row{u" 10020101 "_s, u"银行存款>工行>基本户"_s, u"10020101>银行存款>工行>基本户"_s},
           Row{u"1002"_s, u"银行存款"_s, u"1002>银行存款"_s},
           Row{u"1"_s, u"资产"_s, u"资产"_s},
           Row{u"77"_s, u"孤儿"_s, u"孤儿"_s},
           Row{u"88"_s, u"甲>乙>甲"_s, u"甲>乙>甲"_s},
           Row{u"66"_s, u""_s, u""_s},
           Row{u"99"_s, u""_s, u""_s},
           Row{u""_s, u""_s, u""_s},
       }) {
    EXPECT_EQ(GetAccountPath(session, code, false), path) << shown(code);
    EXPECT_EQ(GetAccountPath(session, code, true), withCode) << shown(code);
  }
}

TEST_F(MasterDataTest, ARecordsTrailAlwaysBearsItsCode)
{
  const auto path = [this](const QString& table, const QString& code) { return GetRecordPath(session, table, code); };
  EXPECT_EQ(path(u" TabAccountantType "_s, u" 10020101 "_s), u"10020101>银行存款>工行>基本户"_s);
  EXPECT_EQ(path(u"TabAccountantType"_s, u"1"_s), u"1>资产"_s);
  EXPECT_EQ(path(u"TabAccountantType"_s, u"77"_s), u"77>孤儿"_s);
  EXPECT_EQ(path(u"TabAccountantType"_s, u"66"_s), u"66>双"_s);
  for (const auto& [table, code] : {std::pair{u" "_s, u"1"_s}, {u"TabAccountantType"_s, u" "_s}, {u"TabAccountantType"_s, u"99"_s}})
    EXPECT_EQ(path(table, code), u""_s);
}

TEST_F(MasterDataTest, AValueGoesThroughTheAccountsFlag)
{
  struct Row {
    QString kind, account, value;
  };
  for (const auto& [kind, account, value] : {
           Row{u"往来核算"_s, u" 100201 "_s, u"K001"_s},
           Row{u"往来核算"_s, u"10020101"_s, u""_s},
           Row{u"部门核算"_s, u"10020101"_s, u"K001"_s},
           Row{u"个人核算"_s, u"100201"_s, u""_s},   // the flag is not set at all
           Row{u"自定义"_s, u"100201"_s, u"True"_s}, // the answer, never the value
           Row{u"自定义"_s, u"1002"_s, u"False"_s},
           Row{u"自定义"_s, u"99"_s, u""_s},
           Row{u"自定义核算"_s, u"100201"_s, u""_s},
       })
    EXPECT_EQ(GetAuxiliaryValue(session, kind, account, u" K001 "_s), value) << shown(kind + account);
}

TEST_F(MasterDataTest, ABillsCodeIsOneAboveTheHighestOfToday)
{
  const auto next = [this](const QString& prefix = u"FKD"_s) { return GetNextBillCode(session, prefix, u"TabPayfundBill"_s); };
  const auto store = [this](const QString& code) { file.run(u"insert into TabPayfundBill(Code) values('%1')"_s.arg(code)); };
  session.params.OperateDate = QDate(2021, 1, 1); // the clock decides, not the session
  EXPECT_EQ(next(), u"FKD202206080001"_s);
  store(u"FKD202206070005"_s);
  store(u"SKD202206080005"_s);
  EXPECT_EQ(next(u" FKD "_s), u"FKD202206080001"_s) << "another day, another bill";
  store(u"FKD202206080009"_s);
  EXPECT_EQ(next(), u"FKD202206080010"_s);
  store(u"FKD202206089999"_s);
  EXPECT_EQ(next(), u"FKD2022060810000"_s);
  store(u"FKD2022060810000"_s);
  EXPECT_EQ(next(), u"FKD2022060810000"_s) << "the greatest text is still 9999";
  store(u"fkd202206089999x"_s);
  EXPECT_EQ(next(), u"FKD2022060810000"_s);
}

TEST_F(MasterDataTest, ATextFieldTakesOnlyItsCharacters)
{
  const auto takes = [this](const Key& key, bool backspace = true) { return FilterKeyPress(desk, key, u".0123456789aB"_s, backspace); };
  for (const char16_t* good : {u"5", u".", u"A", u"b"})
    EXPECT_TRUE(takes(Key::character(QString::fromUtf16(good))));
  EXPECT_TRUE(takes({Key::Backspace, {}}));
  EXPECT_TRUE(takes({Key::Left, {}}, false));
  EXPECT_EQ(desk.beeps, 0);
  for (const char16_t* bad : {u"-", u"c", u"。", u"５"})
    EXPECT_FALSE(takes(Key::character(QString::fromUtf16(bad))));
  EXPECT_FALSE(takes({Key::Backspace, {}}, false));
  EXPECT_EQ(desk.beeps, 5);
}

TEST(BillCatalogueTest, NamesTheTablesOfABill)
{
  struct Row {
    QString name, header, line;
  };
  for (const auto& [name, header, line] : {
           Row{u" 付款单 "_s, u"TabPayfundBill"_s, u"TabPayfundBillInf"_s},
           Row{u"采购退货单"_s, u"TabInCancleBill"_s, u"TabInCancleBillInf"_s},
           Row{u"银行存取款单"_s, u"TabKeepTake"_s, u""_s},
           Row{u"费用抵冲(客户)"_s, u"TabSustain"_s, u"TabSustainInf"_s},
           Row{u"会计凭证"_s, u"TabWarrant"_s, u"TabWarrantInf"_s},
           Row{u""_s, u""_s, u""_s},
       }) {
    EXPECT_EQ(GetBillHeaderTable(name), header) << shown(name);
    EXPECT_EQ(GetBillLineTable(name), line) << shown(name);
  }
}
