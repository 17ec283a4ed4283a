#include "printing/ImageAttachments.h"

#include "ledger/BillCatalogue.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"
#include "startup/Launcher.h"

using namespace Qt::StringLiterals;

void OpenBillImages(Session& session, const QString& billCode, const QString& billName)
{
  const QString table = ModFuntion::GetBillHeaderTable(billName);
  if (table.isEmpty())
    return session.desk.inform(u"不能确定单据对应的表名，图文管理失败！"_s);
  const QString code = Trim(billCode);
  if (OpenRecordset(session, {u"select Code from {} where Code='{}'", SqlName(table), code}).eof())
    return session.desk.inform(u"尚未保存数据，请先保存数据后重新操作图文功能！"_s);
  const QString kind = ModFuntion::GetBillImageKind(billName);
  Mod_ZORVEKMain::RunSiblingProgram(session, kind, {kind, code});
}
