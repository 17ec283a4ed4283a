#include "samplefirm/SampleCalendar.h"

namespace SampleFirm {

QDate firstDay()
{
  return QDate(2022, 4, 1);
}

QDate lastDay()
{
  return QDate(2022, 6, 8);
}

bool isAudited(const QDate& day)
{
  return day.month() < lastDay().month();
}

bool isPosted(const QDate& day)
{
  return day.month() == firstDay().month();
}

QString documentCode(QStringView prefix, const QDate& day, int serial)
{
  return prefix.toString() + day.toString(QStringLiteral("yyyyMMdd")) + QString::number(serial).rightJustified(4, u'0');
}

} // namespace SampleFirm
