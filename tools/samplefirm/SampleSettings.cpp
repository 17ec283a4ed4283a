#include "samplefirm/SampleFirm.h"

#include "samplefirm/RowWriter.h"

namespace SampleFirm {
namespace {

// What the two operators may do: read, edit, delete, print, audit.
struct Right {
  QStringView function;
  QStringView cashier; // five digits, 1 is granted
};

constexpr QStringView Accountant = u"11111";

constexpr Right Rights[] = {
    {u"付款", u"11010"},
    {u"收款", u"11010"},
    {u"银行存取", u"11010"},
    {u"费用开支", u"11010"},
    {u"其他收入", u"11010"},
    {u"费用抵冲(客户)", u"10010"},
    {u"费用抵冲(供应商)", u"10010"},
    {u"收付款核销", u"11010"},
    {u"收付款核销查询", u"10010"},
    {u"开票勾对", u"10000"},
    {u"开票金额汇总表", u"10000"},
    {u"凭证录入", u"10000"},
    {u"自动生成会计凭证对应科目设置", u"00000"},
    {u"往来单位信息录入", u"10000"},
    {u"商品信息录入", u"00000"},
    {u"员工信息录入", u"00000"},
    {u"现金银行设置", u"10000"},
    {u"界面列表格式设置", u"00000"},
    {u"外部报表管理", u"00000"},
};

void writeRight(RowWriter& rows, QStringView user, QStringView function, QStringView granted)
{
  rows.insert("TabOperateRight", {user, function, granted.sliced(0, 1), granted.sliced(1, 1), granted.sliced(2, 1), granted.sliced(3, 1),
                                  granted.sliced(4, 1)});
}

void writeVoucherSettings(RowWriter& rows)
{
  for (const QStringView book : {u"1", u"2", u"3"})
    rows.insert("TabAccountantNameSet", {book, book == u"1" ? u"1" : u"0"});
  for (const auto& [type, word] : {std::pair{u"记账凭证", u"记"}, {u"收款凭证", u"收"}, {u"付款凭证", u"付"}, {u"转账凭证", u"转"}})
    rows.insert("TabWarrantTypeSet", {type, word});
  // Closed up to the first month, whose vouchers are posted.
  rows.insert("TabWriteAccountant", {u"2022", u"3", u"已结账"});
  rows.insert("TabWriteAccountant", {u"2022", u"4", u"已结账"});
  rows.insert("TabWriteAccountant", {u"2022", u"5", u"未审核"});
  rows.insert("TabWriteAccountant", {u"2022", u"6", u"未审核"});
}

} // namespace

void writeSettings(RowWriter& rows)
{
  rows.insert("TabCompanyInf", {u"示例商贸有限公司"});
  for (const QStringView kind : {u"单价型", u"数值型", u"金额型"})
    rows.insert("TabDotSet", {kind, u"2"});
  rows.insert("TabMoneyType", {u"人民币", u"1", u"是"});
  rows.insert("TabMoneyType", {u"美元", u"6.68", u"否"});
  rows.insert("TabMoneyType", {u"欧元", u"7.15", u"否"});
  rows.insert("TabMoneyType", {u"港币", u"0.85", u"否"});
  rows.insert("TabMoneyType", {u"日元", u"0.05", u"否"});
  rows.insert("TabSysSetNew", {u"审核单据参与核算", u"0"});
  rows.insert("TabTurn", {u"2022-03-31"});
  rows.insert("TabTurnDay", {u"2022-04-30"});
  for (const Right& right : Rights) {
    writeRight(rows, u"张会计", right.function, Accountant);
    writeRight(rows, u"李出纳", right.function, right.cashier);
  }
  writeVoucherSettings(rows);
}

} // namespace SampleFirm
