#include "printing/ImageAttachments.h"

#include "ledger/BillCatalogue.h"
#include "platform/Trim.h"
#include "session/Mod_ZORVEKMain.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

namespace {

// The kind of attachment, and the order to the image manager.
QString imageKind(const QString& billName)
{
  return Trim(billName) + "图片";
}

} // namespace

void OpenBillImages(Session& session, const QString& billCode, const QString& billName)
{
  const QString table = ModFuntion::GetBillHeaderTable(billName);
  if (table.isEmpty())
    return session.desk.inform(QStringLiteral("不能确定单据对应的表名，图文管理失败！"));
  const QString code = Trim(billCode);
  if (OpenRecordset(session, {u"select Code from {} where Code='{}'", SqlName(table), code}).eof())
    return session.desk.inform(QStringLiteral("尚未保存数据，请先保存数据后重新操作图文功能！"));
  Mod_ZORVEKMain::RunSiblingProgram(session, imageKind(billName), {imageKind(billName), code});
}

void DeleteBillImages(Session& session, const QString& billCode, const QString& billName)
{
  OpenRecordset(session, {u" delete  from TabImg where BillCode='{}' and Type='{}' ", Trim(billCode), imageKind(billName)});
}
