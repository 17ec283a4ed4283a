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

// "yyyy-MM-dd" and nothing else: the form in which this system writes, compared byte by byte.
bool isIsoDay(const char* text, int size)
{
  return size == 10 && isDigit(text[0]) && isDigit(text[1]) && isDigit(text[2]) && isDigit(text[3]) && text[4] == '-' && isDigit(text[5]) &&
         isDigit(text[6]) && text[7] == '-' && isDigit(text[8]) && isDigit(text[9]);
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
