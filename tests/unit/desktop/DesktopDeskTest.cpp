#include "desktop/DesktopDesk.h"

#include "screen/Form.h"
#include "support/Printing.h"
#include "windows/Windows.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <functional>

using namespace Qt::StringLiterals;

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
  using Buttons = Desk::Buttons;
  using Answer = Desk::Answer;
  struct Row {
    Buttons buttons;
    Qt::Key key;
    Answer expected;
  };
  for (const auto& [buttons, key, expected] : {
           Row{Buttons::Ok, Qt::Key_Return, Answer::Ok},
           Row{Buttons::Ok, Qt::Key_Escape, Answer::Ok},
           Row{Buttons::OkCancel, Qt::Key_Return, Answer::Ok},
           Row{Buttons::OkCancel, Qt::Key_Escape, Answer::Cancel},
           Row{Buttons::YesNo, Qt::Key_Return, Answer::Yes},
           Row{Buttons::YesNo, Qt::Key_Escape, Answer::No},
           Row{Buttons::YesNo, Qt::Key_N, Answer::No},
       }) {
    atBox = [pressed = key](QMessageBox& box) { QTest::keyClick(box.focusWidget(), pressed); };
    EXPECT_EQ(desk.ask({u"保存？"_s, Desk::Icon::Question, buttons}), expected);
  }
}

TEST_F(DesktopDeskTest, ABoxShowsItsTextAsItStands)
{
  atBox = [](QMessageBox& box) {
    EXPECT_EQ(box.text(), u"<b>1&2</b>"_s);
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), u"系统提示"_s);
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    box.accept();
  };
  desk.stop(u"<b>1&2</b>"_s);
}

TEST_F(DesktopDeskTest, AFormThatIsOpenComesToTheFrontInsteadOfASecondWindow)
{
  Form picker(desk, u"frmCode"_s);
  Form bench(desk, u"frmSFKHeXiao"_s);
  const auto windows = [] {
    QStringList names;
    for (const QWidget* window : QApplication::topLevelWidgets())
      if (window->isVisible())
        names.append(window->objectName());
    names.sort();
    return names;
  };
  const auto comesToTheFront = [&](Form& form) {
    desk.show(form);
    return QTest::qWaitFor([&] { return QApplication::activeWindow() && QApplication::activeWindow()->objectName() == form.name(); });
  };
  EXPECT_TRUE(comesToTheFront(picker));
  EXPECT_TRUE(comesToTheFront(bench));
  EXPECT_TRUE(comesToTheFront(picker));
  EXPECT_EQ(windows(), (QStringList{u"frmCode"_s, u"frmSFKHeXiao"_s}));
  picker.close();
  EXPECT_EQ(windows(), QStringList{u"frmSFKHeXiao"_s});
  bench.close();
}
