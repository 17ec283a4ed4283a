#pragma once

// What a printout shows of a bill: lines of text above and below the grid, and the words of the workbook templates.

// A line of a printout: its label, and the control whose text follows.
struct PrintLine {
  const char16_t* label;
  const char* control;
};

// A word of a workbook template, and what takes its place on a printout of the bill.
struct TemplateWord {
  enum Value {
    Text,      // the text of the control
    Amount,    // the same, an amount
    IfVisible, // the same, empty while it is hidden
    Partner,   // this column of the partner's row
    Company,   // this column of the firm's own row
    BillDate,
    Today,
    Capitals,    // the amount of the control in capital numerals
    Balance,     // the balance with the partner
    PaidTogether // cash and bank amounts together
  };
  const char16_t* word;
  Value value;
  const char* name = nullptr; // of the control or the column

  // A number on the page, where everything else is a text.
  constexpr bool isAmount() const { return value == Amount || value == Balance || value == PaidTogether; }
};

inline constexpr PrintLine PartnerHead[] = {{u"录单日期：", "TxtDate"},
                                            {u"单据编号：", "TxtBillCode"},
                                            {u"单位名称：", "TxtName"},
                                            {u"业 务 员：", "TxtSaleMan"},
                                            {u"备    注：", "TxtMemo"}};
inline constexpr PrintLine TotalFoot[] = {{u"金额合计：", "LabTotalMoney"}};
inline constexpr PrintLine BankHead[] = {
    {u"录单日期：", "TxtDate"},         {u"单据编号：", "TxtBillCode"},     {u"金    额：", "TxtMoney"}, {u"业 务 员：", "TxtSaleMan"},
    {u"转出账户：", "TxtAccountNameC"}, {u"转入账户：", "TxtAccountNameR"}, {u"备    注：", "TxtMemo"}};
inline constexpr PrintLine FeeHead[] = {
    {u"录单日期：", "TxtDate"}, {u"单据编号：", "TxtBillCode"}, {u"业 务 员：", "TxtSaleMan"}, {u"备    注：", "TxtMemo"}};
inline constexpr PrintLine FeeFoot[] = {{u"现    金：", "TxtCash"}, {u"银    行：", "TxtTransfer"}, {u"金额合计：", "LabTotalMoney"}};

// Words of the workbook templates, in the order in which they are replaced.
inline constexpr TemplateWord PartnerWords[] = {
    {u"?本单位名称", TemplateWord::Company, "Name"},
    {u"?单位名称", TemplateWord::Text, "TxtName"},
    {u"?单位地址", TemplateWord::Partner, "Address"},
    {u"?联系人", TemplateWord::Partner, "LinkMan"},
    {u"?联系电话", TemplateWord::Partner, "Tel"},
    {u"?税号", TemplateWord::Partner, "TaxCode"},
    {u"?单位编号", TemplateWord::Text, "TxtCode"},
    {u"?开户银行", TemplateWord::Partner, "Bank"},
    {u"?开户行账号", TemplateWord::Partner, "BankCode"},
    {u"?单据名称", TemplateWord::Text, "LabBillName"},
    {u"?单据编号", TemplateWord::Text, "TxtBillCode"},
    {u"?单据日期", TemplateWord::BillDate},
    {u"?电脑日期", TemplateWord::Today},
    {u"?备注", TemplateWord::Text, "TxtMemo"},
    {u"?合计金额大写", TemplateWord::Capitals, "LabTotalMoney"},
    {u"?合计金额", TemplateWord::Amount, "LabTotalMoney"},
    {u"?截止当日尚欠", TemplateWord::Balance},
    {u"?币种", TemplateWord::Text, "TxtMoneyName"},
    {u"?汇率", TemplateWord::Text, "TxtMoneyRate"},
    {u"?业务员", TemplateWord::Text, "TxtSaleMan"},
    {u"?制单", TemplateWord::Text, "TxtOperator"},
    {u"?审核人", TemplateWord::Text, "TxtAuditing"},
    {u"?审核标志", TemplateWord::IfVisible, "LabAuditing"},
    {u"?单据状态", TemplateWord::IfVisible, "LabState"},
};
inline constexpr TemplateWord FeeWords[] = {
    {u"?本单位名称", TemplateWord::Company, "Name"},
    {u"?单据名称", TemplateWord::Text, "LabBillName"},
    {u"?单据编号", TemplateWord::Text, "TxtBillCode"},
    {u"?单据日期", TemplateWord::BillDate},
    {u"?电脑日期", TemplateWord::Today},
    {u"?备注", TemplateWord::Text, "TxtMemo"},
    {u"?合计金额大写", TemplateWord::Capitals, "LabTotalMoney"},
    {u"?合计金额", TemplateWord::Amount, "LabTotalMoney"},
    {u"?现金科目", TemplateWord::Text, "TxtCashAccouName"},
    {u"?现金额", TemplateWord::Amount, "TxtCash"},
    {u"?银行科目", TemplateWord::Text, "TxtTransferName"},
    {u"?银行额", TemplateWord::Amount, "TxtTransfer"},
    {u"?现金银行合计", TemplateWord::PaidTogether},
    {u"?币种", TemplateWord::Text, "TxtMoneyName"},
    {u"?汇率", TemplateWord::Text, "TxtMoneyRate"},
    {u"?业务员", TemplateWord::Text, "TxtSaleMan"},
    {u"?制单", TemplateWord::Text, "TxtOperator"},
    {u"?审核人", TemplateWord::Text, "TxtAuditing"},
    {u"?审核标志", TemplateWord::IfVisible, "LabAuditing"},
    {u"?单据状态", TemplateWord::IfVisible, "LabState"},
};
inline constexpr TemplateWord BankWords[] = {
    {u"?本单位名称", TemplateWord::Company, "Name"},
    {u"?单据编号", TemplateWord::Text, "TxtBillCode"},
    {u"?单据名称", TemplateWord::Text, "LabBillName"},
    {u"?单据日期", TemplateWord::BillDate},
    {u"?电脑日期", TemplateWord::Today},
    {u"?转入账户", TemplateWord::Text, "TxtAccountNameR"},
    {u"?转出账户", TemplateWord::Text, "TxtAccountNameC"},
    {u"?备注", TemplateWord::Text, "TxtMemo"},
    {u"?金额大写", TemplateWord::Capitals, "TxtMoney"},
    {u"?金额", TemplateWord::Amount, "TxtMoney"},
    {u"?业务员", TemplateWord::Text, "TxtSaleMan"},
    {u"?制单", TemplateWord::Text, "TxtOperator"},
    {u"?审核人", TemplateWord::Text, "TxtAuditing"},
    {u"?审核标志", TemplateWord::IfVisible, "LabAuditing"},
    {u"?单据状态", TemplateWord::IfVisible, "LabState"},
};
