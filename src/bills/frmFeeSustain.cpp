#include "bills/frmFeeSustain.h"

#include "platform/Trim.h"
#include "session/ModuleADO.h"

namespace {

const QString CustomerMode = QStringLiteral("费用抵冲(客户)");
const QString SupplierMode = QStringLiteral("费用抵冲(供应商)");

} // namespace

frmFeeSustain::frmFeeSustain(Session& ofSession) : PartnerBillForm(ofSession, FeeOffsetTraits)
{
  buildPartner();
  buildSaleManAndMemo();
  buildLines();
  buildFooter();
}

bool frmFeeSustain::isSupplierMode() const
{
  return BillMode == SupplierMode;
}

bool frmFeeSustain::isCustomerMode() const
{
  return BillMode == CustomerMode;
}

void frmFeeSustain::showTitle()
{
  LabBillName->setCaption(isSupplierMode() ? "费用抵冲单--供应商" : "费用抵冲单--客户");
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

QString frmFeeSustain::billListClause() const
{
  return isSupplierMode() ? " and SustainType='供应商' " : " and SustainType='客户' ";
}

QList<BillForm::SaveCheck> frmFeeSustain::saveChecks() const
{
  return {
      step(&frmFeeSustain::operatorMayEdit),
      step(&frmFeeSustain::dateIsOpen),
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

QStringList frmFeeSustain::kindValues() const
{
  return {quoted(isCustomerMode() ? "客户" : "供应商")};
}

QString frmFeeSustain::partnerColumns() const
{
  // A customer's own salesman is not asked for.
  return isSupplierMode() ? QStringLiteral("select Code,Name,SaleMan  from TabClient ")
                          : QStringLiteral("select Code,Name from TabClient ");
}

QString frmFeeSustain::noPartnerMessage() const
{
  return isSupplierMode() ? "请先确定供应商！" : "请先确定客户！";
}

void frmFeeSustain::FJXCAccount_Click()
{
  if (isCustomerMode() || isSupplierMode())
    PartnerBillForm::FJXCAccount_Click();
  else
    session.desk.inform(QStringLiteral("不退确定设置类型，请退出后重新设置！"));
}
