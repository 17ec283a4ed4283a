#pragma once

#include "billstore/BillRecord.h"
#include "database/Recordset.h"
#include "database/Statement.h"
#include "ledger/BillKinds.h"

#include <QStringList>

#include <functional>
#include <optional>

struct Session;

// A bill in the database: saved, read, audited, voided, deleted. The only code that writes bill tables; it knows no
// screen. A bill is one row of its header table and, for most kinds, rows of its line table. It is never updated: an
// edit deletes and inserts. A statement that fails has shown its box, and the next one runs.
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
  // There is no `bill` from now on.
  void drop();
  // The bill that has been shown is `bill` from now on, with its rows as they were read.
  void take(const Id& bill, const Recordset& header, const Recordset& lines);

  // What `bill` was when it was read or written here, for takeBack; nothing if that is not known.
  std::optional<QStringList> asRead() const;
  // The bill that is shown again after another start is `bill`, which was read as this then. It may be another by now.
  void takeBack(const Id& bill, const std::optional<QStringList>& asRead);

  // False for one that is not stored; a failed read throws RunTimeError.
  bool isStored(const Id& bill) const;
  // The rows of a bill; also works for other tables of the suite. No lines of a kind without lines.
  Recordset header(const Id& bill) const;
  Recordset lines(const Id& bill) const;
  // The codes in a header table of the month of `day`, in their order; `condition` begins with " and ". Empty if they
  // cannot be read.
  QStringList codesOfMonth(const QString& table, const QDate& day, const Statement& condition) const;

  // What has become of `bill` since it was read or written here: another user may have changed it. Called at the start of
  // the transaction that writes it, so that it is still true when that is committed.
  enum class Change { None, Audited, Voided, Other };
  Change changeByOthers();
  // The user goes on over the change that was found.
  void acceptChange() { m_rows = m_changed; }
  // What is stored now was written here. Called in the transaction that wrote it.
  void remember() { m_rows = storedRows(); }

  // Runs the writes of one action as one transaction (see ModuleADO.h). If nothing of it is stored, `bill` is what it was.
  void inOneTransaction(const std::function<void()>& writes, const std::function<void()>& committed = [] {});

  // True if the record is an edit of `bill`, which is still stored.
  bool replaces(const BillRecord& record) const;
  // Writes a record under its own code; with `replacesBill` in place of `bill`, whose write-off links go. False if
  // another bill has the code: then nothing of this one is written. A refused header leaves the lines, and no `bill`.
  bool save(const BillRecord& record, bool replacesBill);

  // Writes the auditor of `bill`; an empty name removes the audit.
  void setAuditor(const QString& name);
  void markVoid();
  // Deletes `bill` with its voucher, write-off links and lines, and the images stored for it under this name of its kind.
  void remove(const QString& imagesOf);

  // In words, for the details of a question: the voucher, the write-offs and the images of `bill`, and what a delete or a void
  // makes of them. What can't be read is left out.
  enum class End { Deleted, Voided };
  QString companions(End end, const QString& imagesOf) const;
  // The same for a message: who has audited `bill`, and its state.
  QString lifeInWords() const;

private:
  // The rows of a bill as texts, and what they say of its life.
  struct Rows {
    QString auditor;
    QString state;
    QStringList values;
  };
  static Rows rowsOf(const Recordset& header, const Recordset& lines);
  std::optional<Rows> storedRows() const;
  Statement headerQuery(const Id& bill) const;
  Statement linesQuery(const Id& bill) const;

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
  std::optional<Rows> m_rows;    // of `bill`, when it was read or written
  std::optional<Rows> m_changed; // the same as changeByOthers found it
};
