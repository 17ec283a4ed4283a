#pragma once

#include "billstore/BillRecord.h"
#include "database/Recordset.h"
#include "database/Statement.h"
#include "ledger/BillKinds.h"

#include <QStringList>

#include <optional>

struct Session;

// A bill in the database: saved, read, audited, voided, deleted. The only code that writes bill tables; it knows no
// screen. A bill is one row of its header table and, for most kinds, rows of its line table. It is never updated: an
// edit deletes and inserts. There is no transaction; a statement that fails has shown its box, and the next one runs.
//
// Always holds: `bill` is the bill that was loaded or saved last, and is stored; its code is empty if there is none.
// Audit, void, delete, voucher, write-off, images and prints are about it and nothing else.
class BillStore {
public:
  struct Id {
    QString table; // of the header
    QString code;
  };

  BillStore(Session& session, const BillKind& kind) : m_session(session), m_kind(&kind) {}

  const BillKind& kind() const { return *m_kind; }
  // Called when the screen turns into that of another kind.
  void setKind(const BillKind& kind) { m_kind = &kind; }
  QString headerTable() const { return QString::fromLatin1(m_kind->headerTable); }

  const Id& bill() const { return m_bill; }
  bool hasBill() const { return !m_bill.code.isEmpty(); }
  // The bill that has been shown is `bill` from now on; none without an argument.
  void take(const Id& bill = {}) { m_bill = bill; }

  // False for one that is not stored; a failed read throws RunTimeError.
  bool isStored(const Id& bill) const;
  // The rows of a bill; also works for other tables of the suite.
  Recordset header(const Id& bill) const;
  Recordset lines(const Id& bill) const;
  // The codes in a header table of the month of `day`, in their order; `condition` begins with " and ". Empty if they
  // cannot be read.
  QStringList codesOfMonth(const QString& table, const QDate& day, const Statement& condition) const;

  // Writes a record under its own code; with `replacesBill` in place of `bill`, whose write-off links go. False if
  // another bill has the code: then nothing of this one is written. A refused header leaves the lines, and no `bill`.
  bool save(const BillRecord& record, bool replacesBill);

  // Writes the auditor of `bill`; an empty name removes the audit.
  void setAuditor(const QString& name);
  void markVoid();
  // Deletes `bill` with its voucher, write-off links and lines, and the images stored for it under this name of its kind.
  void remove(const QString& imagesOf);

private:
  std::optional<SqlName> lineTable(const QString& headerTable) const;
  void deleteHeader();
  void deleteLines();
  void deleteWriteOffs();
  void deleteStrayLines(const BillRecord& record);
  bool insertHeader(const BillRecord& record);
  void insertLines(const BillRecord& record);

  Session& m_session;
  const BillKind* m_kind;
  Id m_bill;
};
