#include "session/DotType.h"

#include "session/ModuleADO.h"
#include "session/Session.h"

namespace {

qint16 loadDecimals(Session& session, const QString& sql)
{
  const Recordset rs = OpenRecordset(session, sql);
  return rs.eof() ? qint16(-3) : qint16(rs.field("Num").toInteger());
}

} // namespace

DotType LoadDotSet(Session& session)
{
  DotType dots;
  dots.DotPrice = loadDecimals(session, "select * from TabDotSet where Name='单价型' ");
  dots.DotNumber = loadDecimals(session, "select * from TabDotSet where Name='数值型' ");
  dots.DotMoney = loadDecimals(session, "select * from TabDotSet where Name='金额型' or Name='货币型' ");
  return dots;
}
