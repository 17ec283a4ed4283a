#pragma once

#include <QDate>
#include <QString>

struct Session;

// The write-off of one payment or receipt, called from its bill screen.
namespace WriteOff {

// What differs between a payment and a receipt.
struct Kind {
  const char* headerTable;
  const char* HXMode;
  const char* zeroMessage;
};
inline constexpr Kind Payment{"TabPayfundBill", "付款核销", "付款金额为0不能执行核销！"};
inline constexpr Kind Receipt{"TabGathefundBill", "收款核销", "收款金额为0不能执行核销！"};

// The bill as it stands on the screen, changes included that are not saved yet.
struct Bill {
  QString code;  // TxtBillCode
  QString total; // caption of LabTotalMoney
  QString unitCode;
  QString unitName;
  QDate datee; // of DTPDate
};

// Opens the bench on a bill, over the bill's screen, and returns when it is closed. A bill that is not
// stored and a total of 0 are refused with a message. The connection is closed when this returns; the
// next statement opens it again.
void open(Session& session, const Kind& kind, const Bill& bill);

} // namespace WriteOff
