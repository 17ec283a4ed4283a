#include "screen/Form.h"

#include "platform/RunTimeError.h"
#include "screen/Controls.h"
#include "support/FakeDesk.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

namespace {

// Two text boxes in a frame, a button after it, and tool buttons that never hold the focus.
struct TestForm : Form {
  explicit TestForm(Desk& ofDesk) : Form(ofDesk, "frmTest") {}

  ToolButton tool{this, "ToolSave"};
  Container frame{this, "FrameProvide"};
  TextBox first{&frame, "TxtName"};
  Label label{&frame, "LabName"};
  TextBox second{&frame, "TxtCode"};
  Button button{this, "ComOk"};

  bool showsPanel = false;

protected:
  void settleAfterRunTimeError() override { showsPanel = false; }
};

struct FormTest : testing::Test {
  FakeDesk desk;
  TestForm form{desk};

  FormTest() { desk.show(form); }

  // The names of the controls to which so many Tabs move the focus.
  QString tabbed(int times, bool isBack = false)
  {
    QStringList names;
    for (; times > 0; --times) {
      form.focused() ? form.focused()->press({Key::Tab, {}, isBack}) : form.focusNext();
      names.append(form.focused()->name());
    }
    return names.join(u' ');
  }
  // Presses keys by name; a word of one letter is that character.
  static void press(Control& control, const QString& keys)
  {
    static const QHash<QString, Key::Code> Codes{{"Left", Key::Left}, {"Right", Key::Right}, {"Home", Key::Home}, {"End", Key::End}};
    for (const QString& name : keys.split(u' '))
      control.press(Codes.contains(name) ? Key{Codes[name], {}} : Key::character(name));
  }
  [[noreturn]] static void fail() { throw RunTimeError(RunTimeError::Closed, "对象关闭时，不允许操作"); }
};

} // namespace

TEST_F(FormTest, TabGoesRoundTheControlsThatCanBeReached)
{
  EXPECT_EQ(tabbed(4), "TxtName TxtCode ComOk TxtName");
  EXPECT_EQ(tabbed(1, true), "ComOk");
  form.second.setTabStop(false);
  EXPECT_EQ(tabbed(2), "TxtName ComOk");
  form.frame.setEnabled(false);
  EXPECT_EQ(tabbed(1), "ComOk") << "nothing else is left";
  form.setFocus(form.first);
  form.setFocus(form.tool);
  EXPECT_EQ(form.focused(), &form.button);
}

TEST_F(FormTest, WhatIsDisabledOrHiddenCannotBePressed)
{
  int clicks = 0;
  form.tool.onClick = [&] { ++clicks; };
  form.tool.setEnabled(false);
  form.tool.click();
  form.tool.setEnabled(true);
  form.tool.setVisible(false);
  form.tool.click();
  EXPECT_EQ(clicks, 0);
  form.tool.setVisible(true);
  form.setFocus(form.first);
  form.tool.click();
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(form.focused(), &form.first) << "a toolbar leaves the focus where it is";
}

TEST_F(FormTest, ARunTimeErrorEndsTheHandlerAndNothingElse)
{
  form.second.onChange = [this] {
    desk.setBusy(true);
    form.showsPanel = true;
    fail();
  };
  bool reached = false;
  form.tool.onClick = [&] {
    form.second.setText("changed");
    reached = true;
  };
  form.setFocus(form.first);
  press(form.first, "O '");
  form.tool.click();
  EXPECT_EQ(desk.takeTexts(), "运行时错误 3704：\r\n对象关闭时，不允许操作");
  EXPECT_FALSE(reached || desk.busy || form.showsPanel);
  press(form.first, "x");
  EXPECT_EQ(form.first.text(), "O'x") << "the screen goes on";
}

TEST_F(FormTest, BeforeItIsShownAnErrorIsTheCallers)
{
  TestForm hidden(desk);
  hidden.tool.onClick = [] { fail(); };
  EXPECT_THROW(hidden.tool.click(), RunTimeError);
  EXPECT_TRUE(desk.boxes.isEmpty());
}

TEST_F(FormTest, ATextReportsItsChangeOnlyIfItDiffers)
{
  int changes = 0;
  form.first.onChange = [&] { ++changes; };
  form.first.setText("a");
  form.first.setText("a");
  press(form.first, "Left Right Home End b");
  form.first.typed("ab");
  EXPECT_EQ(changes, 2);
}

TEST_F(FormTest, ListsAreChosenFromByItemAndKey)
{
  ComboBox combo(&form, "TxtMoneyName");
  combo.setItems({"人民币", "美元"});
  EXPECT_TRUE(combo.choose("美元"));
  press(combo, "x");
  EXPECT_EQ(combo.text(), "美元") << "not editable";
  combo.setEditable(true);
  press(combo, "x");
  EXPECT_EQ(combo.text(), "美元x");
  EXPECT_EQ(combo.index(), -1);

  ListBox list(&form, "ListMSHHead");
  list.setItems({"a", "b", "c"});
  press(list, "End");
  EXPECT_EQ(list.index(), 2);
  list.press({Key::Down, {}});
  list.select(3);
  list.select(-1);
  EXPECT_EQ(list.index(), 2);
  press(list, "Home");
  EXPECT_EQ(list.index(), 0);
}
