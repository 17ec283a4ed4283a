#include "ledger/BillCode.h"

#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

using namespace Qt::StringLiterals;

namespace ModFuntion {

QString GetNextBillCode(Session& session, const QString& prefix, const QString& table)
{
  const QDate today = session.machine.today();
  const QString head = Trim(prefix) + today.toString(u"yyyyMMdd"_s);
  const Recordset rs = OpenRecordset(session, {u"select max(Code) as Codee from {}  where Code like '{}%' ", SqlName(table), head});
  const QString highest = rs.eof() ? QString() : rs.trimmed("Codee");
  if (highest.isEmpty())
    return head + u"0001"_s;

  const QDate stored = DateText::build(highest.mid(3, 4).toInt(), highest.mid(7, 2).toInt(), highest.mid(9, 2).toInt());
  if (stored != today)
    return head + u"0001"_s;
  const double serial = NumberText::numericPrefix(highest.mid(11)) + 1;
  return head + NumberText::ofDouble(serial).rightJustified(4, u'0');
}

} // namespace ModFuntion
