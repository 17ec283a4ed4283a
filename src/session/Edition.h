#pragma once

#include <QStringView>

// True if the edition of the suite has an accounting module, so that bills show their voucher functions. Editions of
// pure inventory have none; an unknown or empty text counts as having one.
inline bool hasAccountingModule(QStringView visionType)
{
  return !visionType.contains(u"进销存") || visionType.contains(u"财务");
}
