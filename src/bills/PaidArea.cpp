#include "bills/PaidArea.h"

#include "bills/BillScreen.h"
#include "ledger/Money.h"
#include "pickers/TreePicker.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"

using namespace Qt::StringLiterals;
using namespace ModFuntion;

PaidArea::PaidArea(BillScreen& screen)
    : m_screen(screen), FramePay(&screen.Pic, "FramePay"), m_cash{u"现金",
                                                                  u"请选择现金科目！",
                                                                  u"现金科目名称不正确（原因：名称不存在或不是处于最末级），请重新选择！",
                                                                  u"1001"_s,
                                                                  {screen.session, &FramePay, "TxtCash"},
                                                                  {{&FramePay, "TxtCashAccouCode"},
                                                                   {&FramePay, "TxtCashAccouName"},
                                                                   {&FramePay, "ImgCashAccouName", [this] { pickAccount(m_cash); }}}},
      m_bank{
          u"银行存款",
          u"请选择银行科目！",
          u"银行科目名称不正确（原因：名称不存在或不是处于最末级），请重新选择！",
          u"1002"_s,
          {screen.session, &FramePay, "TxtTransfer"},
          {{&FramePay, "TxtTransferCode"}, {&FramePay, "TxtTransferName"}, {&FramePay, "ImgTransferName", [this] { pickAccount(m_bank); }}}}
{
  FramePay.setCaption(u"资金信息"_s);
  for (Part* const part : {&m_cash, &m_bank}) {
    part->account.completeNames(screen.session);
    part->account.name.onKey = [this, part](const Key& key) { return nameKey(*part, key); };
  }
}

bool PaidArea::nameKey(Part& part, const Key& key)
{
  const QString text = Trim(part.account.name.text());
  if (key.code != Key::Enter || text.isEmpty())
    return false;
  const Recordset rs =
      OpenRecordset(m_screen.session, {u"select Code,Name from TabAccountantType  where ( Code like '{}%'  or Name like '{}%' ) "
                                       u" and Code like '{}%'  order by code",
                                       text, text, part.accounts});
  if (rs.recordCount() == 1) {
    part.account.set(rs.text("Code"), rs.text("Name"));
    m_screen.focusNext();
  } else {
    part.account.set({}, {});
    pickAccount(part);
  }
  return true;
}

void PaidArea::pickAccount(const Part& part)
{
  const TreePickerCall call{.TreeWhere = {u" where (Code like '{}%' or Code='1') ", part.accounts},
                            .TreeTarget = QString::fromUtf16(part.target)};
  if (const auto picked = TreePicker::pick(m_screen.session, call))
    m_screen.takeAccount(*picked);
}

bool PaidArea::take(const PickedNode& account)
{
  for (Part* const part : {&m_cash, &m_bank})
    if (account.TreeTarget == QStringView(part->target)) {
      part->account.set(account.code, account.name);
      return true;
    }
  return false;
}

std::optional<Desk::Box> PaidArea::refusal(Part& part)
{
  if (MoneyOf(part.amount.text()).isZero()) {
    part.account.set({}, {});
    return {};
  }
  if (Trim(part.account.name.text()).isEmpty())
    return Desk::Box{QString::fromUtf16(part.missing)};
  return part.account.refusalUnlessLeaf(m_screen.session, QString::fromUtf16(part.wrong));
}

Currency PaidArea::total() const
{
  return MoneyOf(m_cash.amount.text()) + MoneyOf(m_bank.amount.text());
}

void PaidArea::addTo(BillRecord& record) const
{
  record.cash = MoneyOf(m_cash.amount.text());
  record.bank = MoneyOf(m_bank.amount.text());
  record.cashOrOutgoing = m_cash.account.account();
  record.bankOrIncoming = m_bank.account.account();
}

void PaidArea::show(const Recordset& header)
{
  show(m_cash, header, "Cash", "CashCode", "CashName");
  show(m_bank, header, "Credit", "CreditCode", "CreditName");
}

void PaidArea::show(Part& part, const Recordset& header, const char* amount, const char* code, const char* name)
{
  part.amount.setText(FormatDotText(header.field(amount), m_screen.session.DotSet.DotMoney));
  part.account.code.setText(header.text(code));
  part.account.name.setText(header.text(name));
}

void PaidArea::clear()
{
  for (Part* const part : {&m_cash, &m_bank}) {
    part->amount.setText({});
    part->account.set({}, {});
  }
}
