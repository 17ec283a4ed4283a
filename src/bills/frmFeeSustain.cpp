#include "bills/frmFeeSustain.h"

#include "bills/LineAccounts.h"
#include "platform/Trim.h"

using namespace Qt::StringLiterals;

namespace {

using namespace SaveChecks;
using BillKinds::CustomerOffset;
using BillKinds::SupplierOffset;

// The name comes before the total here.
constexpr SaveCheck Checks[] = {operatorMayEdit, dateIsOpen,     amountsFit,  partnerIsNamed,
                                totalIsNotZero,  partnerIsKnown, hasLines,    lineAccountsAreLeaves,
                                currencyIsGiven, numberNewBill,  codeIsGiven, codeHasPrefix};

constexpr LineTraits Lines{
    .accountCodeHeading = u"抵冲账户编号",
    .accountNameHeading = u"抵冲账户名称",
    .attention = u"注意：在列表中输入数据后击回车键确定！在帐户编号或帐户名称列双击可直接选择。",
    .accountFilter = FeeAccountFilter,
    .accountPickerTitle = u"费用科目",
    .noLines = u"没有数据输入！",
    .wrongAccount = u"抵冲账户为  ",
};

constexpr PartnerTraits Partner{
    .unknown = u"抵冲单位名称在往来单位名称中不存在，请检查！",
    .pickerSql = u"select Code,Name from TabClient  ",
    .pickerTitle = u"选择客户",
    .infoTool = "ToolProvideClientInf",
    .infoToolTip = u"供应商或客户基础资料",
};

constexpr const char* EmptyAfterDelete[] = {"TxtBillCode", "TxtCode", "TxtName", "TxtOperator", "TxtMemo"};

constexpr BillTraits Traits{
    .kind = BillKinds::FeeOffset,
    .formCaption = u"费用抵冲",
    .headFrame = u"抵冲单位信息",
    .saleManPickerTitle = u"选择制单人",
    .checks = Checks,
    .partner = &Partner,
    .lines = &Lines,
    .printHead = PartnerHead,
    .printFoot = TotalFoot,
    .duplicateCode = u"费用抵冲单编号重复，请修改！",
    .missingAtVoid = u"费用抵冲单编号不存在，作废失败！",
    .asksRightAtVoid = false,
    .tellsSavedLast = true,
    .isTurnedByBill = true,
    .emptyAfterDelete = EmptyAfterDelete,
};

bool is(QStringView text, const char16_t* other)
{
  return text == QStringView(other);
}

} // namespace

frmFeeSustain::frmFeeSustain(Session& ofSession) : BillScreen(ofSession, Traits) {}

bool frmFeeSustain::hasBillMode() const
{
  return is(BillMode, CustomerOffset.name) || is(BillMode, SupplierOffset.name);
}

std::optional<QString> frmFeeSustain::mode() const
{
  for (const OffsetMode& byTitle : {CustomerOffset, SupplierOffset})
    if (!hasBillMode() && is(billName(), byTitle.title))
      return QString::fromUtf16(byTitle.name);
  return BillMode;
}

bool frmFeeSustain::isSupplierMode() const
{
  return is(*mode(), SupplierOffset.name);
}

bool frmFeeSustain::isCustomerMode() const
{
  return is(*mode(), CustomerOffset.name);
}

void frmFeeSustain::showTitle()
{
  LabBillName.setCaption(QString::fromUtf16(is(BillMode, SupplierOffset.name) ? SupplierOffset.title : CustomerOffset.title));
}

void frmFeeSustain::Form_Load()
{
  BillMode = Trim(session.params.OperateType);
  if (hasBillMode())
    showTitle();
  BillScreen::Form_Load();
}

// Every new bill has the mode that the screen was started with.
void frmFeeSustain::InitLineGrid()
{
  BillScreen::InitLineGrid();
  BillMode = Trim(session.params.OperateType);
}

// The stored row determines the mode.
void frmFeeSustain::showHeader(const Recordset& header)
{
  BillScreen::showHeader(header);
  for (const OffsetMode& stored : {CustomerOffset, SupplierOffset})
    if (is(header.trimmed("SustainType"), stored.type)) {
      BillMode = QString::fromUtf16(stored.name);
      showTitle();
    }
}

Statement frmFeeSustain::billListClause() const
{
  return {u" and SustainType='{}' ", QString::fromUtf16(isSupplierMode() ? SupplierOffset.type : CustomerOffset.type)};
}

QString frmFeeSustain::offsetType() const
{
  return QString::fromUtf16(isCustomerMode() ? CustomerOffset.type : SupplierOffset.type);
}

QString frmFeeSustain::noPartnerMessage() const
{
  return isSupplierMode() ? u"请先确定供应商！"_s : u"请先确定客户！"_s;
}

void frmFeeSustain::FJXCAccount_Click()
{
  if (hasBillMode())
    BillScreen::FJXCAccount_Click();
  else
    desk().inform(u"不退确定设置类型，请退出后重新设置！"_s);
}
