#include "settlement/HXLinks.h"

#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

namespace HXLinks {
namespace {

// The one number that a statement gives, in single precision; 0 for nothing.
float single(Session& session, const QString& sql, const QString& field)
{
  const Recordset rs = OpenRecordset(session, sql);
  return rs.eof() ? 0.0F : float(rs.number(field));
}

void restateHXMoney(Session& session, const QString& billCode, const QString& billType)
{
  OpenRecordset(session, "update " + BillTableOfType(billType) + " " + " set HXMoney= " +
                             NumberText::ofSingle(GetBillHXSum(session, billCode)) + " " + " where Code='" + Trim(billCode) + "' ");
}

} // namespace

QString BillTableOfType(const QString& billType)
{
  return billType == u"购买入库" || billType == u"采购入库" ? QStringLiteral("TabInBill") : QStringLiteral("TabOutBill");
}

float GetBillHXSum(Session& session, const QString& billCode)
{
  return single(session,
                QString("select sum(HXMoney) as sumHXMoney ") + " from TabSFKHeXiao  " + " where InOutBillCode='" + billCode + "' ",
                "sumHXMoney");
}

float GetBillDueMoney(Session& session, const QString& billCode, const QString& billType)
{
  return single(session,
                QString("select sumMoney-Cash-Credit as sumYHXMoney ") + " from " + BillTableOfType(billType) + "  " + " where Code='" +
                    billCode + "' ",
                "sumYHXMoney");
}

void DeleteHXLink(Session& session, const QString& billCode, const QString& billType, const QString& SFKBillCode)
{
  OpenRecordset(session, QString(" delete  ") + " from TabSFKHeXiao  " + " where InOutBillCode='" + Trim(billCode) + "' " +
                             " and SFKBillCode='" + Trim(SFKBillCode) + "' ");
  restateHXMoney(session, billCode, billType);
}

void SaveHXRow(Session& session, const Link& link)
{
  DeleteHXLink(session, link.billCode, link.billType, link.SFKBillCode);
  // The blank inside the quotes of the first date is part of the stored value.
  OpenRecordset(session, QString(" insert into TabSFKHeXiao values (  ") + " ' " + DateText::shortForm(session.machine.today()) + "'  " +
                             ", '" + link.billCode + "' " + " , '" + link.SFKBillCode + "' " + ", " + link.money + " " + ", '" +
                             link.billDatee + "' " + " , '" + DateText::shortForm(link.SFKBillDatee) + "' " + " ) ");
  restateHXMoney(session, link.billCode, link.billType);
}

} // namespace HXLinks
