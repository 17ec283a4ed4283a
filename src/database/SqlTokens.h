#pragma once

#include <QString>
#include <vector>

// SQL split into tokens, for the dialect translation and for the check of a statement. Quoted texts and #dates# are
// one token each, so nothing inside them is taken for SQL.
struct SqlToken {
  enum Kind : quint8 { Word, Number, Text, Date, Symbol, Comment };

  QStringView text; // as in the statement, quotes and # included
  Kind kind;
  bool open = false; // the closing quote or # is missing

  // `lower` has letters only.
  bool isWord(QLatin1String lower) const
  {
    return kind == Word && text.size() == lower.size() && (text[0].unicode() | 0x20) == lower[0].unicode() &&
           text.compare(lower, Qt::CaseInsensitive) == 0;
  }
  bool isSymbol(char16_t c) const { return kind == Symbol && text[0] == c; }
};

// A change of a statement: the characters from `from` up to `to` are replaced by `text`.
struct SqlEdit {
  qsizetype from;
  qsizetype to;
  QString text;
  int rank = 0; // of insertions at the same place, the lower comes first
};

namespace SqlTokens {

// The tokens in their order, without the spaces between them. Their texts are views of `sql`, which
// must outlive them: the large statements have a thousand tokens and are tokenized every time.
std::vector<SqlToken> read(QStringView sql);

// A text that `read` takes for one token: in these quotes, with those inside doubled.
QString quoted(const QString& text, QChar quote);

} // namespace SqlTokens
