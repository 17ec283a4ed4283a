#pragma once

// What a printout of a bill shows: lines of text above and below the grid, and the words of the workbook templates.

// A line of a printout: its label, and the control whose text follows.
struct PrintLine {
  const char16_t* label;
  const char* control;
};

// The areas of a bill screen; all have a head.
enum class BillArea { Head, Partner, Lines, Transfer, Paid, Balance, WriteOff };

// A word of a workbook template, and its replacement on a printout of the bill.
struct TemplateWord {
  enum Value {
    Text,      // the text of the control
    Amount,    // the same, an amount
    IfVisible, // the same, empty while it is hidden
    Partner,   // this column of the partner's row
    Company,   // the firm's own name
    BillDate,
    Today,
    Capitals,    // the amount of the control in capital numerals
    Balance,     // the balance with the partner
    PaidTogether // cash and bank amounts together
  };
  const char16_t* word;
  Value value;
  const char* name = nullptr; // of the control or the column
  BillArea of = BillArea::Head;

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

// All words of the workbook templates, in the order in which they are replaced. A bill has the words of its areas.
inline constexpr TemplateWord TemplateWords[] = {
    {u"?本单位名称", TemplateWord::Company},
    {u"?单位名称", TemplateWord::Text, "TxtName", BillArea::Partner},
    {u"?单位地址", TemplateWord::Partner, "Address", BillArea::Partner},
    {u"?联系人", TemplateWord::Partner, "LinkMan", BillArea::Partner},
    {u"?联系电话", TemplateWord::Partner, "Tel", BillArea::Partner},
    {u"?税号", TemplateWord::Partner, "TaxCode", BillArea::Partner},
    {u"?单位编号", TemplateWord::Text, "TxtCode", BillArea::Partner},
    {u"?开户银行", TemplateWord::Partner, "Bank", BillArea::Partner},
    {u"?开户行账号", TemplateWord::Partner, "BankCode", BillArea::Partner},
    {u"?单据名称", TemplateWord::Text, "LabBillName"},
    {u"?单据编号", TemplateWord::Text, "TxtBillCode"},
    {u"?单据日期", TemplateWord::BillDate},
    {u"?电脑日期", TemplateWord::Today},
    {u"?转入账户", TemplateWord::Text, "TxtAccountNameR", BillArea::Transfer},
    {u"?转出账户", TemplateWord::Text, "TxtAccountNameC", BillArea::Transfer},
    {u"?备注", TemplateWord::Text, "TxtMemo"},
    {u"?金额大写", TemplateWord::Capitals, "TxtMoney", BillArea::Transfer},
    {u"?金额", TemplateWord::Amount, "TxtMoney", BillArea::Transfer},
    {u"?合计金额大写", TemplateWord::Capitals, "LabTotalMoney", BillArea::Lines},
    {u"?合计金额", TemplateWord::Amount, "LabTotalMoney", BillArea::Lines},
    {u"?现金科目", TemplateWord::Text, "TxtCashAccouName", BillArea::Paid},
    {u"?现金额", TemplateWord::Amount, "TxtCash", BillArea::Paid},
    {u"?银行科目", TemplateWord::Text, "TxtTransferName", BillArea::Paid},
    {u"?银行额", TemplateWord::Amount, "TxtTransfer", BillArea::Paid},
    {u"?现金银行合计", TemplateWord::PaidTogether, nullptr, BillArea::Paid},
    {u"?截止当日尚欠", TemplateWord::Balance, nullptr, BillArea::Balance},
    {u"?币种", TemplateWord::Text, "TxtMoneyName", BillArea::Lines},
    {u"?汇率", TemplateWord::Text, "TxtMoneyRate", BillArea::Lines},
    {u"?业务员", TemplateWord::Text, "TxtSaleMan"},
    {u"?制单", TemplateWord::Text, "TxtOperator"},
    {u"?审核人", TemplateWord::Text, "TxtAuditing"},
    {u"?审核标志", TemplateWord::IfVisible, "LabAuditing"},
    {u"?单据状态", TemplateWord::IfVisible, "LabState"},
};
