#include "session/Session.h"

#include "platform/DateText.h"

QDate Session::operateDate() const
{
  return DateText::parse(params.OperateDate).value_or(machine.today());
}
