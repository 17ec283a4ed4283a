#include "ledger/BillCatalogue.h"

#include "ledger/BillKinds.h"
#include "platform/Trim.h"

using namespace Qt::StringLiterals;

namespace ModFuntion {
namespace {

struct BillTables {
  const char* header = "";
  const char* lines = "";
};

struct BillType {
  const char16_t* name;
  BillTables tables;
};

// Bills that are not in this program's catalogue.
constexpr BillType Bills[] = {
    {u"采购入库单", {"TabInBill", "TabInBillInf"}},
    {u"购买入库单", {"TabInBill", "TabInBillInf"}},
    {u"采购退货单", {"TabInCancleBill", "TabInCancleBillInf"}},
    {u"购买退货单", {"TabInCancleBill", "TabInCancleBillInf"}},
    {u"采购订单", {"TabInOrderBill", "TabInOrderBillInf"}},
    {u"购买订单", {"TabInOrderBill", "TabInOrderBillInf"}},
    {u"其他入库单", {"TabElseInBill", "TabElseInBillInf"}},
    {u"商品入库单", {"TabElseInBill", "TabElseInBillInf"}},
    {u"同价调拨单", {"TabSamePriceMove", "TabSamePriceMoveInf"}},
    {u"异价调拨单", {"TabDiffPriceMove", "TabDiffPriceMoveInf"}},
    {u"商品调价单", {"TabChangePrice", "TabChangePriceInf"}},
    {u"盘点报损单", {"TabCheckLose", "TabCheckLoseInf"}},
    {u"盘点报溢单", {"TabCheckOver", "TabCheckOverInf"}},
    {u"商品组装单", {"TabWareGroup", "TabWareGroupInf"}},
    {u"商品拆卸单", {"TabWarePiece", "TabWarePieceInf"}},
    {u"销售出库单", {"TabOutBill", "TabOutBillInf"}},
    {u"销售退货单", {"TabOutCancleBill", "TabOutCancleBillInf"}},
    {u"销售订单", {"TabOutOrderBill", "TabOutOrderBillInf"}},
    {u"其他出库单", {"TabElseOutBill", "TabElseOutBillInf"}},
    {u"商品出库单", {"TabElseOutBill", "TabElseOutBillInf"}},
    {u"现金日记账", {"TabDayAccount_Cash", ""}},
    {u"银行日记账", {"TabDayAccount_Bank", ""}},
    {u"银行对账单", {"TabDayAccount_BankBill", ""}},
    {u"会计凭证", {"TabWarrant", "TabWarrantInf"}},
    // Master records have no lines: both queries return the same table.
    {u"商品", {"TabWare", "TabWare"}},
    {u"往来单位", {"TabClient", "TabClient"}},
    {u"收录客户", {"TabClient_Sale", "TabClient_Sale"}},
};

BillTables find(const QString& billName)
{
  const QString name = Trim(billName);
  if (const BillKind* const kind = BillKinds::first(&BillKind::isCalled, name))
    return BillTables{kind->headerTable, kind->lines ? kind->lines->table : ""};
  for (const BillType& bill : Bills)
    if (name == QStringView(bill.name))
      return bill.tables;
  return {};
}

} // namespace

QString GetBillHeaderTable(const QString& billName)
{
  return QString::fromLatin1(find(billName).header);
}

QString GetBillLineTable(const QString& billName)
{
  return QString::fromLatin1(find(billName).lines);
}

QString GetBillImageKind(const QString& billName)
{
  return Trim(billName) + u"图片"_s;
}

} // namespace ModFuntion
