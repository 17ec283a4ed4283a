#include "bills/BillTraits.h"

namespace {

// Cash and bank. Without brackets: the picker's own condition, added behind, holds for the last part only.
constexpr SqlLiteral CashBankFilter = u"  where Code = '1' or    Code  ='1001' or Code= '1002' "
                                      u" or ParentCode like '1001%' or ParentCode like '1002%'";
constexpr SqlLiteral FeeAccountFilter = u"  where Code like  '5%'  or Code like  '6%'  ";

constexpr LineTraits PaymentLines{
    .table = "TabPayfundBillInf",
    .linkColumn = "BillCode",
    .accountCodeColumn = "AccountantCode",
    .accountNameColumn = "AccountantName",
    .accountCodeHeading = u"付款账户编号",
    .accountNameHeading = u"付款账户名称",
    .attention = u"注意：在列表中输入数据后击回车键确定！在付款帐户编号列双击可直接选择。",
    .accountFilter = CashBankFilter,
    .accountPickerTitle = u"",
    .accountPickerTarget = u"",
    .noLines = u"没有付款数据输入！",
    .wrongAccount = u"付款账户为  ",
};

constexpr LineTraits ReceiptLines{
    .table = "TabGathefundBillInf",
    .linkColumn = "BillCode",
    .accountCodeColumn = "AccountantCode",
    .accountNameColumn = "AccountantName",
    .accountCodeHeading = u"收款账户编号",
    .accountNameHeading = u"收款账户名称",
    .attention = u"注意：在列表中输入数据后击回车键确定！在收款帐户编号列双击可直接选择。",
    .accountFilter = CashBankFilter,
    .accountPickerTitle = u"",
    .accountPickerTarget = u"",
    .noLines = u"没有收款数据输入！",
    .wrongAccount = u"收款账户为  ",
};

constexpr LineTraits feeLines(const char* table, const char16_t* codeHeading, const char16_t* nameHeading)
{
  return {
      .table = table,
      .linkColumn = "Code",
      .accountCodeColumn = "AccountCode",
      .accountNameColumn = "AccountName",
      .accountCodeHeading = codeHeading,
      .accountNameHeading = nameHeading,
      .attention = u"注意：在列表中输入数据后击回车键确定！在科目编号或科目名称列双击可直接选择。",
      .accountFilter = FeeAccountFilter,
      // Expenses too: the classes offered are those of both.
      .accountPickerTitle = u"收入科目",
      .accountPickerTarget = u"Text2",
      .noLines = u"没有数据输入！",
      .wrongAccount = u"科目  ",
  };
}

constexpr LineTraits ExpenseLines = feeLines("TabFeeInf", u"费用科目编号", u"费用科目名称");
constexpr LineTraits OtherIncomeLines = feeLines("TabElseIncomeInf", u"收入科目编号", u"收入科目名称");

constexpr LineTraits FeeOffsetLines{
    .table = "TabSustainInf",
    .linkColumn = "Code",
    .accountCodeColumn = "AccountantCode",
    .accountNameColumn = "AccountantName",
    .accountCodeHeading = u"抵冲账户编号",
    .accountNameHeading = u"抵冲账户名称",
    .attention = u"注意：在列表中输入数据后击回车键确定！在帐户编号或帐户名称列双击可直接选择。",
    .accountFilter = FeeAccountFilter,
    .accountPickerTitle = u"费用科目",
    .accountPickerTarget = u"",
    .noLines = u"没有数据输入！",
    .wrongAccount = u"抵冲账户为  ",
};

constexpr PartnerTraits PaymentPartner{
    .unknown = u"往来单位名称在设置中不存在，请重新选择！",
    .pickerSql = u"select Code,Name from TabClient order by code",
    .pickerTitle = u"选择往来单位",
    .infoTool = "ToolProvideInf",
    .infoToolTip = u"供应商基础资料",
};

constexpr PartnerTraits ReceiptPartner{
    .unknown = u"往来单位名称在设置中不存在，请重新选择！",
    .pickerSql = u"select Code,Name from TabClient order by code",
    .pickerTitle = u"选择客户",
    .infoTool = "ToolClientInf",
    .infoToolTip = u"",
};

constexpr PartnerTraits FeeOffsetPartner{
    .unknown = u"抵冲单位名称在往来单位名称中不存在，请检查！",
    .pickerSql = u"select Code,Name from TabClient  ",
    .pickerTitle = u"选择客户",
    .infoTool = "ToolProvideClientInf",
    .infoToolTip = u"供应商或客户基础资料",
};

constexpr PrintLine PartnerHead[] = {{u"录单日期：", "TxtDate"},
                                     {u"单据编号：", "TxtBillCode"},
                                     {u"单位名称：", "TxtName"},
                                     {u"业 务 员：", "TxtSaleMan"},
                                     {u"备    注：", "TxtMemo"}};
constexpr PrintLine TotalFoot[] = {{u"金额合计：", "LabTotalMoney"}};
constexpr PrintLine BankHead[] = {{u"录单日期：", "TxtDate"},    {u"单据编号：", "TxtBillCode"},     {u"金    额：", "TxtMoney"},
                                  {u"业 务 员：", "TxtSaleMan"}, {u"转出账户：", "TxtAccountNameC"}, {u"转入账户：", "TxtAccountNameR"},
                                  {u"备    注：", "TxtMemo"}};
constexpr PrintLine FeeHead[] = {
    {u"录单日期：", "TxtDate"}, {u"单据编号：", "TxtBillCode"}, {u"业 务 员：", "TxtSaleMan"}, {u"备    注：", "TxtMemo"}};
constexpr PrintLine FeeFoot[] = {{u"现    金：", "TxtCash"}, {u"银    行：", "TxtTransfer"}, {u"金额合计：", "LabTotalMoney"}};

// Words of the workbook templates, in the order in which they are replaced.
using From = TemplateWord::Source;
constexpr TemplateWord PartnerWords[] = {
    {u"?本单位名称", From::Company, "Name"},
    {u"?单位名称", From::Text, "TxtName"},
    {u"?单位地址", From::Partner, "Address"},
    {u"?联系人", From::Partner, "LinkMan"},
    {u"?联系电话", From::Partner, "Tel"},
    {u"?税号", From::Partner, "TaxCode"},
    {u"?单位编号", From::Text, "TxtCode"},
    {u"?开户银行", From::Partner, "Bank"},
    {u"?开户行账号", From::Partner, "BankCode"},
    {u"?单据名称", From::Text, "LabBillName"},
    {u"?单据编号", From::Text, "TxtBillCode"},
    {u"?单据日期", From::BillDate},
    {u"?电脑日期", From::Today},
    {u"?备注", From::Text, "TxtMemo"},
    {u"?合计金额大写", From::Capitals, "LabTotalMoney"},
    {u"?合计金额", From::Amount, "LabTotalMoney"},
    {u"?截止当日尚欠", From::Balance, "LabFundAttention"},
    {u"?币种", From::Text, "TxtMoneyName"},
    {u"?汇率", From::Text, "TxtMoneyRate"},
    {u"?业务员", From::Text, "TxtSaleMan"},
    {u"?制单", From::Text, "TxtOperator"},
    {u"?审核人", From::Text, "TxtAuditing"},
    {u"?审核标志", From::IfVisible, "LabAuditing"},
    {u"?单据状态", From::IfVisible, "LabState"},
};
constexpr TemplateWord FeeWords[] = {
    {u"?本单位名称", From::Company, "Name"},
    {u"?单据名称", From::Text, "LabBillName"},
    {u"?单据编号", From::Text, "TxtBillCode"},
    {u"?单据日期", From::BillDate},
    {u"?电脑日期", From::Today},
    {u"?备注", From::Text, "TxtMemo"},
    {u"?合计金额大写", From::Capitals, "LabTotalMoney"},
    {u"?合计金额", From::Amount, "LabTotalMoney"},
    {u"?现金科目", From::Text, "TxtCashAccouName"},
    {u"?现金额", From::Amount, "TxtCash"},
    {u"?银行科目", From::Text, "TxtTransferName"},
    {u"?银行额", From::Amount, "TxtTransfer"},
    {u"?现金银行合计", From::PaidTogether},
    {u"?币种", From::Text, "TxtMoneyName"},
    {u"?汇率", From::Text, "TxtMoneyRate"},
    {u"?业务员", From::Text, "TxtSaleMan"},
    {u"?制单", From::Text, "TxtOperator"},
    {u"?审核人", From::Text, "TxtAuditing"},
    {u"?审核标志", From::IfVisible, "LabAuditing"},
    {u"?单据状态", From::IfVisible, "LabState"},
};
constexpr TemplateWord BankWords[] = {
    {u"?本单位名称", From::Company, "Name"},
    {u"?单据编号", From::Text, "TxtBillCode"},
    {u"?单据名称", From::Text, "LabBillName"},
    {u"?单据日期", From::BillDate},
    {u"?电脑日期", From::Today},
    {u"?转入账户", From::Text, "TxtAccountNameR"},
    {u"?转出账户", From::Text, "TxtAccountNameC"},
    {u"?备注", From::Text, "TxtMemo"},
    {u"?金额大写", From::Capitals, "TxtMoney"},
    {u"?金额", From::Amount, "TxtMoney"},
    {u"?业务员", From::Text, "TxtSaleMan"},
    {u"?制单", From::Text, "TxtOperator"},
    {u"?审核人", From::Text, "TxtAuditing"},
    {u"?审核标志", From::IfVisible, "LabAuditing"},
    {u"?单据状态", From::IfVisible, "LabState"},
};

constexpr const char* BankBlanks[] = {"TxtBillCode",     "TxtAccountCodeR", "TxtAccountNameR", "TxtAccountCodeC",
                                      "TxtAccountNameC", "TxtOperator",     "TxtMemo",         "TxtMoney"};
constexpr const char* FeeBlanks[] = {"TxtBillCode",     "TxtCashAccouCode", "TxtCashAccouName", "TxtCash", "TxtTransferCode",
                                     "TxtTransferName", "TxtTransfer",      "TxtOperator",      "TxtMemo"};
constexpr const char* FeeOffsetBlanks[] = {"TxtBillCode", "TxtCode", "TxtName", "TxtOperator", "TxtMemo"};

// The expense and the other income: one form, and all alike but their names, tables and codes.
constexpr BillTraits feeTraits(const char16_t* name, const char16_t* billName, const char* headerTable, const char* prefix,
                               const LineTraits& lines)
{
  return {
      .form = "frmFeeElseIncome",
      .billName = billName,
      .formCaption = name,
      .headerTable = headerTable,
      .prefix = prefix,
      .rightFunction = name,
      .billType = name,
      .headFrame = u"单据信息",
      .lines = &lines,
      .printHead = FeeHead,
      .printFoot = FeeFoot,
      .templateWords = FeeWords,
      .duplicateCode = u"单据编号重复，请修改！",
      .missingAtVoid = u"单据编号不存在，作废失败！",
      .blankAfterDelete = FeeBlanks,
  };
}

} // namespace

