#include "settlement/HXLinks.h"

#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

namespace HXLinks {
namespace {

// The one number that a statement gives, in single precision; 0 for nothing.
float single(Session& session, const Statement& statement, const QString& field)
{
  const Recordset rs = OpenRecordset(session, statement);
  return rs.eof() ? 0.0F : float(rs.number(field));
}

void restateHXMoney(Session& session, const QString& billCode, const QString& billType)
{
  const SqlNumber sum(NumberText::ofSingle(GetBillHXSum(session, billCode)));
  OpenRecordset(session, {u"update {}  set HXMoney= {}  where Code='{}' ", SqlName(BillTableOfType(billType)), sum, Trim(billCode)});
}

} // namespace

QString BillTableOfType(const QString& billType)
{
  return billType == u"购买入库" || billType == u"采购入库" ? QStringLiteral("TabInBill") : QStringLiteral("TabOutBill");
}

float GetBillHXSum(Session& session, const QString& billCode)
{
  return single(session, {u"select sum(HXMoney) as sumHXMoney  from TabSFKHeXiao   where InOutBillCode='{}' ", billCode}, "sumHXMoney");
}

float GetBillDueMoney(Session& session, const QString& billCode, const QString& billType)
{
  return single(session,
                {u"select sumMoney-Cash-Credit as sumYHXMoney  from {}   where Code='{}' ", SqlName(BillTableOfType(billType)), billCode},
                "sumYHXMoney");
}

void DeleteHXLink(Session& session, const QString& billCode, const QString& billType, const QString& SFKBillCode)
{
  OpenRecordset(session,
                {u" delete   from TabSFKHeXiao   where InOutBillCode='{}'  and SFKBillCode='{}' ", Trim(billCode), Trim(SFKBillCode)});
  restateHXMoney(session, billCode, billType);
}

void SaveHXRow(Session& session, const Link& link)
{
  DeleteHXLink(session, link.billCode, link.billType, link.SFKBillCode);
  // The blank inside the quotes of the first date is part of the stored value.
  OpenRecordset(session, {u" insert into TabSFKHeXiao values (   ' {}'  , '{}'  , '{}' , {} , '{}'  , '{}'  ) ",
                          DateText::shortForm(session.machine.today()), link.billCode, link.SFKBillCode, SqlNumber(link.money),
                          link.billDatee, DateText::shortForm(link.SFKBillDatee)});
  restateHXMoney(session, link.billCode, link.billType);
}

} // namespace HXLinks
