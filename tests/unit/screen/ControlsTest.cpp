#include "screen/Controls.h"

#include "screen/Form.h"
#include "support/FakeDesk.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct ControlsTest : testing::Test {
  FakeDesk desk;
  Form form{desk, u"frmTest"_s};
  TextBox box{&form, u"Txt"_s};

  ControlsTest() { desk.show(form); }

  // Presses keys by name; a word of one letter is that character.
  static void press(Control& control, const QString& keys)
  {
    static const QHash<QString, Key::Code> Codes{{u"Left"_s, Key::Left}, {u"Right"_s, Key::Right},    {u"Home"_s, Key::Home},
                                                 {u"End"_s, Key::End},   {u"Back"_s, Key::Backspace}, {u"Del"_s, Key::Delete}};
    for (const QString& name : keys.split(u' '))
      control.press(Codes.contains(name) ? Key{Codes[name], {}, false} : Key::character(name));
  }
};

} // namespace

TEST_F(ControlsTest, ATextBoxIsEditedAtItsCaret)
{
  struct Row {
    QString start, keys, expected;
  };
  for (const auto& [start, keys, expected] : {
           Row{u"12"_s, u"Left 3"_s, u"132"_s},
           Row{u"12"_s, u"Home 3 4"_s, u"3412"_s},
           Row{u"12"_s, u"Home Del"_s, u"2"_s},
           Row{u"12"_s, u"Back Back Back"_s, u""_s},
           Row{u"12"_s, u"Home Left Right Right Right 3"_s, u"123"_s},
           Row{u"1😀"_s, u"Back"_s, u"1"_s},
           Row{u"1😀2"_s, u"Home Right Del"_s, u"12"_s},
           Row{u"1😀2"_s, u"Left Left 3"_s, u"13😀2"_s},
       }) {
    box.setText(start);
    box.moveCaretToEnd();
    press(box, keys);
    EXPECT_EQ(box.text(), expected) << shown(start + u": "_s + keys);
  }
}

TEST_F(ControlsTest, ATextFiresItsChangeOnlyIfItDiffers)
{
  int changes = 0;
  box.onChange = [&] { ++changes; };
  box.setText(u"a"_s);
  box.setText(u"a"_s);
  EXPECT_EQ(changes, 1);
  press(box, u"b"_s);
  EXPECT_EQ(changes, 2);
  box.selectAll();
  press(box, u"Left Right Home End"_s);
  EXPECT_EQ(changes, 2);
  box.typed(u"ab"_s);
  EXPECT_EQ(changes, 2);
}

TEST_F(ControlsTest, ADropDownIsTypedIntoOnlyIfEditable)
{
  ComboBox combo(&form, u"TxtMoneyName"_s);
  combo.setItems({u"人民币"_s, u"美元"_s});
  EXPECT_TRUE(combo.choose(u"美元"_s));
  press(combo, u"x"_s);
  EXPECT_EQ(combo.text(), u"美元"_s);
  combo.setEditable(true);
  press(combo, u"x"_s);
  EXPECT_EQ(combo.text(), u"美元x"_s);
  EXPECT_EQ(combo.index(), -1);
}
