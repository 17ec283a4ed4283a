#include "vouchers/ShowVoucher.h"

#include "platform/Trim.h"
#include "session/OperateRight.h"
#include "session/Session.h"
#include "startup/Launcher.h"
#include "vouchers/Voucher.h"

namespace Vouchers {

void ShowVoucher(Session& session, const QString& billCode)
{
  const QString code = Trim(billCode);
  if (code.isEmpty())
    return session.desk.inform(QStringLiteral("单据编号不存在，不能查看凭证！"));
  if (session.params.IsJXC)
    return session.desk.inform(QStringLiteral("本账套是进销存与财务分离账套，不允许查看凭证！"));
  const auto voucher = voucherOf(session, code);
  if (!voucher || Trim(voucher->code).isEmpty())
    return session.desk.inform(QStringLiteral("本单据没有对应的凭证！"));
  const QString operation = QStringLiteral("查看会计凭证");
  Mod_ZORVEKMain::RunSiblingProgram(session, operation, {operation, Trim(voucher->code)});
}

void FSeeWarrent_Click(Session& session, const QString& billCode)
{
  if (CheckOperateRight(session, session.params.UserName, QStringLiteral("凭证录入"), RightKind::Read))
    ShowVoucher(session, billCode);
}

void FJXCAccount_Click(Session& session, const QString& JXCTabName)
{
  const QString operation = QStringLiteral("自动生成会计凭证对应科目设置");
  if (CheckOperateRight(session, session.params.UserName, operation, RightKind::Edit))
    Mod_ZORVEKMain::RunSiblingProgram(session, operation, {operation, Trim(JXCTabName)});
}

} // namespace Vouchers
