#pragma once

#include <QDate>
#include <QString>

// When the sample firm works, and how its documents are numbered.
namespace SampleFirm {

QDate firstDay();
QDate lastDay();

// All months before the last have been audited.
bool isAudited(const QDate& day);
// The accounting has posted and closed the first month.
bool isPosted(const QDate& day);

// Prefix, eight digits of the day and a serial of the day, from 1.
QString documentCode(QStringView prefix, const QDate& day, int serial);

} // namespace SampleFirm
