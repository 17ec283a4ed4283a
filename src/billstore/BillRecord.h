#pragma once

#include "platform/Currency.h"

#include <QDate>
#include <QList>
#include <QString>

// A bill as values, ready to be written: what its screen shows, or what a test sets. Texts are stored untrimmed: the
// caller trims them.

struct BillAccount {
  QString code;
  QString name;
};

struct BillLine {
  BillAccount account;
  Currency amount;
  QString remark;
};

struct BillRecord {
  QString code;
  QDate date;
  QString operatorName;
  QString saleMan;
  QString remark;
  QString type; // BillType
  QString currency = {};
  double rate = 1;
  QString auditor; // empty for a bill that is not audited
  QString state = QStringLiteral("正常");
  QString report = {}; // says that the voucher has been created
  Currency sum = {};
  QList<BillLine> lines = {}; // of a kind that has lines

  // Of a kind with a trading partner.
  BillAccount partner = {};
  QString offsetType = {}; // SustainType of a fee offset

  // Of an expense or other income: how much of the sum was paid through which account. Of a bank bill: the accounts
  // that the sum leaves and reaches.
  BillAccount cashOrOutgoing = {};
  BillAccount bankOrIncoming = {};
  Currency cash = {};
  Currency bank = {};
};
