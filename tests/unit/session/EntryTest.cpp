#include "session/Mod_ZORVEKMain.h"

#include "session/ModReadWriteParameters.h"
#include "session/ModuleADO.h"
#include "session/Screen.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include "screen/Controls.h"

#include <gtest/gtest.h>

#include <QFile>

#include <map>

using namespace Qt::StringLiterals;

namespace {

// A screen that notes down what the entry does with it.
class NotingScreen : public Screen {
public:
  NotingScreen(Session& ofSession, const QString& name) : Screen(ofSession, name)
  {
    sourceBill.setVisible(false);
    setCaption(u"as it was"_s);
  }

  void FillBill(const QString& table, const QString& code) override
  {
    notes.append(u"FillBill(%1,%2)%3"_s.arg(table, code, writeOff.isVisible() ? u""_s : u" without ToolHX"_s));
    if (table == u"broken")
      OpenRecordset(session, u"select * from NotThere"_s).eof();
  }
  void frm_Initialize(bool keepScreen) override
  {
    notes.append(isOpen() ? u"shown"_s : u"not shown"_s);
    notes.append(keepScreen ? u"frm_Initialize(yes)"_s : u"frm_Initialize(no)"_s);
  }
  void Form_Load() override { notes.append(u"load"_s); }

  QStringList notes;
  Label title{this, u"LabBillName"_s};
  ToolButton sourceBill{this, u"ToolSFKBill"_s};
  ToolButton writeOff{this, u"ToolHX"_s};
};

struct EntryTest : testing::Test, SessionFixture, Screens {
  std::map<QString, std::unique_ptr<NotingScreen>> made;
  QString missing;

  EntryTest() { file.run(u"create table TabDotSet(Name, Num)"_s); }

  Screen* screen(const QString& name) override
  {
    if (name == missing)
      return nullptr;
    auto& found = made[name];
    if (!found)
      found = std::make_unique<NotingScreen>(session, name);
    return found.get();
  }

  Mod_ZORVEKMain::Start start(const Directives& directives)
  {
    EXPECT_TRUE(ModReadWriteParameters::WriteSystemParameters(session, directives));
    return Mod_ZORVEKMain::Main(session, *this);
  }
  // The screen that one order opens, started afresh.
  NotingScreen* open(const Directives& directives)
  {
    made.clear();
    return static_cast<NotingScreen*>(start(directives).screen);
  }
};

} // namespace

TEST_F(EntryTest, TheFirstKeyOpensANewScreen)
{
  struct Row {
    QString key, form;
    QString notes = u"load shown frm_Initialize(no)"_s;
    QString title = {}, caption = u"as it was"_s;
  };
  for (const auto& [key, form, notes, title, caption] : {
           Row{u" 付款 "_s, u"frmPayfund"_s},
           Row{u"收款"_s, u"frmGathefund"_s},
           Row{u"银行存取"_s, u"frmBankKeepTake"_s},
           Row{u"费用开支"_s, u"frmFeeElseIncome"_s, u"load shown frm_Initialize(no)"_s, u"费用开支单"_s, u"费用开支"_s},
           Row{u"其他收入"_s, u"frmFeeElseIncome"_s, u"load shown frm_Initialize(no)"_s, u"其他收入单"_s, u"其他收入"_s},
           Row{u"费用抵冲(客户)"_s, u"frmFeeSustain"_s},
           Row{u"费用抵冲(供应商)"_s, u"frmFeeSustain"_s},
           Row{u"开票勾对"_s, u"frmGouDui"_s, u"load"_s, u"开票勾对"_s},
           Row{u"开票金额汇总表"_s, u"frmGouDuiTogather"_s, u"load"_s, u"开票金额汇总表"_s},
           Row{u"收付款核销查询"_s, u"frmSFKHeXiao"_s, u"load"_s},
       }) {
    const NotingScreen* const screen = open({key, u"付款"_s, u"TabPayfundBill"_s, u"FKD1"_s});
    ASSERT_TRUE(screen) << shown(key);
    EXPECT_EQ(screen->name(), form);
    EXPECT_EQ(screen->notes.join(u' '), notes) << shown(key);
    EXPECT_EQ(screen->title.caption(), title);
    EXPECT_EQ(screen->caption(), caption);
    const bool isBench = form == u"frmSFKHeXiao";
    EXPECT_EQ(screen->HXMode, isBench ? u"收付款核销查询"_s : u""_s);
    EXPECT_EQ(screen->sourceBill.isVisible(), isBench);
  }
}

TEST_F(EntryTest, TheSecondKeyOpensAStoredBill)
{
  const QString filled = u"load FillBill(T,C) shown frm_Initialize(yes)"_s;
  const QString sourceBill = u"load FillBill(T,C) without ToolHX"_s;
  struct Row {
    QString key, form, notes;
  };
  for (const auto& [key, form, notes] : {
           Row{u"付款"_s, u"frmPayfund"_s, filled},
           Row{u" 收款 "_s, u"frmGathefund"_s, filled},
           Row{u"银行存取（存现）"_s, u"frmBankKeepTake"_s, filled},
           Row{u"银行存取（取现）"_s, u"frmBankKeepTake"_s, filled},
           Row{u"银行存取(存现)"_s, u"frmBankKeepTake"_s, filled},
           Row{u"银行存取(取现)"_s, u"frmBankKeepTake"_s, filled},
           Row{u"费用开支"_s, u"frmFeeElseIncome"_s, filled},
           Row{u"其他收入"_s, u"frmFeeElseIncome"_s, filled},
           Row{u"费用抵冲"_s, u"frmFeeSustain"_s, filled},
           Row{u"收付款核销查询"_s, u"frmSFKHeXiao"_s, u"load"_s},
           Row{u"收款核销查询原单"_s, u"frmGathefund"_s, sourceBill},
           Row{u"付款核销查询原单"_s, u"frmGathefund"_s, sourceBill},
       }) {
    const NotingScreen* const screen = open({u"nothing"_s, key, u" T "_s, u" C "_s});
    ASSERT_TRUE(screen) << shown(key);
    EXPECT_EQ(screen->name(), form);
    EXPECT_EQ(screen->notes.join(u' '), notes) << shown(key);
    EXPECT_EQ(screen->title.caption(), u""_s);
    EXPECT_TRUE(screen->isOpen());
  }
}

