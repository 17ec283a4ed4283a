#include "platform/DateText.h"

#include "platform/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace DateText {
namespace {

bool isSeparator(QChar c)
{
  return c == u'-' || c == u'/' || c == u'.';
}

// Reads up to `most` digits at `at`; -1 if there is none.
int readNumber(QStringView text, qsizetype& at, int most)
{
  const qsizetype start = at;
  int value = 0;
  while (at < text.size() && at - start < most && text[at] >= u'0' && text[at] <= u'9')
    value = value * 10 + (text[at++].unicode() - u'0');
  return at == start ? -1 : value;
}

// "9:30", "09:30:00" or "09:30:00.000": what may follow a date.
bool isTime(QStringView text)
{
  qsizetype at = 0;
  const int hour = readNumber(text, at, 2);
  if (hour < 0 || hour > 23 || at >= text.size() || text[at++] != u':')
    return false;
  int part = readNumber(text, at, 2);
  if (part >= 0 && part < 60 && at < text.size() && text[at] == u':')
    part = readNumber(text, ++at, 2);
  if (part < 0 || part > 59)
    return false;
  if (at < text.size() && text[at] == u'.')
    readNumber(text, ++at, 9);
  return at == text.size();
}

} // namespace

std::optional<QDate> parse(QStringView text)
{
  const QStringView trimmed = text.trimmed();
  qsizetype at = 0;
  const int year = readNumber(trimmed, at, 4);
  if (at != 4 || at >= trimmed.size() || !isSeparator(trimmed[at]))
    return std::nullopt;
  const QChar separator = trimmed[at++];
  const int month = readNumber(trimmed, at, 2);
  if (month < 0 || at >= trimmed.size() || trimmed[at++] != separator)
    return std::nullopt;
  const int day = readNumber(trimmed, at, 2);
  const QStringView rest = trimmed.mid(at);
  if (!rest.isEmpty() && ((rest[0] != u' ' && rest[0] != u'T') || !isTime(rest.mid(1).trimmed())))
    return std::nullopt;
  const QDate date(year, month, day);
  return date.isValid() ? std::optional(date) : std::nullopt;
}

QString shortForm(const QDate& date)
{
  if (!date.isValid() || date.year() < 1 || date.year() > 9999)
    return date.toString(u"yyyy-MM-dd"_s);
  // Hot path: nearly every SQL statement formats a date.
  QString text = u"0000-00-00"_s;
  const auto write = [&text](qsizetype at, int number) {
    for (; number > 0; number /= 10)
      text[at--] = QChar(u'0' + number % 10);
  };
  write(3, date.year());
  write(6, date.month());
  write(9, date.day());
  return text;
}

QDate build(int year, int month, int day)
{
  const QDate date(year, month, day);
  if (!date.isValid())
    throw RunTimeError(RunTimeError::TypeMismatch, u"类型不匹配：%1-%2-%3 不是日期"_s.arg(year).arg(month).arg(day));
  return date;
}

} // namespace DateText
