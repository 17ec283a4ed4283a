#pragma once

#include "support/AccountSetFixture.h"
#include "vouchers/VoucherBill.h"

// An account set with a chart, partners and one bill of each kind, none of which has a voucher. The
// payable account 2202 and the bank account 1002 are kept by partners, no other is.
struct VoucherFixture : AccountSetFixture {
  VoucherFixture();

  // The bills as their screens show them.
  Vouchers::VoucherBill payment{QStringLiteral("付款单"), QStringLiteral("TabPayfundBill"), QStringLiteral("FKD1"),
                                QStringLiteral(" K001 "), QStringLiteral(" 美元 "),         QStringLiteral("6.5")};
  Vouchers::VoucherBill receipt{QStringLiteral("收款单"), QStringLiteral("TabGathefundBill"), QStringLiteral("SKD1"),
                                QStringLiteral("K001"),   QStringLiteral("人民币"),           QStringLiteral("1")};
  Vouchers::VoucherBill bank{QStringLiteral("银行存取款单"), QStringLiteral("TabKeepTake"), QStringLiteral("CQD1"), {},
                             QStringLiteral("美元"),         QStringLiteral("6.5")};
  Vouchers::VoucherBill expense{QStringLiteral("费用开支单"), QStringLiteral("TabFee"), QStringLiteral("FYD1"), {},
                                QStringLiteral("人民币"),     QStringLiteral("1")};
  Vouchers::VoucherBill income{QStringLiteral("其他收入单"), QStringLiteral("TabElseIncome"),
                               QStringLiteral("QSD1"),       {},
                               QStringLiteral("人民币"),     QStringLiteral("1")};
  Vouchers::VoucherBill supplierOffset{
      QStringLiteral("费用抵冲(供应商)"), QStringLiteral("TabSustain"), QStringLiteral("DCD1"), QStringLiteral("K001"),
      QStringLiteral("人民币"),           QStringLiteral("1")};
  Vouchers::VoucherBill customerOffset{QStringLiteral("费用抵冲(客户)"), QStringLiteral("TabSustain"), QStringLiteral("DCD2"),
                                       QStringLiteral("K001"),           QStringLiteral("人民币"),     QStringLiteral("1")};
};
