#pragma once

#include "support/AccountSetFixture.h"
#include "vouchers/VoucherBill.h"

// An account set with a chart, partners and one bill of each kind, none of which has a voucher. The
// payable account 2202 and the bank account 1002 are kept by partners, no other is.
struct VoucherFixture : AccountSetFixture {
  VoucherFixture()
  {
    file.run("insert into TabAccountantType(Code,ParentCode,Name,AllName,WLHS,ZDYHS) values"
             "('1','0','资产','资产',0,0),('1001','1','库存现金','库存现金',0,1),('1002','1','银行存款','银行存款',1,0),"
             "('100201','1002','工行','银行存款_工行',1,0),('1122','1','应收账款','应收账款',0,0),('2','0','负债','负债',0,0),"
             "('2202','2','应付账款','应付账款',1,0),('5601','5','销售费用','销售费用',0,0);"
             "insert into TabClient(Code,Name,YingFuCode,YuFuCode,YingShouCode) "
             "values('K001','华联','2202','1123','1122'),('K002','银座','',null,null);"
             "insert into TabMoneyType values('人民币',1,'是'),('美元',6.5,'否')");
    file.run(
        "insert into TabPayfundBill(Code,Datee,UnitCode,UnitName,SumMoney) values('FKD1','2022-6-8','K001','华联公司',105);"
        "insert into TabPayfundBillInf(BillCode,LineNo,AccountantCode,AccountantName,Moneyy) values"
        "('FKD1',1,'1001','现金',60),('FKD1',2,'1001','现金',0),('FKD1',3,'100201','工行',-2.5),('FKD1',4,'9999','没有',5),"
        "('FKD1',5,'1001','现金',60);"
        "insert into TabGathefundBill(Code,Datee,UnitCode,UnitName,SumMoney) values('SKD1','2022-06-08','K001','华联公司',100);"
        "insert into TabGathefundBillInf(BillCode,LineNo,AccountantCode,AccountantName,Moneyy) values('SKD1',1,'100201','工行',100);"
        "insert into TabKeepTake(Code,Datee,SumMoney,AccountCodeC,AccountNameC,AccountCodeR,AccountNameR) values"
        "('CQD1','2022-06-08',80,'1001','现金','100201','工行');"
        "insert into TabFee(Code,Datee,SumMoney,Cash,CashCode,CashName,Credit,CreditCode,CreditName) values"
        "('FYD1','2022-06-08',90,40,'1001','现金',50,'100201','工行');"
        "insert into TabFeeInf(Code,LineNo,AccountCode,AccountName,Moneyy) values('FYD1',1,'5601','费用',70),('FYD1',2,'5601','费用',20);"
        "insert into TabElseIncome select replace(Code,'FYD','QSD'),Datee,SumMoney,Cash,Credit,CashCode,CreditCode,CashName,CreditName,"
        "Operator,Remark,BillType,State,Report,SaleMan,MoneyName,MoneyRate,Auditing from TabFee;"
        "insert into TabElseIncomeInf(Code,LineNo,AccountCode,AccountName,Moneyy) "
        "select replace(Code,'FYD','QSD'),LineNo,AccountCode,AccountName,Moneyy from TabFeeInf;"
        "insert into TabSustain(Code,Datee,UnitCode,UnitName,SumMoney,SustainType) values"
        "('DCD1','2022-06-08','K001','华联公司',30,'供应商'),('DCD2','2022-06-08','K001','华联公司',30,'客户');"
        "insert into TabSustainInf(Code,LineNo,AccountantCode,AccountantName,Moneyy) "
        "values('DCD1',1,'5601','费用',30),('DCD2',1,'5601','费用',30)");
  }

  // The bills as their screens show them.
  Vouchers::VoucherBill payment{"付款单", "TabPayfundBill", "FKD1", " K001 ", " 美元 ", "6.5"};
  Vouchers::VoucherBill receipt{"收款单", "TabGathefundBill", "SKD1", "K001", "人民币", "1"};
  Vouchers::VoucherBill bank{"银行存取款单", "TabKeepTake", "CQD1", {}, "美元", "6.5"};
  Vouchers::VoucherBill expense{"费用开支单", "TabFee", "FYD1", {}, "人民币", "1"};
  Vouchers::VoucherBill income{"其他收入单", "TabElseIncome", "QSD1", {}, "人民币", "1"};
  Vouchers::VoucherBill supplierOffset{"费用抵冲(供应商)", "TabSustain", "DCD1", "K001", "人民币", "1"};
  Vouchers::VoucherBill customerOffset{"费用抵冲(客户)", "TabSustain", "DCD2", "K001", "人民币", "1"};
};
