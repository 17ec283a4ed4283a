#include "session/Mod_ZORVEKMain.h"

#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "screen/Controls.h"
#include "session/ModReadWriteParameters.h"
#include "session/Screen.h"

namespace Mod_ZORVEKMain {
namespace {

// What an order opens, and with what on it.
struct Order {
  const char16_t* key;
  const char* screen;
  // Caption of LabBillName, or of LabTabName on the list screens; empty leaves it.
  const char16_t* title = u"";
  const char16_t* formCaption = u"";
  const char16_t* HXMode = u"";
  // The list screens need no making ready.
  bool initializes = true;
};

// A new working screen, by OperateType.
constexpr Order NewScreens[] = {
    {u"付款", "frmPayfund"},
    {u"收款", "frmGathefund"},
    {u"银行存取", "frmBankKeepTake"},
    {u"费用开支", "frmFeeElseIncome", u"费用开支单", u"费用开支"},
    {u"其他收入", "frmFeeElseIncome", u"其他收入单", u"其他收入"},
    {u"费用抵冲(客户)", "frmFeeSustain"},
    {u"费用抵冲(供应商)", "frmFeeSustain"},
    {u"开票勾对", "frmGouDui", u"开票勾对", u"", u"", false},
    {u"开票金额汇总表", "frmGouDuiTogather", u"开票金额汇总表", u"", u"", false},
    {u"收付款核销查询", "frmSFKHeXiao", u"", u"", u"收付款核销查询", false},
};

// A stored bill to be looked at, by OperationsDirective2. Both source-bill views of the write-off go
// to the receipt form: the header table in the third order tells it what to read.
struct View {
  Order order;
  bool fillsBill = true;
  bool hidesWriteOff = false;
};

constexpr View Views[] = {
    {{u"付款", "frmPayfund"}},
    {{u"收款", "frmGathefund"}},
    {{u"银行存取（存现）", "frmBankKeepTake"}},
    {{u"银行存取（取现）", "frmBankKeepTake"}},
    {{u"银行存取(存现)", "frmBankKeepTake"}},
    {{u"银行存取(取现)", "frmBankKeepTake"}},
    {{u"费用开支", "frmFeeElseIncome"}},
    {{u"其他收入", "frmFeeElseIncome"}},
    {{u"费用抵冲", "frmFeeSustain"}},
    {.order = {u"收付款核销查询", "frmSFKHeXiao", u"", u"", u"收付款核销查询", false}, .fillsBill = false},
    {.order = {u"收款核销查询原单", "frmGathefund", u"", u"", u"", false}, .hidesWriteOff = true},
    {.order = {u"付款核销查询原单", "frmGathefund", u"", u"", u"", false}, .hidesWriteOff = true},
};

QString text(const char16_t* literal)
{
  return QString::fromUtf16(literal);
}

Screen* prepare(Screens& screens, const Order& order)
{
  Screen* const screen = screens.screen(QString::fromLatin1(order.screen));
  if (!screen)
    return nullptr;
  screen->HXMode = text(order.HXMode);
  screen->load();
  const QString title = text(order.title);
  for (const char* label : {"LabBillName", "LabTabName"})
    if (Label* const found = screen->find<Label>(QString::fromLatin1(label)); found && !title.isEmpty())
      found->setCaption(title);
  if (*order.formCaption)
    screen->setCaption(text(order.formCaption));
  if (Control* const sourceBill = screen->find(QStringLiteral("ToolSFKBill")); sourceBill && !screen->HXMode.isEmpty())
    sourceBill->setVisible(true);
  return screen;
}

// Shows a screen; what comes behind the showing is the screen's own event already.
Screen* show(Session& session, Screen* screen, const Order& order, bool keepScreen)
{
  session.desk.show(*screen);
  if (order.initializes)
    screen->handle([&] { screen->frm_Initialize(keepScreen); });
  return screen;
}

Screen* openNewScreen(Session& session, Screens& screens)
{
  const QString key = Trim(session.params.OperateType);
  for (const Order& order : NewScreens) {
    if (key != text(order.key))
      continue;
    Screen* const screen = prepare(screens, order);
    return screen ? show(session, screen, order, false) : nullptr;
  }
  return nullptr;
}

Screen* openView(Session& session, Screens& screens)
{
  const QString key = Trim(session.params.OperationsDirective2);
  for (const View& view : Views) {
    if (key != text(view.order.key))
      continue;
    Screen* const screen = prepare(screens, view.order);
    if (!screen)
      return nullptr;
    if (Control* const writeOff = screen->find(QStringLiteral("ToolHX")); writeOff && view.hidesWriteOff)
      writeOff->setVisible(false);
    if (view.fillsBill)
      screen->FillBill(Trim(session.params.OperationsDirective3), Trim(session.params.OperationsDirective4));
    return show(session, screen, view.order, true);
  }
  return nullptr;
}

Start ended(Session& session, const QString& message)
{
  session.desk.stop(message);
  return {nullptr, 1};
}

} // namespace

Start Main(Session& session, Screens& screens)
{
  try {
    if (!ModReadWriteParameters::ReadSystemParameters(session.machine, session.params))
      return ended(session, QStringLiteral("读取系统参数失败，本模块启动终止！请重新操作！"));
    session.DotSet = LoadDotSet(session);
    Screen* screen = openNewScreen(session, screens);
    if (!screen)
      screen = openView(session, screens);
    if (!screen)
      return ended(session, QStringLiteral("读取系统运行参数失败，本模块运行自动终止，请重新操作！"));
    return {screen, 0};
  } catch (const RunTimeError& error) {
    return ended(session, error.text());
  }
}

} // namespace Mod_ZORVEKMain
