#include "printing/ImageAttachments.h"

#include "platform/Trim.h"
#include "session/ModuleADO.h"

void DeleteBillImages(Session& session, const QString& billCode, const QString& billName)
{
  OpenRecordset(session, " delete  from TabImg where BillCode='" + Trim(billCode) + "'" + " and Type='" + Trim(billName) + "图片" + "' ");
}
