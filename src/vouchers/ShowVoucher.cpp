#include "vouchers/ShowVoucher.h"

#include "platform/Trim.h"
#include "session/OperateRight.h"
#include "session/Session.h"
#include "startup/Launcher.h"
#include "vouchers/Voucher.h"

using namespace Qt::StringLiterals;

namespace Vouchers {

void ShowVoucher(Session& session, const QString& billCode)
{
  const QString code = Trim(billCode);
  if (code.isEmpty())
    return session.desk.inform(u"单据编号不存在，不能查看凭证！"_s);
  if (session.params.IsJXC)
    return session.desk.inform(u"本账套是进销存与财务分离账套，不允许查看凭证！"_s);
  const auto voucher = voucherOf(session, code);
  if (!voucher || Trim(voucher->code).isEmpty())
    return session.desk.inform(u"本单据没有对应的凭证！"_s);
  const QString operation = u"查看会计凭证"_s;
  Mod_ZORVEKMain::RunSiblingProgram(session, operation, {operation, Trim(voucher->code)});
}

void FSeeWarrent_Click(Session& session, const QString& billCode)
{
  if (CheckOperateRight(session, session.params.UserName, u"凭证录入"_s, RightKind::Read))
    ShowVoucher(session, billCode);
}

void FJXCAccount_Click(Session& session, const QString& JXCTabName)
{
  const QString operation = u"自动生成会计凭证对应科目设置"_s;
  if (CheckOperateRight(session, session.params.UserName, operation, RightKind::Edit))
    Mod_ZORVEKMain::RunSiblingProgram(session, operation, {operation, Trim(JXCTabName)});
}

} // namespace Vouchers
