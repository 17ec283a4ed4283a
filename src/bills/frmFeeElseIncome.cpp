#include "bills/frmFeeElseIncome.h"

#include "bills/LineAccounts.h"
#include "platform/Trim.h"

using namespace Qt::StringLiterals;

namespace {

using namespace SaveChecks;

std::optional<Desk::Box> cashAccountIsGiven(BillScreen& screen)
{
  return screen.paid->cashRefusal();
}

std::optional<Desk::Box> bankAccountIsGiven(BillScreen& screen)
{
  return screen.paid->bankRefusal();
}

std::optional<Desk::Box> amountsBalance(BillScreen& screen)
{
  if (screen.paid->total() == screen.totalMoney())
    return {};
  return Desk::Box{u"金额不平衡，请检查！"_s};
}

std::optional<Desk::Box> newCodeHasPrefix(BillScreen& screen)
{
  return screen.IsSavedBill ? std::nullopt : codeHasPrefix(screen);
}

constexpr SaveCheck Checks[] = {operatorMayEdit,    dateIsOpen,         amountsFit,      hasLines,        lineAccountsAreLeaves,
                                cashAccountIsGiven, bankAccountIsGiven, currencyIsGiven, totalIsNotZero,  amountsBalance,
                                numberNewBill,      newCodeHasPrefix,   codeIsGiven,     noLineIsNegative};

constexpr LineTraits lines(const char16_t* codeHeading, const char16_t* nameHeading)
{
  return {
      .accountCodeHeading = codeHeading,
      .accountNameHeading = nameHeading,
      .attention = u"注意：在列表中输入数据后击回车键确定！在科目编号或科目名称列双击可直接选择。",
      .accountFilter = FeeAccountFilter,
      // For expenses, too: the classes listed are those of both.
      .accountPickerTitle = u"收入科目",
      .accountPickerTarget = u"Text2",
      .noLines = u"没有数据输入！",
      .wrongAccount = u"科目  ",
  };
}

constexpr LineTraits ExpenseLines = lines(u"费用科目编号", u"费用科目名称");
constexpr LineTraits OtherIncomeLines = lines(u"收入科目编号", u"收入科目名称");

constexpr const char* EmptyAfterDelete[] = {"TxtBillCode",     "TxtCashAccouCode", "TxtCashAccouName", "TxtCash", "TxtTransferCode",
                                            "TxtTransferName", "TxtTransfer",      "TxtOperator",      "TxtMemo"};

constexpr BillTraits traitsOf(const BillKind& kind, const LineTraits& lines)
{
  return {
      .kind = kind,
      .formCaption = kind.operation,
      .headFrame = u"单据信息",
      .checks = Checks,
      .lines = &lines,
      .hasPaid = true,
      .printHead = FeeHead,
      .printFoot = FeeFoot,
      .duplicateCode = u"单据编号重复，请修改！",
      .missingAtVoid = u"单据编号不存在，作废失败！",
      .isTurnedByBill = true,
      .emptyAfterDelete = EmptyAfterDelete,
  };
}

constexpr BillTraits ExpenseTraits = traitsOf(BillKinds::Expense, ExpenseLines);
constexpr BillTraits OtherIncomeTraits = traitsOf(BillKinds::OtherIncome, OtherIncomeLines);

} // namespace

frmFeeElseIncome::frmFeeElseIncome(Session& ofSession) : BillScreen(ofSession, ExpenseTraits) {}

void frmFeeElseIncome::Form_Load()
{
  if (Trim(session.params.OperateType) == QStringView(BillKinds::OtherIncome.operation))
    turnInto(OtherIncomeTraits);
  BillScreen::Form_Load();
}

void frmFeeElseIncome::FillBill(const QString& table, const QString& code)
{
  for (const BillTraits* const bill : {&ExpenseTraits, &OtherIncomeTraits})
    if (table == QLatin1String(bill->kind.headerTable))
      turnInto(*bill);
  BillScreen::FillBill(table, code);
}
