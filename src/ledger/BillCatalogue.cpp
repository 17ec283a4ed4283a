#include "ledger/BillCatalogue.h"

#include "platform/Trim.h"

namespace ModFuntion {
namespace {

struct BillType {
  const char16_t* name;
  const char* headerTable;
  const char* lineTable;
};

constexpr BillType Bills[] = {
    {u"采购入库单", "TabInBill", "TabInBillInf"},
    {u"购买入库单", "TabInBill", "TabInBillInf"},
    {u"采购退货单", "TabInCancleBill", "TabInCancleBillInf"},
    {u"购买退货单", "TabInCancleBill", "TabInCancleBillInf"},
    {u"采购订单", "TabInOrderBill", "TabInOrderBillInf"},
    {u"购买订单", "TabInOrderBill", "TabInOrderBillInf"},
    {u"其他入库单", "TabElseInBill", "TabElseInBillInf"},
    {u"商品入库单", "TabElseInBill", "TabElseInBillInf"},
    {u"同价调拨单", "TabSamePriceMove", "TabSamePriceMoveInf"},
    {u"异价调拨单", "TabDiffPriceMove", "TabDiffPriceMoveInf"},
    {u"商品调价单", "TabChangePrice", "TabChangePriceInf"},
    {u"盘点报损单", "TabCheckLose", "TabCheckLoseInf"},
    {u"盘点报溢单", "TabCheckOver", "TabCheckOverInf"},
    {u"商品组装单", "TabWareGroup", "TabWareGroupInf"},
    {u"商品拆卸单", "TabWarePiece", "TabWarePieceInf"},
    {u"付款单", "TabPayfundBill", "TabPayfundBillInf"},
    {u"收款单", "TabGathefundBill", "TabGathefundBillInf"},
    {u"银行存取款单", "TabKeepTake", ""},
    {u"银行存取(取现)单", "TabKeepTake", ""},
    {u"银行存取(存现)单", "TabKeepTake", ""},
    {u"费用开支单", "TabFee", "TabFeeInf"},
    {u"其他收入单", "TabElseIncome", "TabElseIncomeInf"},
    {u"费用抵冲单", "TabSustain", "TabSustainInf"},
    {u"费用抵冲(客户)单", "TabSustain", "TabSustainInf"},
    {u"费用抵冲(供应商)单", "TabSustain", "TabSustainInf"},
    {u"费用抵冲(客户)", "TabSustain", "TabSustainInf"},
    {u"费用抵冲(供应商)", "TabSustain", "TabSustainInf"},
    {u"销售出库单", "TabOutBill", "TabOutBillInf"},
    {u"销售退货单", "TabOutCancleBill", "TabOutCancleBillInf"},
    {u"销售订单", "TabOutOrderBill", "TabOutOrderBillInf"},
    {u"其他出库单", "TabElseOutBill", "TabElseOutBillInf"},
    {u"商品出库单", "TabElseOutBill", "TabElseOutBillInf"},
    {u"现金日记账", "TabDayAccount_Cash", ""},
    {u"银行日记账", "TabDayAccount_Bank", ""},
    {u"银行对账单", "TabDayAccount_BankBill", ""},
    {u"会计凭证", "TabWarrant", "TabWarrantInf"},
    // Master records have no lines: one table answers both questions.
    {u"商品", "TabWare", "TabWare"},
    {u"往来单位", "TabClient", "TabClient"},
    {u"收录客户", "TabClient_Sale", "TabClient_Sale"},
};

const BillType* find(const QString& billName)
{
  const QString name = Trim(billName);
  for (const BillType& bill : Bills)
    if (name == QStringView(bill.name))
      return &bill;
  return nullptr;
}

} // namespace

QString GetBillHeaderTable(const QString& billName)
{
  const BillType* const bill = find(billName);
  return bill ? QString::fromLatin1(bill->headerTable) : QString();
}

QString GetBillLineTable(const QString& billName)
{
  const BillType* const bill = find(billName);
  return bill ? QString::fromLatin1(bill->lineTable) : QString();
}

} // namespace ModFuntion
