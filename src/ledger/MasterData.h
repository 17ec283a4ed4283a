#pragma once

#include <QString>
#include <optional>

struct Session;

// Looks up master records from what an operator typed. Master tables belong to the other programs of the suite and
// are only read; all are trees of Code, Name and ParentCode, and only a leaf may be used on a bill. Nothing is
// cached.
namespace ModFuntion {

struct TreeTypeCode {
  QString Code;
  QString Name;
};

// The leaf that the text names in a table, by "Code" or by "Name"; the first row if several match. Nothing if the
// text is empty, there is no such row, or the row is a group.
std::optional<TreeTypeCode> CheckLeafRecord(Session& session, const QString& text, const QString& table, const QString& field);

// The path of an account's names, joined by ">": for a deeper account its ancestors below the top level and itself,
// preceded by its code if `withCode`; for a top-level account its own name. Empty unless exactly one row has the
// code.
QString GetAccountPath(Session& session, const QString& code, bool withCode);

// The same for any coded table, always preceded by the code. Empty if no row has it.
QString GetRecordPath(Session& session, const QString& table, const QString& code);

// The trimmed value if the account has auxiliary accounting of this kind ("往来核算", "部门核算", "个人核算"), else empty. For
// "自定义" it is "True" or "False", never the value.
QString GetAuxiliaryValue(Session& session, const QString& kind, const QString& accountCode, const QString& value);

} // namespace ModFuntion
