#pragma once

#include "database/SqlTokens.h"

// Finds the sums, differences and products of a statement and has the functions of SqliteArithmetic compute them:
// "(a-b)*c>d" becomes " exact_value('vv-v*',a,b,c)>d". SQLite has no user-defined operators, and its + - * are binary
// floating point.
//
// A select that only adds up the columns of a derived table gets them with all their digits. Divisions and
// concatenations with "||" stay as they are.
namespace SqlArithmetic {

// Appends the changes. `tokens` are those of `sql`.
void rewrite(QStringView sql, const std::vector<SqlToken>& tokens, std::vector<SqlEdit>& edits);

} // namespace SqlArithmetic
