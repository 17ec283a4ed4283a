#include "session/OperateRight.h"

#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t Administrator[] = u"系统管理员";

struct Right {
  RightKind kind;
  const char* column;
  const char16_t* name;
};

constexpr Right Rights[] = {
    {RightKind::Read, "AllowRead", u"查询"},   {RightKind::Edit, "AllowEdit", u"编辑"},         {RightKind::Delete, "AllowDelete", u"删除"},
    {RightKind::Print, "AllowPrint", u"打印"}, {RightKind::Auditing, "AllowAuditing", u"审核"},
};

// Null for an unknown kind.
const Right* rightOf(RightKind kind)
{
  const auto at = std::ranges::find(Rights, kind, &Right::kind);
  return at == std::end(Rights) ? nullptr : at;
}

bool isAllowed(Session& session, const QString& operatorName, const QString& functionName, RightKind kind)
{
  const Right* const right = rightOf(kind);
  if (operatorName.isEmpty() || functionName.isEmpty() || !right)
    return false;
  const Recordset rs = OpenRecordset(session, {u"select {} as Allow from TabOperateRight  where UserName='{}' and FunctionName='{}'",
                                               SqlName(right->column), Trim(operatorName), Trim(functionName)});
  return !rs.eof() && rs.number("Allow") == 1;
}

// Who may do it.
QString whomToAsk(Session& session, const QString& functionName, RightKind kind)
{
  const Right* const right = rightOf(kind);
  if (!right)
    return {};
  QStringList names{QString::fromUtf16(Administrator)};
  Recordset rs = LookUp(session, {u"select UserName from TabOperateRight where FunctionName='{}' and {}=1 order by UserName",
                                  Trim(functionName), SqlName(right->column)});
  for (; !rs.eof(); rs.moveNext())
    names.append(rs.trimmed("UserName"));
  names.removeDuplicates();
  return u"“"_s + Trim(functionName) + u"”需要"_s + QString::fromUtf16(right->name) + u"权限。\n有此权限的操作员："_s + names.join(u"、"_s);
}

std::optional<Desk::Box> cloudRefusal(Session& session)
{
  const SessionParams& params = session.params;
  if (Trim(params.CloudAccount).isEmpty())
    return Desk::Box{u"不能确定云账号，请退出软件重新登陆！"_s};
  if (Trim(params.CloudAccount2).isEmpty())
    return Desk::Box{u"不能确定子账号，请退出软件重新登陆！"_s};
  const QString localCode = Trim(GetTerminalCode(session));
  const Recordset rs = OpenRecordset(session, {u"select UserCode from TabCloudAccountLoginInf  where Account='{}'  and Account2='{}' ",
                                               params.CloudAccount, params.CloudAccount2});
  const QString storedCode = rs.eof() ? QString() : rs.trimmed("UserCode");
  if (!storedCode.isEmpty() && storedCode == localCode)
    return std::nullopt;
  return Desk::Box{u"本云账号已在别的终端设备上登陆，本终端自动终止操作！"_s};
}

std::optional<Desk::Box> refusalOf(Session& session, const QString& operatorName, const QString& functionName, RightKind kind)
{
  const bool isCloudSession = !Trim(session.params.CloudAccount).isEmpty() && !Trim(session.params.CloudAccount2).isEmpty();
  if (isCloudSession)
    if (auto refusal = cloudRefusal(session))
      return refusal;
  if (operatorName == Administrator || isAllowed(session, operatorName, functionName, kind))
    return std::nullopt;
  return Desk::Box{.text = u"没有操作权限！"_s,
                   .details = [&session, functionName, kind] { return whomToAsk(session, functionName, kind); }};
}

// True if there is no refusal; otherwise it is shown.
bool showRefusal(Session& session, const std::optional<Desk::Box>& refusal)
{
  if (refusal)
    session.desk.ask(*refusal);
  return !refusal;
}

} // namespace

bool CheckOperateRight(Session& session, const QString& operatorName, const QString& functionName, RightKind kind)
{
  return showRefusal(session, refusalOf(session, operatorName, functionName, kind));
}

std::optional<Desk::Box> OperateRefusal(Session& session, const QString& functionName, RightKind kind)
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
