#include "desktop/FormWindow.h"

#include "desktop/Appearance.h"
#include "screen/CellEditor.h"
#include "support/FakeDesk.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDateEdit>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

// A little of what a bill has.
struct frmSample : Form {
  explicit frmSample(Desk& desk) : Form(desk, "frmSample") { Kinds.setItem(0, "暂无"); }

  Container Toolbar1{this, "Toolbar1"};
  ToolButton ToolSave{&Toolbar1, "ToolSave"};
  Menu File{this, "File"};
  MenuItem FSave{&File, "FSave"};
  MenuItemArray Kinds{&File, "Kinds_Inf"};
  MenuItem FExit{&File, "FExit"};
  TextBox TxtName{this, "TxtName"};
  ImageButton ImgName{this, "ImgName"};
  TextBox TxtMemo{this, "TxtMemo"};
  DatePicker DTPDate{this, "DTPDate"};
  Grid MSH{this, "MSH"};
  CellEditor Text2{this, MSH};
};

template <typename Kind> void put(QWidget& window, const char* name)
{
  Kind* const widget = new Kind(&window);
  widget->setObjectName(name);
  window.layout()->addWidget(widget);
}

std::unique_ptr<QWidget> sampleWindow(const QString&, QWidget*)
{
  auto window = std::make_unique<QWidget>();
  new QVBoxLayout(window.get());
  put<QMenuBar>(*window, "menuBar");
  put<QToolBar>(*window, "Toolbar1");
  put<QLineEdit>(*window, "TxtName");
  put<QDateEdit>(*window, "DTPDate");
  put<QTableView>(*window, "MSH");
  put<QLineEdit>(*window, "TxtMemo");
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

  template <typename Kind> Kind& widget(const char* name) const { return *bound.window().findChild<Kind*>(name); }
  QLineEdit& edit(const char* name) const { return widget<QLineEdit>(name); }

  FakeDesk desk;
  frmSample form{desk};
  FormWindow bound{
      form,
      {sampleWindow, [](const QString& name) { return ActionDesign{.shortcut = name.endsWith("Save") ? u"Ctrl+S" : QStringView()}; }},
      nullptr};
};

} // namespace

TEST_F(FormWindowTest, AnEqualTextLeavesTheCaretWhereItIs)
{
  form.TxtName.setText("华联");
  edit("TxtName").setCursorPosition(1);
  form.TxtName.onChange = [this] { form.TxtName.setText(form.TxtName.text()); };
  QTest::keyClicks(&edit("TxtName"), "AB");
  EXPECT_EQ(form.TxtName.text(), "华AB联");
}

TEST_F(FormWindowTest, KeepsTheFocusThatTheFormHasWhenAWidgetHides)
{
  QStringList left;
  form.TxtMemo.onFocusIn = [&] { left.append("TxtMemo"); };
  form.TxtName.onKey = [this](const Key&) {
    form.TxtName.setVisible(false);
    form.setFocus(form.MSH);
    return true;
  };
  QTest::keyClick(&edit("TxtName"), Qt::Key_Return);
  EXPECT_EQ(form.focused(), &form.MSH);
  EXPECT_TRUE(widget<QTableView>("MSH").hasFocus());
  EXPECT_EQ(left.join(u' '), "") << "the widget to which Qt moved the focus meanwhile";
}

TEST_F(FormWindowTest, ADisabledControlPassesTheFocusOnInTheOrderOfTheForm)
{
  form.TxtName.onKey = [this](const Key&) {
    form.TxtName.setEnabled(false);
    return true;
  };
  QTest::keyClick(&edit("TxtName"), Qt::Key_Return);
  EXPECT_EQ(form.focused(), &form.TxtMemo);
}

