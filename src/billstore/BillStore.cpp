#include "billstore/BillStore.h"

#include "billstore/BillRows.h"
#include "ledger/BillCatalogue.h"
#include "session/ModuleADO.h"
#include "session/Session.h"
#include "vouchers/Voucher.h"

using namespace Qt::StringLiterals;

bool BillStore::isStored(const Id& bill) const
{
  return !OpenRecordset(m_session, {u"select Code from {} where Code='{}'", SqlName(bill.table), bill.code}).eof();
}

Recordset BillStore::header(const Id& bill) const
{
  return OpenRecordset(m_session, {u"select * from {} where Code='{}'", SqlName(bill.table), bill.code});
}

Recordset BillStore::lines(const Id& bill) const
{
  return OpenRecordset(m_session, {u"select * from {} where {}='{}'", *lineTable(bill.table), SqlName(m_kind->lines->billCode), bill.code});
}

QStringList BillStore::codesOfMonth(const QString& table, const QDate& day, const Statement& condition) const
{
  const QDate first(day.year(), day.month(), 1);
  const QDate last(day.year(), day.month(), day.daysInMonth());
  Recordset rs =
      OpenRecordset(m_session, {u"select  Code from {}    where Datee>={}    and  Datee<={}{}  order by Datee, Code ", SqlName(table),
                                SqlDialect::date(m_session, first), SqlDialect::date(m_session, last), condition});
  QStringList codes;
  for (; rs.isOpen() && !rs.eof(); rs.moveNext())
    codes.append(rs.trimmed("Code"));
  return codes;
}

bool BillStore::save(const BillRecord& record, bool replacesBill)
{
  if (replacesBill) {
    deleteHeader();
    deleteLines();
    deleteWriteOffs();
  }
  if (isStored({headerTable(), record.code}))
    return false;
  m_bill = {};
  deleteStrayLines(record);
  if (!insertHeader(record))
    return false;
  insertLines(record);
  return true;
}

// In the suite the lines of every header table are in the table of its name and "Inf".
std::optional<SqlName> BillStore::lineTable(const QString& headerTable) const
{
  return m_kind->lines ? std::optional(SqlName(headerTable + u"Inf"_s)) : std::nullopt;
}

void BillStore::deleteHeader()
{
  Execute(m_session, {u"delete from {}  where Code='{}'", SqlName(m_bill.table), m_bill.code});
}

void BillStore::deleteLines()
{
  if (const auto lines = lineTable(m_bill.table))
    Execute(m_session, {u"delete from {}  where {}='{}'", *lines, SqlName(m_kind->lines->billCode), m_bill.code});
}

void BillStore::deleteWriteOffs()
{
  if (m_kind->writeOff)
    Execute(m_session, {u"delete from TabSFKHeXiao where  SFKBillCode='{}'", m_bill.code});
}

// Deletes the lines that a refused header has left under this code. One statement also checks that the code has no
// header, so that another operator's lines are never deleted.
void BillStore::deleteStrayLines(const BillRecord& record)
{
  if (const auto lines = lineTable(headerTable()))
    Execute(m_session, {u"delete from {}  where {}='{}' and not exists (select Code from {} where Code='{}')", *lines,
                        SqlName(m_kind->lines->billCode), record.code, SqlName(headerTable()), record.code});
}

// False if another operator has taken the code meanwhile: then the lines are theirs. If the connection was lost, only
// the row itself shows whether it was written.
bool BillStore::insertHeader(const BillRecord& record)
{
  const Id id{headerTable(), record.code};
  const bool isInserted = Execute(m_session, {u"insert into  {} values({})", SqlName(id.table), BillRows::header(*m_kind, record)});
  const bool wasLost = !m_session.connection.isOpen();
  const bool isThere = isInserted || isStored(id);
  if (isThere && !isInserted && !wasLost)
    return false;
  if (isThere)
    m_bill = id;
  return true;
}

void BillStore::insertLines(const BillRecord& record)
{
  for (int number = 1; number <= record.lines.size(); ++number)
    Execute(m_session, {u"insert into {} values({})", *lineTable(headerTable()), BillRows::line(*m_kind, record, number)});
}

void BillStore::setAuditor(const QString& name)
{
  Execute(m_session, {u"update {}  set Auditing='{}'  where Code='{}' ", SqlName(m_bill.table), name, m_bill.code});
  if (const auto lines = lineTable(m_bill.table))
    Execute(m_session, {u"update {}  set Auditing='{}'  where {}='{}' ", *lines, name, SqlName(m_kind->lines->billCode), m_bill.code});
}

void BillStore::markVoid()
{
  Execute(m_session, {u"update  {} set State='作废' where Code='{}'", SqlName(m_bill.table), m_bill.code});
  if (const auto lines = lineTable(m_bill.table))
    Execute(m_session, {u"update {} set State='作废' where {}='{}' ", *lines, SqlName(m_kind->lines->billCode), m_bill.code});
}

void BillStore::remove(const QString& imagesOf)
{
  Vouchers::DeleteVoucher(m_session, m_bill.code);
  deleteWriteOffs();
  deleteLines();
  deleteHeader();
  Execute(m_session, {u" delete  from TabImg where BillCode='{}' and Type='{}' ", m_bill.code, ModFuntion::GetBillImageKind(imagesOf)});
  m_bill = {};
}
