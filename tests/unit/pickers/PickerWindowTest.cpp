#include "desktop/DesktopDesk.h"
#include "pickers/TreePicker.h"
#include "pickers/frmWarehouseSelect.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"
#include "windows/Windows.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

struct PickerWindowTest : testing::Test, SessionFixture, DeskObserver {
  std::function<void(QWidget&)> atDialog;
  DesktopDesk windows{Windows::Designs, this};
  Session shown{windows, machine, session.params};

  PickerWindowTest()
  {
    file.run("create table TabAccountantType(Code text, Name text, ParentCode text, FC int)");
    file.run(
        "insert into TabAccountantType values('1','资产','0',0),('1001','现金','1',0),('1002','银行','1',0),('100201','工行','1002',0)");
  }

  void boxStands(QMessageBox&) override { ADD_FAILURE() << "a box"; }
  void modalStands(QWidget& window) override { atDialog(window); }
};

TEST_F(PickerWindowTest, ADialogComesUpAgainAsLargeAsItWasLeft)
{
  const QSize wanted(700, 640);
  atDialog = [&](QWidget& window) {
    EXPECT_NE(window.size(), wanted);
    window.resize(wanted);
    window.close();
  };
  TreePicker::pick(shown, {});
  atDialog = [&](QWidget& window) {
    EXPECT_EQ(window.size(), wanted);
    window.close();
  };
  TreePicker::pick(shown, {});
}

TEST_F(PickerWindowTest, TheMouseOpensABranchWithoutTakingItsNode)
{
  atDialog = [this](QWidget& window) {
    auto& view = *window.findChild<QTreeView*>(u"TreeView"_s);
    const QModelIndex bank = view.model()->index(1, 0, view.model()->index(0, 0));
    const QRect node = view.visualRect(bank);
    EXPECT_FALSE(view.isExpanded(bank));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, {node.left() - 4, node.center().y()});
    EXPECT_TRUE(view.isExpanded(bank));
    EXPECT_EQ(shown.kept<LastPickedNode>().code, u""_s);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, node.center());
    EXPECT_EQ(shown.kept<LastPickedNode>().code, u"1002"_s);
    EXPECT_EQ(view.currentIndex(), bank);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Return);
  };
  const auto picked = TreePicker::pick(shown, {});
  ASSERT_TRUE(picked);
  EXPECT_EQ(picked->code + picked->name, u"100201工行"_s);
}

} // namespace
