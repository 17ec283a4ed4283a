#include "session/OperateRight.h"

#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t Administrator[] = u"系统管理员";

// Empty for an unknown kind.
QString allowColumn(RightKind kind)
{
  switch (kind) {
  case RightKind::Read: return u"AllowRead"_s;
  case RightKind::Edit: return u"AllowEdit"_s;
  case RightKind::Delete: return u"AllowDelete"_s;
  case RightKind::Print: return u"AllowPrint"_s;
  case RightKind::Auditing: return u"AllowAuditing"_s;
  }
  return {};
}

bool isAllowed(Session& session, const QString& operatorName, const QString& functionName, RightKind kind)
{
  const QString column = allowColumn(kind);
  if (operatorName.isEmpty() || functionName.isEmpty() || column.isEmpty())
    return false;
  const Recordset rs = OpenRecordset(session, {u"select {} as Allow from TabOperateRight  where UserName='{}' and FunctionName='{}'",
                                               SqlName(column), Trim(operatorName), Trim(functionName)});
  return !rs.eof() && rs.number("Allow") == 1;
}

std::optional<QString> cloudRefusal(Session& session)
{
  const SessionParams& params = session.params;
  if (Trim(params.CloudAccount).isEmpty())
    return u"不能确定云账号，请退出软件重新登陆！"_s;
  if (Trim(params.CloudAccount2).isEmpty())
    return u"不能确定子账号，请退出软件重新登陆！"_s;
  const QString localCode = Trim(GetTerminalCode(session));
  const Recordset rs = OpenRecordset(session, {u"select UserCode from TabCloudAccountLoginInf  where Account='{}'  and Account2='{}' ",
                                               params.CloudAccount, params.CloudAccount2});
  const QString storedCode = rs.eof() ? QString() : rs.trimmed("UserCode");
  if (!storedCode.isEmpty() && storedCode == localCode)
    return std::nullopt;
  return u"本云账号已在别的终端设备上登陆，本终端自动终止操作！"_s;
}

std::optional<QString> refusalOf(Session& session, const QString& operatorName, const QString& functionName, RightKind kind)
{
  const bool isCloudSession = !Trim(session.params.CloudAccount).isEmpty() && !Trim(session.params.CloudAccount2).isEmpty();
  if (isCloudSession)
    if (auto refusal = cloudRefusal(session))
      return refusal;
  if (operatorName == Administrator || isAllowed(session, operatorName, functionName, kind))
    return std::nullopt;
  return u"没有操作权限！"_s;
}

// True if there is no refusal; otherwise it is shown.
bool showRefusal(Session& session, const std::optional<QString>& refusal)
{
  if (refusal)
    session.desk.inform(*refusal);
  return !refusal;
}

} // namespace

bool CheckOperateRight(Session& session, const QString& operatorName, const QString& functionName, RightKind kind)
{
  return showRefusal(session, refusalOf(session, operatorName, functionName, kind));
}

std::optional<QString> OperateRefusal(Session& session, const QString& functionName, RightKind kind)
{
  return refusalOf(session, session.params.UserName, functionName, kind);
}

bool CheckCloudAccountLogin(Session& session)
{
  return showRefusal(session, cloudRefusal(session));
}

QString GetTerminalCode(const Session& session)
{
  return session.machine.terminalCode();
}
