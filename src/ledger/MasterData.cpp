#include "ledger/MasterData.h"

#include "platform/Trim.h"
#include "session/ModuleADO.h"

using namespace Qt::StringLiterals;

namespace ModFuntion {
namespace {

struct Trail {
  QString code;
  QString path; // the names from below the top level down to the record
  bool isBelowTop = false;
};

// Walks from the current row of `rs` up to the top level, whose name is never part of the trail. At most as many
// steps as the code has characters, so that a cycle in the data terminates.
Trail walkUp(Session& session, const QString& table, const Recordset& rs)
{
  Trail trail{rs.trimmed("Code"), rs.trimmed("Name")};
  QString parent = rs.trimmed("ParentCode");
  const qsizetype depth = rs.text("Code").size();
  for (qsizetype step = 0; step < depth && parent != u"0"; ++step) {
    const Recordset above = OpenRecordset(session, {u"select * from {} Where Code='{}'", SqlName(table), parent});
    if (above.eof())
      break;
    parent = above.trimmed("ParentCode");
    if (parent == u"0")
      trail.isBelowTop = true;
    else
      trail.path = above.trimmed("Name") + u'>' + trail.path;
  }
  return trail;
}

QString flagColumn(const QString& kind)
{
  if (kind == u"往来核算")
    return u"WLHS"_s;
  if (kind == u"部门核算")
    return u"BMHS"_s;
  if (kind == u"个人核算")
    return u"GRHS"_s;
  return kind == u"自定义" ? u"ZDYHS"_s : QString();
}

} // namespace

std::optional<TreeTypeCode> CheckLeafRecord(Session& session, const QString& text, const QString& table, const QString& field)
{
  if (text.isEmpty())
    return std::nullopt;
  const SqlName column(field == u"Name" ? "Name" : "Code");
  const Recordset rs = OpenRecordset(session, {u"select * from {} where {}='{}'", SqlName(table), column, Trim(text)});
  if (rs.eof())
    return std::nullopt;
  const TreeTypeCode found{rs.text("Code"), rs.text("Name")};
  const Recordset children = OpenRecordset(session, {u"select * from  {} where ParentCode='{}'", SqlName(table), found.Code});
  return children.eof() ? std::optional(found) : std::nullopt;
}

QString GetAccountPath(Session& session, const QString& code, bool withCode)
{
  const Recordset rs = OpenRecordset(session, {u"select * from TabAccountantType where Code='{}'", Trim(code)});
  if (rs.recordCount() != 1)
    return {};
  const Trail trail = walkUp(session, u"TabAccountantType"_s, rs);
  return withCode && trail.isBelowTop ? trail.code + u'>' + trail.path : trail.path;
}

QString GetRecordPath(Session& session, const QString& table, const QString& code)
{
  if (Trim(table).isEmpty() || Trim(code).isEmpty())
    return {};
  const Recordset rs = OpenRecordset(session, {u"select * from {} where Code='{}'", SqlName(Trim(table)), Trim(code)});
  if (rs.eof())
    return {};
  const Trail trail = walkUp(session, Trim(table), rs);
  return trail.path.isEmpty() ? QString() : trail.code + u'>' + trail.path;
}

QString GetAuxiliaryValue(Session& session, const QString& kind, const QString& accountCode, const QString& value)
{
  const QString column = flagColumn(kind);
  if (column.isEmpty())
    return {};
  const Recordset rs =
      OpenRecordset(session, {u"select {} as HS from TabAccountantType where Code='{}' ", SqlName(column), Trim(accountCode)});
  if (rs.eof())
    return {};
  const bool isOn = rs.number("HS") == 1;
  if (kind == u"自定义")
    return isOn ? u"True"_s : u"False"_s;
  return isOn ? Trim(value) : QString();
}

} // namespace ModFuntion