constexpr BillTraits PaymentTraits{
    .form = "frmPayfund",
    .billName = u"付款单",
    .formCaption = u"付款单",
    .headerTable = "TabPayfundBill",
    .prefix = "FKD",
    .rightFunction = u"付款",
    .billType = u"付款",
    .headFrame = u"供应商信息",
    .pickersOfferAdd = true,
    .lines = &PaymentLines,
    .partner = &PaymentPartner,
    .printHead = PartnerHead,
    .printFoot = TotalFoot,
    .templateWords = PartnerWords,
    .duplicateCode = u"付款单编号重复，请修改！",
    .missingAtVoid = u"付款单编号不存在，作废失败！",
    .isWrittenOff = true,
};

constexpr BillTraits ReceiptTraits{
    .form = "frmGathefund",
    .billName = u"收款单",
    .formCaption = u"收款单",
    .headerTable = "TabGathefundBill",
    .prefix = "SKD",
    .rightFunction = u"收款",
    .billType = u"收款",
    .headFrame = u"客户信息",
    .pickersOfferAdd = true,
    .lines = &ReceiptLines,
    .partner = &ReceiptPartner,
    .printHead = PartnerHead,
    .printFoot = TotalFoot,
    .templateWords = PartnerWords,
    .duplicateCode = u"收款单编号重复，请修改！",
    .missingAtVoid = u"收款单编号不存在，作废失败！",
    .isWrittenOff = true,
};

