#include "bills/frmPayfund.h"

#include "bills/LineAccounts.h"

namespace {

using namespace SaveChecks;

constexpr SaveCheck Checks[] = {
    operatorMayEdit,
    dateIsOpen,
    amountsFit,
    totalIsNotZero,
    partnerIsNamed,
    partnerIsKnown,
    currencyIsGiven,
    hasLines,
    lineAccountsAreLeaves,
    numberNewBill,
    // The prefix comes first here, so an empty code gets its message.
    codeHasPrefix,
    codeIsGiven,
};

constexpr LineTraits Lines{
    .accountCodeHeading = u"付款账户编号",
    .accountNameHeading = u"付款账户名称",
    .attention = u"注意：在列表中输入数据后击回车键确定！在付款帐户编号列双击可直接选择。",
    .accountFilter = CashBankFilter,
    .noLines = u"没有付款数据输入！",
    .wrongAccount = u"付款账户为  ",
};

constexpr PartnerTraits Partner{
    .unknown = u"往来单位名称在设置中不存在，请重新选择！",
    .notChosen = u"请先确定往来单位！",
    .pickerSql = u"select Code,Name from TabClient order by code",
    .pickerTitle = u"选择往来单位",
    .infoTool = "ToolProvideInf",
    .infoToolTip = u"供应商基础资料",
};

constexpr BillTraits Traits{
    .kind = BillKinds::Payment,
    .formCaption = u"付款单",
    .headFrame = u"供应商信息",
    .pickersOfferAdd = true,
    .checks = Checks,
    .partner = &Partner,
    .lines = &Lines,
    .balanceSign = -1,
    .printHead = PartnerHead,
    .printFoot = TotalFoot,
    .duplicateCode = u"付款单编号重复，请修改！",
    .missingAtVoid = u"付款单编号不存在，作废失败！",
};

} // namespace

frmPayfund::frmPayfund(Session& ofSession) : BillScreen(ofSession, Traits) {}
