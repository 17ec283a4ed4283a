#include "bills/frmBankKeepTake.h"

using namespace Qt::StringLiterals;

namespace {

using namespace SaveChecks;

std::optional<Desk::Box> outgoingIsGiven(BillScreen& screen)
{
  return screen.transfer->outgoingRefusal();
}

std::optional<Desk::Box> incomingIsGiven(BillScreen& screen)
{
  return screen.transfer->incomingRefusal();
}

std::optional<Desk::Box> accountsDiffer(BillScreen& screen)
{
  if (screen.transfer->outgoing.account().code != screen.transfer->incoming.account().code)
    return {};
  return Desk::Box{.text = u"转入转出账户为能为同一账户！"_s, .title = u"系统提示 "_s};
}

std::optional<Desk::Box> amountIsNotZero(BillScreen& screen)
{
  if (!screen.totalMoney().isZero())
    return {};
  return Desk::Box{u"金额不允许为零，请重新输入！"_s};
}

constexpr SaveCheck Checks[] = {operatorMayEdit, dateIsOpen,      outgoingIsGiven, incomingIsGiven, accountsDiffer,
                                amountIsNotZero, currencyIsGiven, numberNewBill,   codeIsGiven,     codeHasPrefix};

constexpr const char* EmptyAfterDelete[] = {"TxtBillCode",     "TxtAccountCodeR", "TxtAccountNameR", "TxtAccountCodeC",
                                            "TxtAccountNameC", "TxtOperator",     "TxtMemo",         "TxtMoney"};

constexpr BillTraits Traits{
    .kind = BillKinds::Bank,
    .formCaption = u"银行存取款单",
    .headFrame = u"银行存取款信息",
    .checks = Checks,
    .hasTransfer = true,
    .printHead = BankHead,
    .duplicateCode = u"单编号重复，请修改！",
    .missingAtVoid = u"单编号不存在，作废失败！",
    .emptyAfterDelete = EmptyAfterDelete,
};

} // namespace

frmBankKeepTake::frmBankKeepTake(Session& ofSession) : BillScreen(ofSession, Traits) {}
