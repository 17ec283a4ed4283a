#include "bills/frmGathefund.h"

#include "bills/LineAccounts.h"

namespace {

using namespace SaveChecks;

constexpr SaveCheck Checks[] = {operatorMayEdit,       dateIsOpen,     amountsFit,      totalIsNotZero,
                                partnerIsNamed,        partnerIsKnown, currencyIsGiven, hasLines,
                                lineAccountsAreLeaves, numberNewBill,  codeIsGiven,     codeHasPrefix};

constexpr LineTraits Lines{
    .accountCodeHeading = u"收款账户编号",
    .accountNameHeading = u"收款账户名称",
    .attention = u"注意：在列表中输入数据后击回车键确定！在收款帐户编号列双击可直接选择。",
    .accountFilter = CashBankFilter,
    .noLines = u"没有收款数据输入！",
    .wrongAccount = u"收款账户为  ",
    .decideCurrency = true,
};

constexpr PartnerTraits Partner{
    .unknown = u"往来单位名称在设置中不存在，请重新选择！",
    .notChosen = u"请先确定客户！",
    .pickerSql = u"select Code,Name from TabClient order by code",
    .pickerTitle = u"选择客户",
    .infoTool = "ToolClientInf",
    .infoToolTip = u"",
};

constexpr BillTraits Traits{
    .kind = BillKinds::Receipt,
    .formCaption = u"收款单",
    .headFrame = u"客户信息",
    .pickersOfferAdd = true,
    .checks = Checks,
    .partner = &Partner,
    .lines = &Lines,
    .balanceSign = 1,
    .printHead = PartnerHead,
    .printFoot = TotalFoot,
    .duplicateCode = u"收款单编号重复，请修改！",
    .missingAtVoid = u"收款单编号不存在，作废失败！",
    .newClosesEditor = true,
};

} // namespace

frmGathefund::frmGathefund(Session& ofSession) : BillScreen(ofSession, Traits) {}
