#pragma once

#include <QString>
#include <vector>

// The system's SQL cut into tokens, for the dialect translation and for the check of what a
// statement is. Quoted texts and #dates# stay whole, so nothing inside them is taken for SQL.
struct SqlToken {
  enum Kind { Word, Number, Text, Date, Symbol, Blank };

  Kind kind;
  QString text; // as it stands in the statement, quotes and # included
  // The closing quote or # is missing.
  bool open = false;

  bool isWord(const char* lower) const { return kind == Word && text.compare(QLatin1String(lower), Qt::CaseInsensitive) == 0; }
  bool isSymbol(char c) const { return kind == Symbol && text == QLatin1Char(c); }
};

namespace SqlTokens {

// The tokens joined give the statement back, character for character. Comments are blanks.
std::vector<SqlToken> read(const QString& sql);
QString join(const std::vector<SqlToken>& tokens);

} // namespace SqlTokens
