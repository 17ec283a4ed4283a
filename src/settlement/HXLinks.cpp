#include "settlement/HXLinks.h"

#include "ledger/BillKinds.h"
#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace HXLinks {
namespace {

// The one number that a query returns, in single precision; 0 if there is none.
float single(Session& session, const Statement& statement, QAnyStringView field)
{
  const Recordset rs = OpenRecordset(session, statement);
  return rs.eof() ? 0.0F : float(rs.number(field));
}

void restateHXMoney(Session& session, const QString& billCode, const QString& billType)
{
  const SqlNumber sum(NumberText::ofSingle(GetBillHXSum(session, billCode)));
  Execute(session, {u"update {}  set HXMoney= {}  where Code='{}' ", SqlName(BillTableOfType(billType)), sum, Trim(billCode)});
}

} // namespace

QString BillTableOfType(const QString& billType)
{
  const BillWriteOff& payment = *BillKinds::Payment.writeOff;
  const bool isPurchase =
      std::any_of(payment.goodsTypes.begin(), payment.goodsTypes.end(), [&](QStringView type) { return billType == type; });
  return QString::fromLatin1((isPurchase ? payment : *BillKinds::Receipt.writeOff).goodsTable);
}

QString othersInWords(Session& session, const QString& billCode, const QString& SFKBillCode)
{
  Recordset rs =
      LookUp(session, {u"select SFKBillCode,SFKBillDatee,HXMoney from TabSFKHeXiao where InOutBillCode='{}' and SFKBillCode<>'{}'"
                       u" order by SFKBillDatee,SFKBillCode",
                       Trim(billCode), Trim(SFKBillCode)});
  QStringList lines;
  for (; !rs.eof(); rs.moveNext())
    lines.append(u"  "_s + rs.trimmed("SFKBillCode") + u"，"_s + rs.trimmed("SFKBillDatee") + u"，"_s + rs.text("HXMoney"));
  return lines.isEmpty() ? QString() : u"单据 "_s + Trim(billCode) + u" 已由其他收付款单核销：\n"_s + lines.join(u'\n');
}

float GetBillHXSum(Session& session, const QString& billCode)
{
  return single(session, {u"select sum(HXMoney) as sumHXMoney  from TabSFKHeXiao   where InOutBillCode='{}' ", billCode}, "sumHXMoney");
}

float GetOthersHXSum(Session& session, const QString& billCode, const QString& SFKBillCode)
{
  return single(
      session,
      {u"select sum(HXMoney) as sumHXMoney  from TabSFKHeXiao   where InOutBillCode='{}' and SFKBillCode<>'{}' ", billCode, SFKBillCode},
      "sumHXMoney");
}

float GetBillDueMoney(Session& session, const QString& billCode, const QString& billType)
{
  return single(session,
                {u"select sumMoney-Cash-Credit as sumYHXMoney  from {}   where Code='{}' ", SqlName(BillTableOfType(billType)), billCode},
                "sumYHXMoney");
}

void DeleteHXLink(Session& session, const QString& billCode, const QString& billType, const QString& SFKBillCode)
{
  inOneTransaction(session, [&] {
    Execute(session, {u" delete   from TabSFKHeXiao   where InOutBillCode='{}'  and SFKBillCode='{}' ", Trim(billCode), Trim(SFKBillCode)});
    restateHXMoney(session, billCode, billType);
  });
}

std::optional<StoredLink> linkOf(Session& session, const QString& billCode, const QString& SFKBillCode)
{
  const Recordset rs = OpenRecordset(
      session, {u"select * from TabSFKHeXiao where InOutBillCode='{}' and SFKBillCode='{}' ", Trim(billCode), Trim(SFKBillCode)});
  if (rs.eof())
    return std::nullopt;
  return StoredLink{rs.text("HXDatee"), rs.text("InOutBillCode"),  rs.text("SFKBillCode"),
                    rs.text("HXMoney"), rs.text("InOutBillDatee"), rs.text("SFKBillDatee")};
}

void putBack(Session& session, const StoredLink& link, const QString& billType)
{
  Execute(session, {u" insert into TabSFKHeXiao values ( '{}' , '{}' , '{}' , {} , '{}' , '{}' ) ", link.HXDatee, link.InOutBillCode,
                    link.SFKBillCode, SqlNumber(link.HXMoney), link.InOutBillDatee, link.SFKBillDatee});
  restateHXMoney(session, link.InOutBillCode, billType);
}

void SaveHXRow(Session& session, const Link& link)
{
  DeleteHXLink(session, link.billCode, link.billType, link.SFKBillCode);
  // The space inside the quotes of the first date is part of the stored value.
  Execute(session, {u" insert into TabSFKHeXiao values (   ' {}'  , '{}'  , '{}' , {} , '{}'  , '{}'  ) ",
                    DateText::shortForm(session.machine.today()), link.billCode, link.SFKBillCode, SqlNumber(link.money), link.billDatee,
                    DateText::shortForm(link.SFKBillDatee)});
  restateHXMoney(session, link.billCode, link.billType);
}

} // namespace HXLinks
