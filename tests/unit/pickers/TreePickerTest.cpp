#include "pickers/TreePicker.h"

#include "screen/Controls.h"
#include "screen/Tree.h"
#include "support/NodeTexts.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

namespace {

struct TreePickerTest : testing::Test, SessionFixture {
  TreePickerTest()
  {
    file.run("create table TabAccountantType(Code text, Name text, ParentCode text, FC int)");
    file.run("insert into TabAccountantType values('1','资产','0',0),('1001','现金','1',0),('1002','银行','1',0),"
             "('100201','工行','1002',0),('100202','旧户','1002',1),('5','损益','0',0),('51','收入','5',0),('5101','主营','51',0)");
    file.run("create table TabWarehouseType(Code text, Name text, ParentCode text)");
    file.run("insert into TabWarehouseType values('1','全部','0'),('11','一号库','1')");
  }

  void pick(const TreePickerCall& call, const std::function<void(Form&)>& operate)
  {
    bool ran = false;
    desk.inDialog = [&](Form& dialog) {
      ran = true;
      operate(dialog);
    };
    TreePicker::pick(session, call);
    EXPECT_TRUE(ran);
  }

  static Tree& tree(const Form& dialog) { return *dialog.find<Tree>("TreeView"); }

  // The nodes that a call lists, one blank a level.
  QString listed(const TreePickerCall& call)
  {
    QStringList lines;
    pick(call, [&](Form& dialog) {
      lines = nodeTexts(tree(dialog).model(), ">");
      dialog.close();
    });
    return lines.join(u' ');
  }
};

TEST_F(TreePickerTest, ABranchGetsARootWithTheTargetAsItsLabel)
{
  const auto branch = [](const QString& where, const QString& target) {
    return TreePickerCall{.TreeWhere = {u" where Code like '{}' ", where}, .TreeTarget = target};
  };
  EXPECT_EQ(listed(branch("1002_%", "Text2")), "1002{银行存款} >100201{工行}");
  EXPECT_EQ(listed(branch("1001", "Text2")), "1{Text2} >1001{现金}");
  EXPECT_EQ(listed(branch("51%", "")), "5{} >51{收入} >>5101{主营}");
  EXPECT_EQ(listed(branch("9%", "Text2")), "");
  EXPECT_EQ(listed({}), "1{资产} >1001{现金} >1002{银行} >>100201{工行} 5{损益} >51{收入} >>5101{主营}");
}

TEST_F(TreePickerTest, OnlyTheLastAlternativeWithoutBracketsLosesAccountsOutOfUse)
{
  EXPECT_EQ(listed({.TreeWhere = Statement(u" where (Code='1' or ParentCode='1' or ParentCode like '1002%')")}),
            "1{资产} >1001{现金} >1002{银行} >>100201{工行}");
  EXPECT_EQ(listed({.TreeWhere = Statement(u"  where Code='1' or ParentCode='1' or ParentCode like '1002%' or Code='100201'")}),
            "1{资产} >1001{现金} >1002{银行} >>100201{工行} >>100202{旧户}");
}

TEST_F(TreePickerTest, AnotherTableIsOneOfWarehouses)
{
  const TreePickerCall warehouses{"TabWarehouseType"};
  EXPECT_EQ(listed(warehouses), "1{全部} >11{一号库}");
  pick(warehouses, [this](Form& dialog) {
    EXPECT_EQ(dialog.caption(), "选择仓库");
    EXPECT_TRUE(dialog.find("ToolAdd")->isVisible());
    dialog.find<ToolButton>("ToolAdd")->click();
    EXPECT_EQ(desk.takeTexts(), "基础管理程序不存在，请确定您程序安装是否完整！");
  });
  pick({.TreeKind = "费用科目"}, [](Form& dialog) { EXPECT_FALSE(dialog.find("ToolAdd")->isVisible()); });
}

} // namespace
