#include "database/SqliteCollations.h"

#include "platform/DateText.h"

#include <QString>

#include <algorithm>
#include <cstring>
#include <optional>
#include <sqlite3.h>

namespace SqliteCollations {
namespace {

bool isDigit(char c)
{
  return c >= '0' && c <= '9';
}

int twoDigits(const char* text)
{
  return isDigit(text[0]) && isDigit(text[1]) ? (text[0] - '0') * 10 + (text[1] - '0') : -1;
}

// "yyyy-MM-dd" and nothing else, the form that the suite writes, compared byte by byte. The day must exist, or the
// fast and the slow path would sort it differently; the 29th of February is left to the slow path.
bool isIsoDay(const char* text, int size)
{
  if (size != 10 || text[0] < '1' || text[0] > '9' || !isDigit(text[1]) || twoDigits(text + 2) < 0 || text[4] != '-' || text[7] != '-')
    return false;
  static constexpr int DaysOf[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const int month = twoDigits(text + 5);
  const int day = twoDigits(text + 8);
  return month >= 1 && month <= 12 && day >= 1 && day <= DaysOf[month];
}

// Compares as bytes; the shorter of two that agree comes first.
int compareBytes(const char* left, int leftSize, const char* right, int rightSize)
{
  const int order = std::memcmp(left, right, std::size_t(std::min(leftSize, rightSize)));
  return order != 0 ? order : leftSize - rightSize;
}

std::optional<qint64> dayOf(const char* text, int size)
{
  // No date is longer; a long text is not worth reading.
  if (size > 40)
    return std::nullopt;
  const auto date = DateText::parse(QString::fromUtf8(text, size));
  return date ? std::optional(date->toJulianDay()) : std::nullopt;
}

int compareDates(void*, int leftSize, const void* leftText, int rightSize, const void* rightText)
{
  const char* left = static_cast<const char*>(leftText);
  const char* right = static_cast<const char*>(rightText);
  if (isIsoDay(left, leftSize) && isIsoDay(right, rightSize))
    return std::memcmp(left, right, 10);
  const auto leftDay = dayOf(left, leftSize);
  const auto rightDay = dayOf(right, rightSize);
  if (leftDay && rightDay)
    return *leftDay < *rightDay ? -1 : *leftDay > *rightDay;
  if (leftDay || rightDay)
    return leftDay ? -1 : 1;
  return compareBytes(left, leftSize, right, rightSize);
}

} // namespace

int registerAll(sqlite3* database)
{
  return sqlite3_create_collation(database, Date, SQLITE_UTF8, nullptr, compareDates);
}

} // namespace SqliteCollations
