#pragma once

#include <QDate>
#include <QString>

#include <optional>

struct Session;

// The links of TabSFKHeXiao, one for each goods bill and money bill that settle each other, and the running sum of
// its links in HXMoney of the goods bill. After every call that writes, HXMoney of the goods bill is the sum of its
// links; each statement is independent.
//
// Sums are kept in single precision, seven significant digits: what is compared with a money bill's total is rounded
// the same way.
namespace HXLinks {

// The table of a goods bill by the text of its type: purchases, or else sales.
QString BillTableOfType(const QString& billType);

// What other money bills than this one have settled of a goods bill.
float GetOthersHXSum(Session& session, const QString& billCode, const QString& SFKBillCode);
// The same in words, for the details of a message; empty if there are none, or they can't be read.
QString othersInWords(Session& session, const QString& billCode, const QString& SFKBillCode);
// What has been written off of a goods bill by all its links; 0 without any.
float GetBillHXSum(Session& session, const QString& billCode);
// What is to be written off of a goods bill: its sum minus Cash and Credit.
float GetBillDueMoney(Session& session, const QString& billCode, const QString& billType);

void DeleteHXLink(Session& session, const QString& billCode, const QString& billType, const QString& SFKBillCode);

// A link as it is stored, so that it can be put back after it was deleted.
struct StoredLink {
  QString HXDatee;
  QString InOutBillCode;
  QString SFKBillCode;
  QString HXMoney;
  QString InOutBillDatee;
  QString SFKBillDatee;
};
// Nothing if these two bills are not linked.
std::optional<StoredLink> linkOf(Session& session, const QString& billCode, const QString& SFKBillCode);
void putBack(Session& session, const StoredLink& link, const QString& billType);

// One link as it is written.
struct Link {
  QString billCode;
  QString billType;
  QString billDatee; // as the list shows it
  QString SFKBillCode;
  QDate SFKBillDatee;
  QString money; // a plain number
};

// Writes a link, in place of an earlier one of the same two bills.
void SaveHXRow(Session& session, const Link& link);

} // namespace HXLinks
