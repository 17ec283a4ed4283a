#include "settlement/frmGouDui.h"

#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

namespace {

struct MatchingTest : testing::Test, AccountSetFixture {
  frmGouDui screen{session};
  Grid& list = *screen.find<Grid>("MSH");

  MatchingTest() { file.run("insert into TabInBill(Code,UnitCode,State,InvoiceType) values('CGD1','G001','正常','收据')"); }

  void listLines(int count)
  {
    file.run(QString("delete from TabInBillInf; with recursive n(i) as (select 1 union all select i+1 from n where i<%1) "
                     "insert into TabInBillInf(BillCode,Num,GouDui) select 'CGD1',i,0 from n")
                 .arg(count));
    screen.Form_Load();
    desk.show(screen);
    screen.find<Button>("CmdQuery")->click();
  }
};

// Lines are counted in sixteen bits: the next one ends the filling where it is, with an error box.
TEST_F(MatchingTest, AListThatIsTooLongStopsWithAnOverflow)
{
  listLines(32767);
  EXPECT_EQ(desk.takeTexts(), "");
  EXPECT_EQ(list.rows(), 32769);
  EXPECT_EQ(list.text(32767, 7) + list.text(32768, 2), "32767合计");
  listLines(32768);
  EXPECT_EQ(desk.boxes.size(), 1);
  EXPECT_TRUE(desk.takeTexts().contains("溢出"));
  EXPECT_FALSE(desk.busy);
  EXPECT_EQ(list.rows(), 32769);
  EXPECT_EQ(list.text(32767, 7) + list.text(32768, 2), "32767");
}

} // namespace
