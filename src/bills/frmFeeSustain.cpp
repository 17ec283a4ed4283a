#include "bills/frmFeeSustain.h"

#include "platform/Trim.h"
#include "session/ModuleADO.h"

namespace {

const QString CustomerMode = QStringLiteral("费用抵冲(客户)");
const QString SupplierMode = QStringLiteral("费用抵冲(供应商)");
const QString CustomerTitle = QStringLiteral("费用抵冲单--客户");
const QString SupplierTitle = QStringLiteral("费用抵冲单--供应商");

} // namespace

frmFeeSustain::frmFeeSustain(Session& ofSession) : PartnerBillForm(ofSession, FeeOffsetTraits)
{
  buildPartner();
  buildSaleManAndMemo();
  buildLines();
  buildFooter();
}

QString frmFeeSustain::mode() const
{
  if (BillMode == CustomerMode || BillMode == SupplierMode)
    return BillMode;
  return billName() == CustomerTitle ? CustomerMode : billName() == SupplierTitle ? SupplierMode : BillMode;
}

bool frmFeeSustain::isSupplierMode() const
{
  return mode() == SupplierMode;
}

bool frmFeeSustain::isCustomerMode() const
{
  return mode() == CustomerMode;
}

void frmFeeSustain::showTitle()
{
  LabBillName->setCaption(BillMode == SupplierMode ? SupplierTitle : CustomerTitle);
}

void frmFeeSustain::Form_Load()
{
  BillMode = Trim(session.params.OperateType);
  if (isCustomerMode() || isSupplierMode())
    showTitle();
  loadHeader();
}

// A stored bill may have changed the mode by now, and with it the templates.
void frmFeeSustain::frm_Initialize(bool keepScreen)
{
  PartnerBillForm::frm_Initialize(keepScreen);
  fillTemplateMenus();
}

// Every new bill is of the mode that the screen was started with.
void frmFeeSustain::InitLineGrid()
{
  PartnerBillForm::InitLineGrid();
  BillMode = Trim(session.params.OperateType);
}

// The stored row decides the mode.
void frmFeeSustain::fillOwnFields(const Recordset& header)
{
  PartnerBillForm::fillOwnFields(header);
  const QString type = header.trimmed("SustainType");
  if (type != u"客户" && type != u"供应商")
    return;
  BillMode = type == u"客户" ? CustomerMode : SupplierMode;
  showTitle();
}

Statement frmFeeSustain::billListClause() const
{
  return {u" and SustainType='{}' ", isSupplierMode() ? "供应商" : "客户"};
}

QList<BillForm::SaveCheck> frmFeeSustain::saveChecks() const
{
  return {
      step(&frmFeeSustain::operatorMayEdit),
      step(&frmFeeSustain::dateIsOpen),
      step(&frmFeeSustain::amountsFit),
      // The name comes ahead of the total here.
      step(&frmFeeSustain::partnerIsNamed),
      step(&frmFeeSustain::totalIsNotZero),
      step(&frmFeeSustain::partnerIsKnown),
      step(&frmFeeSustain::hasLines),
      step(&frmFeeSustain::lineAccountsAreLeaves),
      step(&frmFeeSustain::currencyIsGiven),
      step(&frmFeeSustain::numberNewBill),
      step(&frmFeeSustain::codeIsGiven),
      step(&frmFeeSustain::codeHasPrefix),
      step(&frmFeeSustain::voucherIsAllowed),
  };
}

QList<Statement> frmFeeSustain::kindValues() const
{
  return {sqlText(isCustomerMode() ? "客户" : "供应商")};
}

SqlLiteral frmFeeSustain::partnerColumns() const
{
  // A customer's own salesman is not asked for.
  return isSupplierMode() ? SqlLiteral(u"Code,Name,SaleMan") : SqlLiteral(u"Code,Name");
}

QString frmFeeSustain::noPartnerMessage() const
{
  return isSupplierMode() ? "请先确定供应商！" : "请先确定客户！";
}

void frmFeeSustain::FJXCAccount_Click()
{
  if (BillMode == CustomerMode || BillMode == SupplierMode)
    PartnerBillForm::FJXCAccount_Click();
  else
    session.desk.inform(QStringLiteral("不退确定设置类型，请退出后重新设置！"));
}
