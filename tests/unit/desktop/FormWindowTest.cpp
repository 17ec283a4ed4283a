#include "desktop/FormWindow.h"

#include "screen/Controls.h"
#include "screen/Grid.h"
#include "support/FakeDesk.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// A little of what a bill has.
struct frmSample : Form {
  explicit frmSample(Desk& desk) : Form(desk, u"frmSample"_s) { Kinds.setItem(0, u"暂无"_s); }

  Container Toolbar1{this, u"Toolbar1"_s};
  ToolButton ToolSave{&Toolbar1, u"ToolSave"_s};
  Menu File{this, u"File"_s};
  MenuItem FSave{&File, u"FSave"_s};
  MenuItemArray Kinds{&File, u"Kinds_Inf"_s};
  MenuItem FExit{&File, u"FExit"_s};
  TextBox TxtName{this, u"TxtName"_s};
  TextBox TxtMemo{this, u"TxtMemo"_s};
  Grid MSH{this, u"MSH"_s};
};

template <typename Kind> Kind* put(QWidget* parent, const char* name)
{
  Kind* const widget = new Kind(parent);
  widget->setObjectName(QString::fromLatin1(name));
  if (parent->layout())
    parent->layout()->addWidget(widget);
  return widget;
}

std::unique_ptr<QWidget> sampleWindow(const QString&, QWidget*)
{
  auto window = std::make_unique<QWidget>();
  new QVBoxLayout(window.get());
  put<QMenuBar>(window.get(), "menuBar");
  put<QToolBar>(window.get(), "Toolbar1");
  put<QLineEdit>(window.get(), "TxtName");
  put<QLineEdit>(window.get(), "TxtMemo");
  put<QTableView>(window.get(), "MSH");
  return window;
}

class FormWindowTest : public testing::Test {
protected:
  FormWindowTest()
  {
    form.opened();
    bound.window().show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&bound.window()));
    form.setFocus(form.TxtName);
  }

  template <typename Kind> Kind& face(const char* name) const { return *bound.window().findChild<Kind*>(QString::fromLatin1(name)); }
  QLineEdit& edit(const char* name) const { return face<QLineEdit>(name); }

  FakeDesk desk;
  frmSample form{desk};
  FormWindow bound{
      form,
      {sampleWindow,
       [](const QString& name) { return ActionDesign{.shortcut = name.endsWith(u"Save"_s) ? QStringView(u"Ctrl+S") : QStringView()}; }},
      nullptr};
};

} // namespace

TEST_F(FormWindowTest, AnEqualTextLeavesTheCaretWhereItIs)
{
  form.TxtName.setText(u"华联"_s);
  edit("TxtName").setCursorPosition(1);
  form.TxtName.onChange = [this] { form.TxtName.setText(form.TxtName.text()); };
  QTest::keyClicks(&edit("TxtName"), u"AB"_s);
  EXPECT_EQ(form.TxtName.text(), u"华AB联"_s);
}

TEST_F(FormWindowTest, KeepsTheFocusThatTheFormHasWhenAWidgetHides)
{
  QStringList left;
  form.TxtMemo.onFocusIn = [&] { left.append(u"TxtMemo"_s); };
  form.TxtName.onKey = [this](const Key&) {
    form.TxtName.setVisible(false);
    form.setFocus(form.MSH);
    return true;
  };
  QTest::keyClick(&edit("TxtName"), Qt::Key_Return);
  EXPECT_EQ(form.focused(), &form.MSH);
  EXPECT_TRUE(face<QTableView>("MSH").hasFocus());
  EXPECT_EQ(left.join(u' '), u""_s) << "the widget that Qt passed the focus to on the way";
}

TEST_F(FormWindowTest, PressesToolButtonsWithoutTakingTheFocus)
{
  int saves = 0;
  form.ToolSave.onClick = form.FSave.onClick = [&] { ++saves; };
  auto& bar = face<QToolBar>("Toolbar1");
  QTest::mouseClick(bar.widgetForAction(&face<QAction>("ToolSave")), Qt::LeftButton);
  QTest::keyClick(bound.window().focusWidget(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(saves, 2);
  EXPECT_TRUE(edit("TxtName").hasFocus());
  form.ToolSave.setEnabled(false);
  form.FSave.setEnabled(false);
  QTest::keyClick(bound.window().focusWidget(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(saves, 2);
}

TEST_F(FormWindowTest, KeepsTheItemsOfAnArrayTogether)
{
  form.Kinds.setItem(1, u"付款单A"_s);
  QStringList texts;
  for (const QAction* action : face<QMenu>("File").actions())
    if (!action->isSeparator())
      texts.append(action->objectName() + action->text());
  EXPECT_EQ(texts.join(u' '), u"FSave Kinds_Inf暂无 Kinds_Inf付款单A FExit"_s);
  int clicked = -1;
  form.Kinds.onItemClick = [&](int index) { clicked = index; };
  face<QMenu>("File").findChildren<QAction*>(u"Kinds_Inf"_s)[1]->trigger();
  EXPECT_EQ(clicked, 1);
}
