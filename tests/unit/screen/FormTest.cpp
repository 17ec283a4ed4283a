#include "screen/Form.h"

#include "platform/RunTimeError.h"
#include "screen/Controls.h"
#include "support/FakeDesk.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Two text boxes in a frame, a button behind it, and tool buttons that never hold the focus.
struct TestForm : Form {
  explicit TestForm(Desk& ofDesk) : Form(ofDesk, u"frmTest"_s) {}

  ToolButton tool{this, u"ToolSave"_s};
  Container frame{this, u"FrameProvide"_s};
  TextBox first{&frame, u"TxtName"_s};
  Label label{&frame, u"LabName"_s};
  TextBox second{&frame, u"TxtCode"_s};
  Button button{this, u"ComOk"_s};

  bool panelStands = false;

protected:
  void settleAfterRunTimeError() override { panelStands = false; }
};

struct FormTest : testing::Test {
  FakeDesk desk;
  TestForm form{desk};

  FormTest() { desk.show(form); }

  QString focusName() const { return form.focused() ? form.focused()->name() : u"nothing"_s; }
  [[noreturn]] static void fail() { throw RunTimeError(RunTimeError::Closed, u"对象关闭时，不允许操作"_s); }
};

} // namespace

TEST_F(FormTest, TabGoesRoundTheControlsInTheirOrder)
{
  QStringList visited;
  for (int i = 0; i < 4; ++i) {
    form.focusNext();
    visited.append(focusName());
  }
  EXPECT_EQ(visited.join(u' '), u"TxtName TxtCode ComOk TxtName"_s);
  form.first.press({Key::Tab, {}, true});
  EXPECT_EQ(focusName(), u"ComOk"_s);
  form.button.press({Key::Tab, {}, false});
  EXPECT_EQ(focusName(), u"TxtName"_s);
}

TEST_F(FormTest, TabPassesOverWhatCannotBeReached)
{
  form.setFocus(form.first);
  form.second.setTabStop(false);
  form.focusNext();
  EXPECT_EQ(focusName(), u"ComOk"_s);
  form.frame.setEnabled(false);
  form.focusNext();
  EXPECT_EQ(focusName(), u"ComOk"_s) << "nothing else is left";
  form.setFocus(form.first);
  form.setFocus(form.tool);
  EXPECT_EQ(focusName(), u"ComOk"_s);
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
  EXPECT_EQ(focusName(), u"TxtName"_s) << "a toolbar leaves the focus where it is";
  form.button.click();
  EXPECT_EQ(focusName(), u"ComOk"_s);
}

TEST_F(FormTest, ARunTimeErrorEndsTheHandlerAndNothingElse)
{
  form.first.onKey = [&](const Key& key) {
    if (key.code != Key::Enter)
      return false;
    desk.setBusy(true);
    form.panelStands = true;
    fail();
  };
  form.setFocus(form.first);
  for (const QString& character : {u"O"_s, u"'"_s})
    form.first.press(Key::character(character));
  form.first.press({Key::Enter, {}, false});
  ASSERT_EQ(desk.boxes.size(), 1);
  EXPECT_EQ(desk.boxes[0].text, u"运行时错误 3704：\r\n对象关闭时，不允许操作"_s);
  EXPECT_EQ(desk.boxes[0].icon, Desk::Icon::Stop);
  EXPECT_FALSE(desk.busy);
  EXPECT_FALSE(form.panelStands);
  form.first.press(Key::character(u"x"_s));
  EXPECT_EQ(form.first.text(), u"O'x"_s) << "the screen lives on";
}

TEST_F(FormTest, AnEventInsideAnotherEndsBothAndShowsOneBox)
{
  bool reached = false;
  form.second.onChange = [] { fail(); };
  form.tool.onClick = [&] {
    form.second.setText(u"changed"_s);
    reached = true;
  };
  form.tool.click();
  EXPECT_FALSE(reached);
  EXPECT_EQ(desk.boxes.size(), 1);
}

TEST_F(FormTest, BeforeItIsShownAnErrorBelongsToWhoeverStartsIt)
{
  TestForm hidden(desk);
  hidden.tool.onClick = [] { fail(); };
  EXPECT_THROW(hidden.tool.click(), RunTimeError);
  EXPECT_TRUE(desk.boxes.isEmpty());
}
