#pragma once

#include <QString>
#include <optional>

struct Session;

// Turning what an operator typed into a master record. Master tables belong to the other programs
// of the family and are only read; all are trees of Code, Name and ParentCode, and only a leaf, a
// row that is nobody's parent, may be used on a bill. Nothing is kept between two calls.
namespace ModFuntion {

struct TreeTypeCode {
  QString Code;
  QString Name;
};

// The leaf that the text names in a table, by "Code" or by "Name"; the first row if several bear it.
// Nothing if the text is empty, there is no such row, or the row is a group.
std::optional<TreeTypeCode> CheckLeafRecord(Session& session, const QString& text, const QString& table,
                                            const QString& field = QStringLiteral("Code"));

// The trail of an account's names, joined by ">": of a deeper account its ancestors below the top
// level and itself, led by its code if `withCode`; of a top-level account its own name. Empty unless
// exactly one row has the code.
QString GetAccountPath(Session& session, const QString& code, bool withCode);

// The same walk over any coded table, always led by the code. Empty if no row has it.
QString GetRecordPath(Session& session, const QString& table, const QString& code);

// The trimmed value if the account keeps the accounting of this kind ("往来核算", "部门核算",
// "个人核算"), else empty. For "自定义" the answer is the word for true or false, never the value.
QString GetAuxiliaryValue(Session& session, const QString& kind, const QString& accountCode, const QString& value);

} // namespace ModFuntion
