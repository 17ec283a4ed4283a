#include "pickers/CodePicker.h"

#include "screen/Controls.h"
#include "screen/Grid.h"
#include "screen/Tree.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

namespace {

// What the bills of this system do not reach: wares, a list without a table, a wheel of fine steps.
struct CodePickerTest : testing::Test, SessionFixture {
  CodePickerCall wares{Statement(u"select Code,Name,Spec,Unite,ZJF from TabWare where Spec='L' order by code"), "TabWare", "选择商品"};
  CodePickerCall anyList{Statement(u"select Code,Name from TabWare "), "", "选择名"};

  CodePickerTest()
  {
    file.run("create table TabWare(Code text, Name text, Spec text, Unite text, ZJF text, TypeCode text)");
    file.run("insert into TabWare values('101','螺丝','L','盒','LS','11'),('210','10号钢','M','吨','GG','12'),"
             "('102','螺母','L',null,'LM','111')");
    file.run("create table TabWareType(Code text, Name text, ParentCode text)");
    file.run("insert into TabWareType values('1','全部','0'),('11','五金 ','1'),('111','小件','11'),('12','钢材','1')");
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

TEST_F(CodePickerTest, WaresComeInSixColumnsAndASearchDropsTheCallersOwnList)
{
  pick(wares, [](Form& dialog) {
    const Grid& list = *dialog.find<Grid>("MSH");
    EXPECT_EQ(list.cols(), 6);
    EXPECT_EQ(list.text(0, 5) + list.text(1, 0) + list.text(1, 3) + list.text(2, 4), "助记符1L");
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
    file.run(QString("insert into TabWare(Code,Name) values('%1','x')").arg(code));
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
