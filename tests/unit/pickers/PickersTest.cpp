#include "desktop/DesktopDesk.h"
#include "pickers/CodePicker.h"
#include "pickers/TreePicker.h"
#include "pickers/frmWarehouseSelect.h"
#include "screen/Controls.h"
#include "screen/Grid.h"
#include "screen/Tree.h"
#include "support/NodeTexts.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"
#include "windows/Windows.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTreeView>

namespace {

struct PickersTest : testing::Test, SessionFixture, DeskObserver {
  std::function<void(QWidget&)> atDialog;
  DesktopDesk windows{Windows::Designs, this};
  Session shown{windows, machine, session.params};

  PickersTest()
  {
    file.run(
        "create table TabAccountantType(Code text, Name text, ParentCode text, FC int);"
        "insert into TabAccountantType values('1','资产','0',0),('1001','现金','1',0),('1002','银行','1',0),('100201','工行','1002',0),"
        "('5','损益','0',0),('51','收入','5',0),('5101','主营','51',0);"
        "create table TabClient(Code text, Name text, TypeCode text); create table TabClientType(Code text, Name text, ParentCode text);"
        "insert into TabClient values('101','螺丝厂','11'),('210','10号钢厂','12'),('102','螺母厂','111')");
  }

  void boxStands(QMessageBox&) override { ADD_FAILURE() << "a box"; }
  void modalStands(QWidget& window) override { atDialog(window); }

  // The nodes that a call lists, one ">" a level.
  QString listed(const QString& where, const QString& target)
  {
    QStringList nodes;
    desk.inDialog = [&](Form& dialog) { nodes = nodeTexts(dialog.find<Tree>("TreeView")->model(), ">"); };
    TreePicker::pick(session, {.TreeWhere = {u" where Code like '{}' ", where}, .TreeTarget = target});
    return nodes.join(u' ');
  }
};

} // namespace

TEST_F(PickersTest, ABranchGetsARootWithTheTargetAsItsLabel)
{
  EXPECT_EQ(listed("1002_%", "Text2"), "1002{银行存款} >100201{工行}");
  EXPECT_EQ(listed("1001", "Text2"), "1{Text2} >1001{现金}");
  EXPECT_EQ(listed("51%", ""), "5{} >51{收入} >>5101{主营}");
  EXPECT_EQ(listed("9%", "Text2"), "");
}

TEST_F(PickersTest, ASearchDropsTheCallersOwnList)
{
  desk.inDialog = [](Form& dialog) {
    const Grid& list = *dialog.find<Grid>("MSH");
    EXPECT_EQ(list.text(list.rows() - 1, 1), "102");
    TextBox& box = *dialog.find<TextBox>("TxtName");
    box.setText("厂");
    box.press(Key{Key::Enter, {}});
    EXPECT_EQ(list.text(list.rows() - 1, 1), "210");
  };
  CodePicker::pick(session, {Statement(u"select Code,Name from TabClient where Code like '10%' order by code"), "TabClient", "选择客户"});
}

TEST_F(PickersTest, ADialogComesUpAgainAsLargeAsItWasLeft)
{
  const QSize wanted(700, 640);
  QList<QSize> sizes;
  atDialog = [&](QWidget& window) {
    sizes.append(window.size());
    window.resize(wanted);
    window.close();
  };
  TreePicker::pick(shown, {});
  TreePicker::pick(shown, {});
  EXPECT_NE(sizes[0], wanted);
  EXPECT_EQ(sizes[1], wanted);
}

TEST_F(PickersTest, TheMouseOpensABranchWithoutTakingItsNode)
{
  atDialog = [this](QWidget& window) {
    auto& view = *window.findChild<QTreeView*>("TreeView");
    const QModelIndex bank = view.model()->index(1, 0, view.model()->index(0, 0));
    const QRect node = view.visualRect(bank);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, {node.left() - 4, node.center().y()});
    EXPECT_TRUE(view.isExpanded(bank));
    EXPECT_EQ(shown.kept<LastPickedNode>().code, "");
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, node.center());
    EXPECT_EQ(shown.kept<LastPickedNode>().code, "1002");
    EXPECT_EQ(view.currentIndex(), bank);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Return);
  };
  const auto picked = TreePicker::pick(shown, {});
  ASSERT_TRUE(picked);
  EXPECT_EQ(picked->code + picked->name, "100201工行");
}
