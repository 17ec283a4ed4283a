#include "bills/SaveChecks.h"

#include "bills/BillScreen.h"
#include "ledger/AccountingCalendar.h"
#include "ledger/BillCode.h"
#include "ledger/MasterData.h"
#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/OperateRight.h"

using namespace Qt::StringLiterals;
using namespace ModFuntion;

namespace SaveChecks {
namespace {

using Refusal = std::optional<Desk::Box>;

Refusal refuseUnless(bool holds, const QString& text)
{
  return holds ? Refusal() : Desk::Box{text};
}

} // namespace

Refusal operatorMayEdit(BillScreen& screen)
{
  return OperateRefusal(screen.session, screen.rightFunction(), RightKind::Edit);
}

Refusal dateIsOpen(BillScreen& screen)
{
  const QDate date = screen.DTPDate.date();
  return GetClosingGuard(screen.session, date, false) ? Refusal(ClosedBox(screen.session, date)) : std::nullopt;
}

Refusal amountsFit(BillScreen& screen)
{
  Currency total;
  for (int row = 1; row <= screen.lines->lineCount(); ++row)
    total += screen.lines->amount(row);
  return {};
}

Refusal totalIsNotZero(BillScreen& screen)
{
  return refuseUnless(!screen.totalMoney().isZero(), u"合计金额为零值，请检查单据录入是否正确(如果属正负抵消请分作二次录入)！"_s);
}

Refusal currencyIsGiven(BillScreen& screen)
{
  const auto refusal = [](const QString& text) { return Desk::Box{text, Desk::Icon::Information, Desk::Buttons::OkCancel}; };
  if (!screen.session.params.IsLotMoney)
    return {};
  if (Trim(screen.currency.TxtMoneyName.text()).isEmpty())
    return refusal(u"请选择币种！"_s);
  if (NumberText::numericPrefix(screen.currency.TxtMoneyRate.text()) == 0)
    return refusal(u"汇率不能为0，如果是本位币，则汇率填写1"_s);
  return {};
}

Refusal partnerIsNamed(BillScreen& screen)
{
  return refuseUnless(!Trim(screen.partner->TxtName.text()).isEmpty(), u"单位名称不能为空！"_s);
}

// The name decides, and overwrites the code; the first partner with that name wins.
Refusal partnerIsKnown(BillScreen& screen)
{
  PartnerArea& partner = *screen.partner;
  const Recordset rs = OpenRecordset(screen.session, {u"select * from TabClient where Name='{}'", Trim(partner.TxtName.text())});
  if (rs.eof())
    return Desk::Box{QString::fromUtf16(screen.traits().partner->unknown)};
  partner.TxtName.setText(rs.text("Name"));
  partner.TxtCode.setText(rs.text("Code"));
  return {};
}

Refusal hasLines(BillScreen& screen)
{
  return refuseUnless(screen.MSH.rows() >= 3, QString::fromUtf16(screen.traits().lines->noLines));
}

// Only the code is looked up; the name is silently corrected.
Refusal lineAccountsAreLeaves(BillScreen& screen)
{
  LineArea& lines = *screen.lines;
  for (int row = 1; row <= lines.lineCount(); ++row) {
    const auto account = CheckLeafRecord(screen.session, lines.text(row, LineArea::AccountCode), u"TabAccountantType"_s, u"Code"_s);
    if (!account)
      return Desk::Box{QString::fromUtf16(screen.traits().lines->wrongAccount) + screen.MSH.text(row, LineArea::AccountName) +
                       u"  的名称不正确（原因：名称不存在或不是处于目录末级），请重新输入！"_s};
    lines.setAccount(row, account->Code, account->Name);
  }
  return {};
}

Refusal noLineIsNegative(BillScreen& screen)
{
  for (int row = 1; row <= screen.lines->lineCount(); ++row)
    if (screen.lines->amount(row) < Currency())
      return Desk::Box{u"不允许出现负数！"_s};
  return {};
}

// A saved bill keeps its code. So does one whose header was refused, unless another operator has taken the code
// since; a saved bill without a code gets none here.
Refusal numberNewBill(BillScreen& screen)
{
  const BillStore& store = screen.store;
  const QString code = screen.billCode();
  if (screen.IsSavedBill && (store.hasBill() || code.isEmpty() || !store.isStored({store.headerTable(), code})))
    return {};
  screen.TxtDate.setText(DateText::shortForm(screen.DTPDate.date()));
  screen.TxtBillCode.setText(GetNextBillCode(screen.session, QString::fromLatin1(store.kind().prefix), store.headerTable()));
  return {};
}

Refusal codeHasPrefix(BillScreen& screen)
{
  const QString prefix = QString::fromLatin1(screen.store.kind().prefix);
  return refuseUnless(screen.billCode().startsWith(prefix), u"单据编号前三位必须为 "_s + prefix + u" ！"_s);
}

Refusal codeIsGiven(BillScreen& screen)
{
  return refuseUnless(!screen.billCode().isEmpty(), u"单据编号不能为空！"_s);
}

} // namespace SaveChecks
