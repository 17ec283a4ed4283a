#include "accountset/AccountSet.h"
#include "program/ProgramScreens.h"
#include "samplefirm/SampleFirm.h"
#include "screen/CellEditor.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/Grid.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

#include <QFile>

namespace {

// A stored bill of the sample firm on its screen, and what the details of the last box say.
struct MessageDetails : testing::Test, SessionFixture {
  std::unique_ptr<Screen> opened;

  MessageDetails()
  {
    QFile::remove(accountSetPath());
    if (!AccountSet::create(accountSetPath(), SampleFirm::write))
      ADD_FAILURE();
    session.DotSet = LoadDotSet(session);
  }

  void show(const char* screen, const char* table, const char* code)
  {
    opened = makeProgramScreen(session, screen);
    opened->Form_Load();
    opened->FillBill(table, code);
    desk.show(opened->form());
    opened->frm_Initialize(true);
  }

  QString click(const char* tool, const char* sql = "")
  {
    RawDatabase(accountSetPath()).run(sql);
    desk.boxes.clear();
    opened->form().find<ToolButton>(tool)->click();
    return desk.boxes.isEmpty() || !desk.boxes.last().details ? QString() : desk.boxes.last().details();
  }
};

} // namespace

TEST_F(MessageDetails, NameTheRecordThatRefuses)
{
  show("frmGathefund", "TabGathefundBill", "SKD202206060001");
  EXPECT_EQ(click("ToolDelete"), "一并删除：\n  凭证 PZD202206060001，2022-06-06，收字第 6 号\n  核销 XSD202205220001：308");
  EXPECT_EQ(click("ToolRedWord"), "一并删除：\n  凭证 PZD202206060001，2022-06-06，收字第 6 号\n保留不变：\n  核销 XSD202205220001：308");
  EXPECT_EQ(click("ToolDelete", "delete from TabWarrant; delete from TabSFKHeXiao"), "本单据没有凭证、核销和图文。");
  EXPECT_EQ(click("ToolDelete", "insert into TabTurnDay values('2022-06-30')"),
            "单据日期为 2022-06-06，日结已结转到 2022-06-30。\n请改用此后的日期，或先在账务中反结转。");
  session.params.UserName = "李出纳";
  EXPECT_EQ(click("ToolAuditing", "insert into TabOperateRight(UserName,FunctionName,AllowAuditing) values('王五','收款',1)"),
            "“收款”需要审核权限。\n有此权限的操作员：系统管理员、张会计、王五");
}

TEST_F(MessageDetails, NameAPostedVoucherAndAColleague)
{
  show("frmPayfund", "TabPayfundBill", "FKD202206080001");
  EXPECT_EQ(click("ToolRedWord", "update TabWarrant set State='已登账', RecordAccountant='张会计' where JXCBillCode='FKD202206080001'"),
            "凭证 PZD202206080002，2022-06-08，付字第 21 号，已登账（张会计）");
  EXPECT_EQ(click("ToolAuditing", "update TabPayfundBill set Auditing='张会计' where Code='FKD202206080001'"),
            "单据 FKD202206080001：状态 正常，审核人 张会计，制单人 李出纳");
  // A look-up that fails has no box.
  EXPECT_EQ(click("ToolAuditing", "alter table TabPayfundBill rename to Gone"), "");
}
