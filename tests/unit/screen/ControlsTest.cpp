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
                                                 {u"End"_s, Key::End},   {u"Back"_s, Key::Backspace}, {u"Del"_s, Key::Delete},
                                                 {u"Down"_s, Key::Down}, {u"Up"_s, Key::Up},          {u"Enter"_s, Key::Enter}};
    for (const QString& name : keys.split(u' '))
      control.press(Codes.contains(name) ? Key{Codes[name], {}, false} : Key::character(name == u"Blank" ? u" "_s : name));
  }
};

} // namespace

TEST_F(ControlsTest, ATextBoxIsEditedAtItsCaret)
{
  struct Row {
    QString start, keys, expected;
  };
  for (const auto& [start, keys, expected] : {
           Row{u"12"_s, u"3"_s, u"123"_s},
           Row{u"12"_s, u"Left 3"_s, u"132"_s},
           Row{u"12"_s, u"Home 3 4"_s, u"3412"_s},
           Row{u"12"_s, u"Home Del"_s, u"2"_s},
           Row{u"12"_s, u"Back Back Back"_s, u""_s},
           Row{u"12"_s, u"Del"_s, u"12"_s},
           Row{u"12"_s, u"Home Back"_s, u"12"_s},
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

TEST_F(ControlsTest, TypingReplacesWhatIsMarked)
{
  box.setText(u"1000"_s);
  box.selectAll();
  EXPECT_TRUE(box.isAllSelected());
  press(box, u"5 6"_s);
  EXPECT_EQ(box.text(), u"56"_s);
  box.selectAll();
  press(box, u"Left 4"_s);
  EXPECT_EQ(box.text(), u"456"_s);
  box.selectAll();
  press(box, u"Del"_s);
  EXPECT_EQ(box.text(), u""_s);
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

TEST_F(ControlsTest, AChangeHandlerMayMendTheText)
{
  box.onChange = [&] { box.setText(box.text().toUpper()); };
  press(box, u"a b"_s);
  EXPECT_EQ(box.text(), u"AB"_s);
}

TEST_F(ControlsTest, AReadOnlyBoxTakesNoTyping)
{
  box.setText(u"FKD1"_s);
  box.setReadOnly(true);
  press(box, u"x Back Home Del"_s);
  EXPECT_EQ(box.text(), u"FKD1"_s);
  EXPECT_TRUE(box.takesFocus());
}

TEST_F(ControlsTest, ADropDownTakesItsItemsAndTypingOnlyIfEditable)
{
  ComboBox combo(&form, u"TxtMoneyName"_s);
  int clicks = 0;
  combo.onClick = [&] { ++clicks; };
  combo.setItems({u"人民币"_s, u"美元"_s});
  EXPECT_TRUE(combo.choose(u"美元"_s));
  EXPECT_FALSE(combo.choose(u"欧元"_s));
  EXPECT_EQ(combo.index(), 1);
  EXPECT_EQ(clicks, 1);
  press(combo, u"x"_s);
  EXPECT_EQ(combo.text(), u"美元"_s);
  combo.setEditable(true);
  press(combo, u"x"_s);
  EXPECT_EQ(combo.text(), u"美元x"_s);
  EXPECT_EQ(combo.index(), -1);
}

TEST_F(ControlsTest, ADatePickerAlwaysHoldsADate)
{
  DatePicker picker(&form, u"TxtDate"_s);
  picker.setDate(QDate(2022, 6, 8));
  picker.setDate(QDate());
  EXPECT_EQ(picker.shownText(), u"2022-06-08"_s);
}

TEST_F(ControlsTest, OfSeveralOptionsOneIsChecked)
{
  Container frame(&form, u"Frame"_s);
  Option first(&frame, u"Opt1"_s);
  Option second(&frame, u"Opt2"_s);
  first.click();
  second.click();
  second.click();
  EXPECT_FALSE(first.isChecked());
  EXPECT_TRUE(second.isChecked());
  CheckBox check(&form, u"Ch"_s);
  press(check, u"Blank"_s);
  EXPECT_TRUE(check.isChecked());
  check.click();
  EXPECT_FALSE(check.isChecked());
}

TEST_F(ControlsTest, ItemsOfAMenuArrayAreToldApartByTheirIndex)
{
  MenuItemArray items(&form, u"MPrint"_s);
  int clicked = -1;
  items.onItemClick = [&](int index) { clicked = index; };
  items.setItem(1, u"模板"_s);
  EXPECT_TRUE(items.clickItem(1));
  EXPECT_EQ(clicked, 1);
  EXPECT_FALSE(items.clickItem(2));
  items.setEnabled(false);
  items.clickItem(0);
  EXPECT_EQ(clicked, 1);
}
