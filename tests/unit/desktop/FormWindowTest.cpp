#include "desktop/FormWindow.h"

#include "screen/CellEditor.h"
#include "screen/Controls.h"
#include "support/FakeDesk.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// A little of everything, with the rules of a bill's grid.
class frmSample : public Form {
public:
  explicit frmSample(Desk& desk) : Form(desk, u"frmSample"_s)
  {
    setCaption(u"样单"_s);
    TxtMoneyName.setItems({u"人民币"_s, u"美元"_s});
    Kinds.setItem(0, u"暂无"_s);
    MSH.setRows(4);
    MSH.setCols(3);
    MSH.setColWidth(2, 0);
    MSH.setText(0, 1, u"编号"_s);
    MSH.onClick = [this] { Text2.open(MSH.text(MSH.row(), MSH.col())); };
    Text2.onChange = [this] {
      if (Text2.isVisible())
        MSH.setText(MSH.row(), MSH.col(), Text2.text());
    };
  }

  Container Toolbar1{this, u"Toolbar1"_s};
  ToolButton ToolSave{&Toolbar1, u"ToolSave"_s};
  Menu File{this, u"File"_s};
  MenuItem FSave{&File, u"FSave"_s};
  MenuItemArray Kinds{&File, u"Kinds_Inf"_s};
  MenuItem FExit{&File, u"FExit"_s};
  Container FrameProvide{this, u"FrameProvide"_s};
  TextBox TxtName{&FrameProvide, u"TxtName"_s};
  TextBox TxtMemo{&FrameProvide, u"TxtMemo"_s};
  ComboBox TxtMoneyName{&FrameProvide, u"TxtMoneyName"_s};
  DatePicker DTPDate{this, u"DTPDate"_s};
  CheckBox ChAutoAdd{this, u"ChAutoAdd"_s};
  Label LabState{this, u"LabState"_s};
  Grid MSH{this, u"MSH"_s};
  CellEditor Text2{this, MSH};
};

template <typename Kind> Kind* put(QWidget* parent, const char* name)
{
  Kind* const widget = new Kind(parent);
  widget->setObjectName(QString::fromLatin1(name));
  if (parent->layout())
    parent->layout()->addWidget(widget);
  return widget;
}

std::unique_ptr<QWidget> sampleWindow()
{
  auto window = std::make_unique<QWidget>();
  new QVBoxLayout(window.get());
  put<QMenuBar>(window.get(), "menuBar");
  put<QToolBar>(window.get(), "Toolbar1");
  auto* const frame = put<QGroupBox>(window.get(), "FrameProvide");
  new QVBoxLayout(frame);
  put<QLineEdit>(frame, "TxtName");
  put<QLineEdit>(frame, "TxtMemo");
  put<QComboBox>(frame, "TxtMoneyName");
  put<QDateEdit>(window.get(), "DTPDate");
  put<QCheckBox>(window.get(), "ChAutoAdd");
  put<QLabel>(window.get(), "LabState");
  put<QTableView>(window.get(), "MSH");
  window->resize(600, 500);
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
  void clickCell(int row, int column)
  {
    auto& view = face<QTableView>("MSH");
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(row - 1, column - 1)).center());
  }
  void key(Qt::Key key) { QTest::keyClick(bound.window().focusWidget(), key); }

  FakeDesk desk;
  frmSample form{desk};
  FormWindow bound{form, sampleWindow()};
};

} // namespace

TEST_F(FormWindowTest, HasAFaceForEveryControlAndAControlForEveryName)
{
  EXPECT_EQ(bound.unmatched().controls.join(u' '), u""_s);
  EXPECT_EQ(bound.unmatched().widgets.join(u' '), u""_s);
  put<QLineEdit>(&bound.window(), "TxtStray");
  EXPECT_EQ(bound.unmatched().widgets.join(u' '), u"TxtStray"_s);
  TextBox lacking(&form, u"TxtLacking"_s);
  EXPECT_EQ(bound.unmatched().controls.join(u' '), u"TxtLacking"_s);
}

TEST_F(FormWindowTest, ShowsTextsBothWaysAndLeavesTheCaretOfAnEqualText)
{
  form.TxtName.setText(u"华联"_s);
  EXPECT_EQ(edit("TxtName").text(), u"华联"_s);
  edit("TxtName").setCursorPosition(1);
  form.TxtName.onChange = [this] { form.TxtName.setText(form.TxtName.text()); };
  QTest::keyClicks(&edit("TxtName"), u"AB"_s);
  EXPECT_EQ(form.TxtName.text(), u"华AB联"_s);
  form.TxtName.selectAll();
  EXPECT_EQ(edit("TxtName").selectedText(), u"华AB联"_s);
  form.DTPDate.setDate(QDate(2022, 6, 8));
  EXPECT_EQ(face<QDateEdit>("DTPDate").date(), QDate(2022, 6, 8));
  face<QDateEdit>("DTPDate").setDate(QDate(2022, 6, 9));
  EXPECT_EQ(form.DTPDate.date(), QDate(2022, 6, 9));
}

TEST_F(FormWindowTest, GivesTheHandlersEveryKeyFirst)
{
  form.TxtName.onKey = [](const Key& key) { return key.text == u"x"; };
  QTest::keyClicks(&edit("TxtName"), u"axb"_s);
  EXPECT_EQ(form.TxtName.text(), u"ab"_s);
  key(Qt::Key_Tab);
  EXPECT_EQ(form.focused(), &form.TxtMemo);
  EXPECT_TRUE(edit("TxtMemo").hasFocus());
  key(Qt::Key_Backtab);
  EXPECT_EQ(form.focused(), &form.TxtName);
  int escapes = 0;
  form.onKey = [&](const Key& pressed) { return pressed.code == Key::Escape && ++escapes; };
  key(Qt::Key_Escape);
  EXPECT_EQ(escapes, 1);
}

TEST_F(FormWindowTest, FollowsWhatIsEnabledAndShownThroughContainers)
{
  form.FrameProvide.setEnabled(false);
  form.LabState.setVisible(false);
  EXPECT_FALSE(edit("TxtName").isEnabled());
  EXPECT_TRUE(face<QLabel>("LabState").isHidden());
  form.FrameProvide.setEnabled(true);
  EXPECT_TRUE(edit("TxtName").isEnabled());
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
  key(Qt::Key_Return);
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

TEST_F(FormWindowTest, ShowsTheGridAndItsEditor)
{
  const auto& view = face<QTableView>("MSH");
  const auto* model = view.model();
  EXPECT_EQ(model->headerData(0, Qt::Horizontal).toString(), u"编号"_s);
  EXPECT_EQ(model->rowCount(), 3);
  EXPECT_TRUE(view.isColumnHidden(1));
  clickCell(2, 1);
  QTest::keyClicks(bound.window().focusWidget(), u"1001"_s);
  EXPECT_EQ(form.MSH.text(2, 1), u"1001"_s);
  EXPECT_EQ(model->index(1, 0).data().toString(), u"1001"_s);
  EXPECT_EQ(edit("Text2").geometry(), view.visualRect(model->index(1, 0)));
  form.Text2.hide();
  form.Text2.returnToGrid();
  key(Qt::Key_Down);
  EXPECT_EQ(form.MSH.row(), 3);
  EXPECT_EQ(view.currentIndex().row(), 2);
  bound.act([this] { form.MSH.setRows(9); });
  EXPECT_EQ(model->rowCount(), 8);
  EXPECT_EQ(view.currentIndex().row(), 2);
}
