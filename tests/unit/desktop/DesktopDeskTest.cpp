#include "desktop/DesktopDesk.h"

#include "screen/Form.h"
#include "support/Printing.h"
#include "windows/Windows.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <functional>

namespace {

struct DesktopDeskTest : testing::Test, DeskObserver {
  std::function<void(QMessageBox&)> atBox;

  void boxStands(QMessageBox& box) override { atBox(box); }
  void modalStands(QWidget&) override {}

  DesktopDesk desk{Windows::Designs, this};
};

} // namespace

TEST_F(DesktopDeskTest, ABoxAnswersByButtonAndByKey)
{
  using enum Desk::Buttons;
  using Answer = Desk::Answer;
  const struct {
    Desk::Buttons buttons;
    Qt::Key key;
    Answer expected;
  } rows[] = {
      {Ok, Qt::Key_Return, Answer::Ok},       {Ok, Qt::Key_Escape, Answer::Ok},
      {OkCancel, Qt::Key_Return, Answer::Ok}, {OkCancel, Qt::Key_Escape, Answer::Cancel},
      {YesNo, Qt::Key_Return, Answer::Yes},   {YesNo, Qt::Key_Escape, Answer::No},
      {YesNo, Qt::Key_N, Answer::No},
  };
  for (const auto& [buttons, key, expected] : rows) {
    atBox = [pressed = key](QMessageBox& box) { QTest::keyClick(box.focusWidget(), pressed); };
    EXPECT_EQ(desk.ask({"保存？", Desk::Icon::Question, buttons}), expected);
  }
  atBox = [](QMessageBox& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); };
  EXPECT_FALSE(desk.confirmDestruction("删除？", Desk::Icon::Question));
}

TEST_F(DesktopDeskTest, ABoxShowsItsTextAsItIs)
{
  atBox = [](QMessageBox& box) {
    EXPECT_EQ(box.text(), "<b>1&2</b>");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), "系统提示");
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    box.accept();
  };
  desk.stop("<b>1&2</b>");
}

TEST_F(DesktopDeskTest, DetailsAreLookedUpWhenTheyAreOpened)
{
  int lookUps = 0;
  const Desk::Details details = [&lookUps] { return ++lookUps, QString("凭证 PZD1"); };
  atBox = [&lookUps](QMessageBox& box) {
    auto* const text = box.findChild<QLabel*>("BoxDetails");
    EXPECT_FALSE(text->isVisible());
    EXPECT_EQ(lookUps, 0);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    const int height = box.height();
    QTest::keyClick(box.focusWidget(), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return text->isVisible() && box.height() > height; }));
    EXPECT_EQ(text->text(), "凭证 PZD1");
    QTest::keyClick(box.focusWidget(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "已登账！\n凭证 PZD1");
    QTest::keyClick(box.focusWidget(), Qt::Key_Return);
  };
  EXPECT_EQ(desk.ask({.text = "已登账！", .details = details}), Desk::Answer::Ok);
}

TEST_F(DesktopDeskTest, NoWindowOpensLargerThanItsScreen)
{
  Form list(desk, "frmSFKHeXiao");
  Form picker(desk, "frmCode");
  for (Form* const form : {&list, &picker}) {
    desk.show(*form);
    for (const QWidget* window : QApplication::topLevelWidgets())
      if (window->isVisible()) {
        EXPECT_LE(window->width(), window->screen()->availableSize().width()) << shown(form->name());
        EXPECT_LE(window->height(), window->screen()->availableSize().height());
      }
    form->close();
  }
}

TEST_F(DesktopDeskTest, AFormThatIsOpenComesToTheFrontInsteadOfASecondWindow)
{
  Form picker(desk, "frmCode");
  Form query(desk, "frmSFKHeXiao");
  const auto windows = [] {
    QStringList names;
    for (const QWidget* window : QApplication::topLevelWidgets())
      if (window->isVisible())
        names.append(window->objectName());
    names.sort();
    return names;
  };
  const auto isInFront = [](const Form& form) {
    return QTest::qWaitFor([&] { return QApplication::activeWindow() && QApplication::activeWindow()->objectName() == form.name(); });
  };
  const auto comesToTheFront = [&](Form& form) {
    desk.show(form);
    return isInFront(form);
  };
  EXPECT_TRUE(comesToTheFront(picker));
  EXPECT_TRUE(comesToTheFront(query));
  EXPECT_TRUE(comesToTheFront(picker));
  EXPECT_EQ(windows(), (QStringList{"frmCode", "frmSFKHeXiao"}));
  atBox = [](QMessageBox& box) {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "frmSFKHeXiao")
        window->activateWindow();
    box.accept();
  };
  desk.inform("保存成功！");
  EXPECT_TRUE(isInFront(picker)) << "which asked";
  picker.close();
  EXPECT_EQ(windows(), QStringList{"frmSFKHeXiao"});
  query.close();
}
