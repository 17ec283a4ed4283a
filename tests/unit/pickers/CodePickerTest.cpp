#include "pickers/CodePicker.h"

#include "screen/Controls.h"
#include "screen/Grid.h"
#include "screen/Tree.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

namespace {

// What operator scripts do not reach: a caller's own list that a search drops, a list without a table, a wheel of fine steps.
struct CodePickerTest : testing::Test, SessionFixture {
  CodePickerCall customers{Statement(u"select Code,Name from TabClient where Code like '10%' order by code"), "TabClient", "选择客户"};
  CodePickerCall anyList{Statement(u"select Code,Name from TabClient "), "", "选择名"};

  CodePickerTest()
  {
    file.run("create table TabClient(Code text, Name text, ZJF text, TypeCode text)");
    file.run("insert into TabClient values('101','螺丝厂','LS','11'),('210','10号钢厂','GG','12'),('102','螺母厂','LM','111')");
    file.run("create table TabClientType(Code text, Name text, ParentCode text)");
    file.run("insert into TabClientType values('1','全部','0')");
  }

  void pick(const CodePickerCall& call, const std::function<void(Form&)>& operate)
  {
    bool ran = false;
    desk.inDialog = [&](Form& dialog) {
      ran = true;
      operate(dialog);
    };
    CodePicker::pick(session, call);
    EXPECT_TRUE(ran);
  }

  // The codes in the list.
  static QString codes(const Form& dialog)
  {
    const Grid& list = *dialog.find<Grid>("MSH");
    QStringList found;
    for (int row = 1; row < list.rows(); ++row)
      found.append(list.text(row, 1));
    return found.join(u' ');
  }

  static QString search(Form& dialog, const char* box, const QString& text)
  {
    dialog.find<TextBox>(box)->setText(text);
    dialog.find<TextBox>(box)->press(Key{Key::Enter, {}});
    return codes(dialog);
  }
};

TEST_F(CodePickerTest, ASearchDropsTheCallersOwnList)
{
  pick(customers, [](Form& dialog) {
    EXPECT_EQ(codes(dialog), "101 102");
    EXPECT_EQ(search(dialog, "TxtZJF", "G"), "210");
    EXPECT_EQ(search(dialog, "TxtCode", " 10 "), "101 102");
    EXPECT_EQ(search(dialog, "TxtName", "10"), "210");
    dialog.find<Button>("CmdRefresh")->click();
    EXPECT_EQ(codes(dialog), "101 102 210");
  });
}

TEST_F(CodePickerTest, OnlyAFullNotchOfTheWheelTurnsAPageAndOnlyWithTheFocus)
{
  for (int code = 500; code < 530; ++code)
    file.run(QString("insert into TabClient(Code,Name) values('%1','x')").arg(code));
  pick(anyList, [](Form& dialog) {
    Grid& list = *dialog.find<Grid>("MSH");
    const auto rowAfter = [&](int step) {
      list.wheel(step);
      return list.row();
    };
    const int page = rowAfter(-120) - 1;
    EXPECT_GT(page, 1);
    EXPECT_EQ(rowAfter(-60), 1 + page);
    EXPECT_EQ(rowAfter(-240), 1 + page);
    EXPECT_EQ(rowAfter(120), 1);
    dialog.setFocus(*dialog.find<TextBox>("TxtZJF"));
    EXPECT_EQ(rowAfter(-120), 1);
  });
}

} // namespace
