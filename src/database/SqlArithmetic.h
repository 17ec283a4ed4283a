#pragma once

#include "database/SqlTokens.h"

// Finds the sums, differences and products of a statement and has the functions of SqliteArithmetic
// compute them: "(a-b)*c>d" becomes " exact_value('vv-v*',a,b,c)>d". SQLite has no operators of one's
// own, and its + - * are those of binary numbers.
//
// A select that does nothing but add up the columns of a derived table gets them with all their digits.
// What is divided, or joined with "||", stays as it is.
namespace SqlArithmetic {

// Appends what changes. `tokens` are those of `sql`.
void rewrite(QStringView sql, const std::vector<SqlToken>& tokens, std::vector<SqlEdit>& edits);

} // namespace SqlArithmetic
