#include "bills/TransferArea.h"

#include "bills/BillScreen.h"
#include "ledger/Money.h"
#include "pickers/TreePicker.h"
#include "platform/Trim.h"

using namespace Qt::StringLiterals;
using namespace ModFuntion;

TransferArea::TransferArea(BillScreen& screen)
    : LabAccountNameC(&screen.FrameProvide, "LabAccountNameC"),
      outgoing{{&screen.FrameProvide, "TxtAccountCodeC"},
               {&screen.FrameProvide, "TxtAccountNameC"},
               {&screen.FrameProvide, "ImgAccountC", [this] { pickAccount(outgoing, u"转出账户"); }}},
      LabAccountNameR(&screen.FrameProvide, "LabAccountNameR"),
      incoming{{&screen.FrameProvide, "TxtAccountCodeR"},
               {&screen.FrameProvide, "TxtAccountNameR"},
               {&screen.FrameProvide, "ImgAccountR", [this] { pickAccount(incoming, u"转入账户"); }}},
      TxtMoney(screen.session, &screen.FrameProvide, "TxtMoney", u".0123456789"_s), m_screen(screen)
{
  LabAccountNameC.setCaption(u"转出帐户"_s);
  LabAccountNameR.setCaption(u"转入帐户"_s);
  for (AccountBoxes* const boxes : {&outgoing, &incoming})
    boxes->completeNames(screen.session);
  for (TextBox* const name : {&outgoing.name, &incoming.name})
    name->onKey = [name](const Key& key) { return moveOnAtEnter(*name, key); };
}

void TransferArea::pickAccount(AccountBoxes& boxes, const char16_t* kind)
{
  const TreePickerCall call{.TreeWhere = Statement(u"  where (Code = '1' or    Code  ='1001' or Code= '1002' "
                                                   u" or ParentCode like '1001%' or ParentCode like '1002%')"),
                            .TreeKind = QString::fromUtf16(kind)};
  if (const auto picked = TreePicker::pick(m_screen.session, call))
    boxes.set(picked->code, picked->name);
}

std::optional<Desk::Box> TransferArea::refusal(AccountBoxes& boxes, QStringView kind)
{
  if (Trim(boxes.name.text()).isEmpty())
    return Desk::Box{kind.toString() + u"不能为空！"_s};
  return boxes.refusalUnlessLeaf(m_screen.session, kind.toString() + u"名称不正确（原因：名称不存在或不是处于最末级），请重新选择！"_s);
}

Currency TransferArea::total() const
{
  return MoneyOf(TxtMoney.text());
}

// Money that leaves the cash account is a deposit, anything else a withdrawal, also between two banks. The cash
// account's code may be anywhere in the text.
void TransferArea::addTo(BillRecord& record) const
{
  record.sum = total();
  record.cashOrOutgoing = outgoing.account();
  record.bankOrIncoming = incoming.account();
  record.type = record.cashOrOutgoing.code.contains(u"1001") ? u"银行存取（存现）"_s : u"银行存取（取现）"_s;
}

void TransferArea::show(const Recordset& header)
{
  TxtMoney.setText(FormatDotText(header.field("SumMoney"), m_screen.session.DotSet.DotMoney));
  outgoing.code.setText(header.text("AccountCodeC"));
  outgoing.name.setText(header.text("AccountNameC"));
  incoming.code.setText(header.text("AccountCodeR"));
  incoming.name.setText(header.text("AccountNameR"));
}

void TransferArea::clear()
{
  outgoing.set({}, {});
  incoming.set({}, {});
  TxtMoney.setText({});
}