TEST_F(FormWindowTest, PressesToolButtonsWithoutTakingTheFocus)
{
  int saves = 0;
  form.ToolSave.onClick = form.FSave.onClick = [&] { ++saves; };
  auto& bar = widget<QToolBar>("Toolbar1");
  QTest::mouseClick(bar.widgetForAction(&widget<QAction>("ToolSave")), Qt::LeftButton);
  QTest::keyClick(bound.window().focusWidget(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(saves, 2);
  EXPECT_TRUE(edit("TxtName").hasFocus());
  form.ToolSave.setEnabled(false);
  form.FSave.setEnabled(false);
  QTest::keyClick(bound.window().focusWidget(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(saves, 2);
}

TEST_F(FormWindowTest, OpensThePickerOfAFieldByItsKeys)
{
  int picks = 0;
  form.ImgName.onClick = [&] { ++picks; };
  QTest::keyClick(&edit("TxtName"), Qt::Key_F4);
  QTest::keyClick(&edit("TxtName"), Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(picks, 2);
}

TEST_F(FormWindowTest, KeepsTheItemsOfAnArrayTogether)
{
  form.Kinds.setItem(1, "付款单A");
  QStringList texts;
  for (const QAction* action : widget<QMenu>("File").actions())
    if (!action->isSeparator())
      texts.append(action->objectName() + action->text());
  EXPECT_EQ(texts.join(u' '), "FSave Kinds_Inf暂无 Kinds_Inf付款单A FExit");
  int clicked = -1;
  form.Kinds.onItemClick = [&](int index) { clicked = index; };
  widget<QMenu>("File").findChildren<QAction*>("Kinds_Inf")[1]->trigger();
  EXPECT_EQ(clicked, 1);
}

TEST_F(FormWindowTest, AGridComposesFromTheFirstKeyAndKeepsTheFocusUntilTheCommit)
{
  form.MSH.setTakesText(true);
  form.MSH.setLatin(1);
  form.MSH.onKeyDown = [this](const Key& key) {
    form.Text2.open({});
    form.Text2.press(key);
  };
  form.setFocus(form.MSH);
  auto& grid = widget<QTableView>("MSH");
  QInputMethodQueryEvent query(Qt::ImEnabled | Qt::ImHints);
  QApplication::sendEvent(&grid, &query);
  EXPECT_TRUE(query.value(Qt::ImEnabled).toBool());
  EXPECT_TRUE(query.value(Qt::ImHints).toInt() & Qt::ImhPreferLatin);

  const auto compose = [&grid](const QString& preedit, const QString& commit) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(&grid, &event);
  };
  for (const char* typed : {"h", "huo", "huo'kuan"}) {
    compose(typed, {});
    EXPECT_TRUE(edit("composing").isVisible() && grid.hasFocus());
  }
  compose({}, "货款１２");
  EXPECT_FALSE(edit("composing").isVisible());
  EXPECT_TRUE(edit("Text2").hasFocus());
  EXPECT_EQ(edit("Text2").text(), "货款12") << "in the column of a code";

  QInputMethodEvent rest;
  edit("Text2").setCursorPosition(2);
  rest.setCommitString("３，");
  QApplication::sendEvent(&edit("Text2"), &rest);
  EXPECT_EQ(form.Text2.text(), "货款3,12");
  EXPECT_EQ(edit("Text2").cursorPosition(), 4);
  form.setFocus(form.TxtName);
  QApplication::sendEvent(&edit("TxtName"), &rest);
  EXPECT_EQ(form.TxtName.text(), "３，") << "names stay as they are typed";
}

TEST_F(FormWindowTest, TheCurrentCellOfAFocusedGridHasARing)
{
  Appearance::apply();
  auto& grid = widget<QTableView>("MSH");
  const auto edge = [&grid] {
    const QImage image = grid.viewport()->grab().toImage();
    const QPoint corner = grid.visualRect(grid.currentIndex()).topLeft();
    return QList{image.pixelColor(corner), image.pixelColor(corner + QPoint(1, 1)), image.pixelColor(corner + QPoint(2, 2))};
  };
  const QColor ring = QApplication::palette().color(QPalette::Highlight);
  EXPECT_FALSE(edge().contains(ring));
  form.setFocus(form.MSH);
  EXPECT_EQ(edge().count(ring), 2);
}

TEST_F(FormWindowTest, CtrlTabLeavesEvenAnOpenCell)
{
  form.MSH.onKey = form.Text2.onKey = [](const Key& key) { return key.code == Key::Tab; };
  for (const bool isOpen : {false, true}) {
    form.setFocus(form.MSH);
    if (isOpen)
      form.Text2.open("1,000");
    QTest::keyClick(bound.window().focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(form.focused(), &form.TxtName);
    EXPECT_FALSE(form.Text2.isVisible());
    QTest::keyClick(bound.window().focusWidget(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(form.focused(), &form.MSH);
  }
}

TEST_F(FormWindowTest, ADateIsMarkedByAKeyOnlyAndGoesBackWhenHalfTyped)
{
  const QDate day(2022, 6, 8);
  form.DTPDate.setDate(day);
  auto& date = widget<QDateEdit>("DTPDate");
  form.setFocus(form.DTPDate);
  QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&date, &back);
  QTest::keyClicks(&date, "3");
  EXPECT_EQ(date.text(), "2022-06-08") << "a stray digit";

  const auto typeMonth = [&](const char* keys) {
    form.TxtMemo.press({Key::Tab, {}});
    EXPECT_EQ(date.currentSection(), QDateTimeEdit::YearSection);
    date.setSelectedSection(QDateTimeEdit::MonthSection);
    QTest::keyClicks(&date, keys);
  };
  form.setFocus(form.TxtMemo);
  typeMonth("1");
  EXPECT_EQ(date.text(), "2022-1-08");
  QTest::keyClick(&date, Qt::Key_Escape);
  EXPECT_EQ(date.text(), "2022-06-08");
  form.setFocus(form.TxtMemo);
  typeMonth("1");
  form.setFocus(form.TxtName);
  EXPECT_EQ(form.DTPDate.date(), day);
  EXPECT_EQ(date.text(), "2022-06-08");
  form.setFocus(form.TxtMemo);
  typeMonth("12");
  EXPECT_EQ(form.DTPDate.date(), QDate(2022, 12, 8));
}

TEST_F(FormWindowTest, ADateChangesByTheWheelOnlyWithTheFocusAndByItsCalendar)
{
  const QDate day(2022, 6, 8);
  form.DTPDate.setDate(day);
  auto& date = widget<QDateEdit>("DTPDate");
  const auto turnWheel = [&date] {
    const QPointF at = date.rect().center();
    QWheelEvent turn(at, date.mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    // As from a mouse: only then does Qt give the focus by the wheel.
    QSpontaneKeyEvent::setSpontaneous(&turn);
    qApp->notify(&date, &turn);
  };
  turnWheel();
  EXPECT_EQ(form.DTPDate.date(), day);
  form.setFocus(form.DTPDate);
  turnWheel();
  EXPECT_NE(form.DTPDate.date(), day);
  for (const auto& [key, held] : {std::pair{Qt::Key_F4, Qt::NoModifier}, {Qt::Key_Down, Qt::AltModifier}}) {
    QTest::keyClick(&date, key, held);
    ASSERT_TRUE(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
  }
}