constexpr BillTraits BankTraits{
    .form = "frmBankKeepTake",
    .billName = u"银行存取款单",
    .formCaption = u"银行存取款单",
    .headerTable = "TabKeepTake",
    .prefix = "CQD",
    .rightFunction = u"银行存取",
    .billType = u"", // the mode, worked out at each save
    .headFrame = u"银行存取款信息",
    .printHead = BankHead,
    .templateWords = BankWords,
    .duplicateCode = u"单编号重复，请修改！",
    .missingAtVoid = u"单编号不存在，作废失败！",
    .blankAfterDelete = BankBlanks,
};

constexpr BillTraits ExpenseTraits = feeTraits(u"费用开支", u"费用开支单", "TabFee", "FYD", ExpenseLines);
constexpr BillTraits OtherIncomeTraits = feeTraits(u"其他收入", u"其他收入单", "TabElseIncome", "QSD", OtherIncomeLines);

constexpr BillTraits FeeOffsetTraits{
    .form = "frmFeeSustain",
    .billName = u"费用抵冲单",
    .formCaption = u"费用抵冲",
    .headerTable = "TabSustain",
    .prefix = "DCD",
    .rightFunction = u"", // the mode
    .billType = u"费用抵冲",
    .headFrame = u"抵冲单位信息",
    .saleManPickerTitle = u"选择制单人",
    .lines = &FeeOffsetLines,
    .partner = &FeeOffsetPartner,
    .printHead = PartnerHead,
    .printFoot = TotalFoot,
    .templateWords = PartnerWords,
    .duplicateCode = u"费用抵冲单编号重复，请修改！",
    .missingAtVoid = u"费用抵冲单编号不存在，作废失败！",
    .asksRightAtVoid = false,
    .tellsSavedLast = true,
    .blankAfterDelete = FeeOffsetBlanks,
};
