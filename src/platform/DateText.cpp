#include "platform/DateText.h"

#include "platform/RunTimeError.h"

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
  if (at < trimmed.size() && trimmed[at] != u' ' && trimmed[at] != u'T')
    return std::nullopt;
  const QDate date(year, month, day);
  return date.isValid() ? std::optional(date) : std::nullopt;
}

QString shortForm(const QDate& date)
{
  return date.toString(QStringLiteral("yyyy-MM-dd"));
}

QDate build(int year, int month, int day)
{
  const QDate date(year, month, day);
  if (!date.isValid())
    throw RunTimeError(RunTimeError::TypeMismatch, QStringLiteral("类型不匹配：%1-%2-%3 不是日期").arg(year).arg(month).arg(day));
  return date;
}

} // namespace DateText
