#include "session/DotType.h"

#include "session/ModuleADO.h"
#include "session/Session.h"

namespace {

qint16 loadDecimals(Session& session, const Statement& statement)
{
  const Recordset rs = OpenRecordset(session, statement);
  const Value decimals = rs.eof() ? Value() : rs.field("Num");
  return decimals.isNull() ? qint16(-3) : qint16(decimals.toInteger());
}

} // namespace

DotType LoadDotSet(Session& session)
{
  DotType dots;
  dots.DotPrice = loadDecimals(session, {u"select * from TabDotSet where Name='单价型' "});
  dots.DotNumber = loadDecimals(session, {u"select * from TabDotSet where Name='数值型' "});
  dots.DotMoney = loadDecimals(session, {u"select * from TabDotSet where Name='金额型' or Name='货币型' "});
  return dots;
}
