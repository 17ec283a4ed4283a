#pragma once

#include <QDate>
#include <QString>

struct BillKind;
struct Session;

// The write-off of one payment or receipt, called from its bill screen.
namespace WriteOff {

// The bill as shown, including unsaved changes.
struct Bill {
  QString code;  // TxtBillCode
  QString total; // caption of LabTotalMoney
  QString unitCode;
  QString unitName;
  QDate datee; // of DTPDate
};

// Opens the write-off of a bill of this kind, over the bill's screen, and returns when it is closed. A bill that is not
// stored and a total of 0 are refused with a message. The connection is closed when this returns; the
// next statement opens it again.
void open(Session& session, const BillKind& kind, const Bill& bill);

} // namespace WriteOff
