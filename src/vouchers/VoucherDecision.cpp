#include "vouchers/VoucherDecision.h"

#include "ledger/BillKinds.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"
#include "vouchers/Voucher.h"
#include "vouchers/VoucherBill.h"
#include "vouchers/VoucherSettings.h"

using namespace Qt::StringLiterals;

namespace Vouchers {
namespace {

// The account that a partner must have before a bill of this kind may be saved: the voucher books the
// bill's total on it.
struct PartnerCheck {
  const char16_t* JXCTabName;
  const char* accountColumn; // of TabClient
  const char16_t* refusal;
};

constexpr PartnerCheck PartnerChecks[] = {
    {BillKinds::Payment.name, BillKinds::Payment.partnerAccount,
     u"付款时，必须设置本供应商的应付账款科目，但您在往来单位信息录入"
     u"中并没有设置本供应商的应付账款科目，请先到往来单位信息录入中设置好本供应商"
     u"的应付账款科目编号再保存本单据！"},
    {BillKinds::Receipt.name, BillKinds::Receipt.partnerAccount,
     u"收款时，必须设置本客户的应收账款科目，但您在往来单位信息录入"
     u"中并没有设置本客户的应收账款科目，请先到往来单位信息录入中设置好本客户"
     u"的应收账款科目编号再保存本单据！"},
    {BillKinds::SupplierOffset.name, BillKinds::SupplierOffset.partnerAccount,
     u"供应商费用抵冲时，在会计账务中必须生成抵冲本供应商的应付账款，但您在往来单位信息录入"
     u"中并没有设置本供应商的应付账款科目，请先到往来单位信息录入中设置好本供应"
     u"商的应付账款科目编号再保存本单据！"},
    {BillKinds::CustomerOffset.name, BillKinds::CustomerOffset.partnerAccount,
     u"客户费用抵冲时，在会计账务中必须生成抵冲本客户的应收账款，但您在往来单位信息录入"
     u"中并没有设置本客户的应收账款科目，请先到往来单位信息录入中设置好本客户"
     u"的应收账款科目编号再保存本单据！"},
};

bool isKindWithoutVoucher(Session& session, const VoucherBill& bill)
{
  const Recordset rs = OpenRecordset(session, {u"select IsWarrant from TabJXCAccount where JXCTabName='{}'", Trim(bill.JXCTabName)});
  return !rs.eof() && declinesVoucher(rs);
}

bool partnerHasAccount(Session& session, const VoucherBill& bill, const char* column)
{
  const Recordset rs = OpenRecordset(session, {u"select {} from TabClient where Code='{}'", SqlName(column), Trim(bill.TxtCode)});
  return !rs.eof() && !rs.trimmed(column).isEmpty();
}

bool partnerIsRefused(Session& session, const VoucherBill& bill)
{
  for (const PartnerCheck& check : PartnerChecks) {
    if (Trim(bill.JXCTabName) != QStringView(check.JXCTabName) || partnerHasAccount(session, bill, check.accountColumn))
      continue;
    session.desk.inform(QString::fromUtf16(check.refusal));
    return true;
  }
  return false;
}

} // namespace

VoucherDecision DecideVoucher(Session& session, const VoucherBill& bill)
{
  if (session.params.IsJXC)
    return VoucherDecision::NotWanted;
  if (!bill.isTotalZero && isKindWithoutVoucher(session, bill))
    return VoucherDecision::NotWanted;
  if (partnerIsRefused(session, bill) || refusesPosted(session, bill))
    return VoucherDecision::Refused;
  return VoucherDecision::Wanted;
}

bool refusesPosted(Session& session, const VoucherBill& bill)
{
  const auto voucher = voucherOf(session, bill.code);
  if (!voucher || !voucher->isPosted)
    return false;
  session.desk.inform(u"当前单据对应的会计凭证已登账，禁止修改！如果确需修改，请先操作反登账，之后再修改本单据！"_s,
                      [&session, code = bill.code] { return voucherInWords(session, code); });
  return true;
}

} // namespace Vouchers
