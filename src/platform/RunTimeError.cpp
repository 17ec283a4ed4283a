#include "platform/RunTimeError.h"

using namespace Qt::StringLiterals;

QString RunTimeError::text() const
{
  return u"运行时错误 %1：\r\n%2"_s.arg(int(m_number)).arg(m_description);
}