TEST_F(EntryTest, UnknownOrdersEndTheRun)
{
  const auto ends = [this](const Directives& directives) {
    const auto started = start(directives);
    const bool hasEnded = !started.screen && started.exitStatus == 1 && desk.boxes.size() == 1 && desk.boxes[0].icon == Desk::Icon::Stop;
    return hasEnded && desk.takeTexts() == u"读取系统运行参数失败，本模块运行自动终止，请重新操作！"_s;
  };
  EXPECT_TRUE(ends({}));
  EXPECT_TRUE(ends({u"费用抵冲"_s})) << "a second key";
  EXPECT_TRUE(ends({{}, u"银行存取"_s})) << "a first key";
  EXPECT_TRUE(ends({u"付 款"_s}));
  missing = u"frmPayfund"_s;
  EXPECT_TRUE(ends({u"付款"_s})) << "its screen is not there";
}

TEST_F(EntryTest, WithoutParametersTheRunEnds)
{
  const auto started = Mod_ZORVEKMain::Main(session, *this);
  EXPECT_FALSE(started.screen);
  EXPECT_EQ(started.exitStatus, 1);
  EXPECT_EQ(desk.boxes.value(0).icon, Desk::Icon::Stop);
  EXPECT_EQ(desk.takeTexts(), u"读取系统参数失败，本模块启动终止！请重新操作！"_s);
  EXPECT_FALSE(session.connection.isOpen());
}

TEST_F(EntryTest, AFailedReadBeforeAScreenStandsEndsTheRun)
{
  EXPECT_FALSE(start({u"x"_s, u"付款"_s, u"broken"_s}).screen);
  ASSERT_EQ(desk.boxes.size(), 2) << "the statement's own box, and the run-time error";
  EXPECT_EQ(desk.boxes[1].icon, Desk::Icon::Stop);
  desk.boxes.clear();
  QFile::remove(accountSetPath());
  CloseConnection(session);
  EXPECT_EQ(start({u"付款"_s}).exitStatus, 1);
  EXPECT_EQ(desk.boxes.size(), 2);
}

TEST_F(EntryTest, AFileThatIsNoWholeAccountSetEndsTheRunAndStaysAsItWas)
{
  QFile stored(accountSetPath());
  ASSERT_TRUE(stored.open(QIODevice::ReadOnly));
  const QByteArray whole = stored.readAll();
  struct Row {
    const char* what;
    QByteArray content;
  };
  for (const auto& [what, content] : {
           Row{"empty", {}},
           Row{"a text", QByteArray("no database at all\r\n").repeated(500)},
           Row{"cut in its header", whole.left(60)},
           Row{"cut behind its first page", whole.left(whole.size() / 2)},
           Row{"a header before rubbish", whole.left(16) + QByteArray(whole.size(), '\xA5')},
       }) {
    QFile::remove(accountSetPath());
    QFile damaged(accountSetPath());
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write(content) == content.size());
    damaged.close();
    const auto started = start({u"付款"_s});
    EXPECT_FALSE(started.screen) << what;
    EXPECT_EQ(started.exitStatus, 1) << what;
    EXPECT_EQ(desk.boxes.value(0).title, u""_s) << what;
    EXPECT_TRUE(desk.boxes.value(0).text.startsWith(u"Error:"_s)) << what;
    EXPECT_EQ(desk.boxes.size(), 2) << what << ": the statement's own box, and the run-time error";
    desk.boxes.clear();
    CloseConnection(session);
    ASSERT_TRUE(damaged.open(QIODevice::ReadOnly));
    EXPECT_EQ(damaged.readAll(), content) << what;
  }
}

TEST_F(EntryTest, TheDecimalSettingsAreReadOnceAtStart)
{
  open({u"付款"_s});
  EXPECT_EQ(session.DotSet.DotPrice, -3);
  EXPECT_EQ(session.DotSet.DotNumber, -3);
  EXPECT_EQ(session.DotSet.DotMoney, -3);
  file.run(u"insert into TabDotSet values('单价型',4),('数值型',-2),('货币型',2)"_s);
  open({u"付款"_s});
  EXPECT_EQ(session.DotSet.DotPrice, 4);
  EXPECT_EQ(session.DotSet.DotNumber, -2);
  EXPECT_EQ(session.DotSet.DotMoney, 2);
}

TEST_F(EntryTest, AScreenThatGoesClosesTheConnection)
{
  NotingScreen* const screen = open({u"付款"_s});
  EXPECT_TRUE(session.connection.isOpen());
  screen->close();
  EXPECT_FALSE(session.connection.isOpen());
}
