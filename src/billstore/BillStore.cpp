#include "billstore/BillStore.h"

#include "billstore/BillRows.h"
#include "ledger/BillCatalogue.h"
#include "platform/RunTimeError.h"
#include "session/ModuleADO.h"
#include "session/Session.h"
#include "vouchers/Voucher.h"

using namespace Qt::StringLiterals;

bool BillStore::isStored(const Id& bill) const
{
  return !OpenRecordset(m_session, {u"select Code from {} where Code='{}'", SqlName(bill.table), bill.code}).eof();
}

Statement BillStore::headerQuery(const Id& bill) const
{
  return {u"select * from {} where Code='{}'", SqlName(bill.table), bill.code};
}

Statement BillStore::linesQuery(const Id& bill) const
{
  return {u"select * from {} where {}='{}'", *lineTable(bill.table), SqlName(m_kind->lines->billCode), bill.code};
}

Recordset BillStore::header(const Id& bill) const
{
  return OpenRecordset(m_session, headerQuery(bill));
}

Recordset BillStore::lines(const Id& bill) const
{
  return m_kind->lines ? OpenRecordset(m_session, linesQuery(bill)) : Recordset();
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

void BillStore::drop()
{
  m_bill = {};
  m_rows.reset();
}

void BillStore::take(const Id& bill, const Recordset& header, const Recordset& lines)
{
  m_bill = bill;
  m_rows = rowsOf(header, lines);
}

std::optional<QStringList> BillStore::asRead() const
{
  return m_rows ? std::optional(QStringList{m_rows->auditor, m_rows->state} + m_rows->values) : std::nullopt;
}

void BillStore::takeBack(const Id& bill, const std::optional<QStringList>& asRead)
{
  m_bill = bill;
  m_rows.reset();
  if (asRead && asRead->size() > 2)
    m_rows = Rows{asRead->value(0), asRead->value(1), asRead->mid(2)};
}

// The mark that a voucher was made is no change of the bill.
BillStore::Rows BillStore::rowsOf(const Recordset& header, const Recordset& lines)
{
  Rows read;
  for (const Recordset* const rs : {&header, &lines})
    for (std::int64_t row = 0; rs->isOpen() && row < rs->rows().rows(); ++row)
      for (int column = 0; column < rs->rows().names().size(); ++column)
        if (const QString& name = rs->rows().names()[column]; name.compare("Report"_L1, Qt::CaseInsensitive) != 0)
          read.values.append(rs->rows().value(row, column).toText());
  if (header.rows().rows() > 0) {
    read.auditor = header.trimmed("Auditing");
    read.state = header.trimmed("State");
  }
  return read;
}

// Nothing if there is no bill, or it can't be read: whoever needs its rows gets the error.
std::optional<BillStore::Rows> BillStore::storedRows() const
{
  if (!hasBill())
    return std::nullopt;
  try {
    const Recordset header = OpenRecordsetForUpdate(m_session, headerQuery(m_bill));
    if (header.eof())
      return Rows();
    return rowsOf(header, m_kind->lines ? OpenRecordsetForUpdate(m_session, linesQuery(m_bill)) : Recordset());
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

BillStore::Change BillStore::changeByOthers()
{
  m_changed = m_rows ? storedRows() : std::nullopt;
  if (!m_changed || m_changed->values.isEmpty() || m_changed->values == m_rows->values)
    return Change::None;
  if (m_rows->auditor.isEmpty() && !m_changed->auditor.isEmpty())
    return Change::Audited;
  return m_changed->state != m_rows->state && m_changed->state == u"作废" ? Change::Voided : Change::Other;
}

void BillStore::inOneTransaction(const std::function<void()>& writes, const std::function<void()>& committed)
{
  const Id before = m_bill;
  const std::optional<Rows> rowsBefore = m_rows;
  try {
    ::inOneTransaction(m_session, writes, committed);
  } catch (const ActionLost&) {
    m_bill = before;
    m_rows = rowsBefore;
    throw;
  }
}

bool BillStore::replaces(const BillRecord& record) const
{
  return m_bill.code == record.code && m_bill.table.compare(headerTable(), Qt::CaseInsensitive) == 0 && isStored(m_bill);
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

QString BillStore::companions(End end, const QString& imagesOf) const
{
  QStringList gone;
  QStringList kept;
  if (const QString voucher = Vouchers::voucherInWords(m_session, m_bill.code); !voucher.isEmpty())
    gone.append(voucher);
  QStringList& others = end == End::Deleted ? gone : kept;
  Recordset links =
      LookUp(m_session, {u"select InOutBillCode,HXMoney from TabSFKHeXiao where SFKBillCode='{}' order by InOutBillCode", m_bill.code});
  for (; m_kind->writeOff && !links.eof(); links.moveNext())
    others.append(u"核销 "_s + links.trimmed("InOutBillCode") + u"："_s + links.text("HXMoney"));
  const Recordset images = LookUp(m_session, {u"select count(*) as Num from TabImg where BillCode='{}' and Type='{}'", m_bill.code,
                                              ModFuntion::GetBillImageKind(imagesOf)});
  if (!images.eof() && images.number("Num") > 0)
    others.append(u"图文 "_s + images.text("Num") + u" 份"_s);
  QStringList parts;
  for (const auto& [lines, heading] : {std::pair(gone, u"一并删除："_s), std::pair(kept, u"保留不变："_s)})
    if (!lines.isEmpty())
      parts.append(heading + u"\n  "_s + lines.join(u"\n  "_s));
  return parts.isEmpty() ? u"本单据没有凭证、核销和图文。"_s : parts.join(u'\n');
}

QString BillStore::lifeInWords() const
{
  const Recordset rs = LookUp(m_session, headerQuery(m_bill));
  if (rs.eof())
    return {};
  const QString auditor = rs.trimmed("Auditing");
  return u"单据 "_s + m_bill.code + u"：状态 "_s + rs.trimmed("State") + (auditor.isEmpty() ? u"，未审核"_s : u"，审核人 "_s + auditor) +
         u"，制单人 "_s + rs.trimmed("Operator");
}
