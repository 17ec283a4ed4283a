#include "bills/frmPayfund.h"

#include "ledger/Balance.h"
#include "ledger/Money.h"
#include "pickers/CodePicker.h"
#include "pickers/TreePicker.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/Mod_ZORVEKMain.h"
#include "session/ModuleADO.h"

using namespace ModFuntion;

namespace {

const QString BalanceHeading = QStringLiteral("截止当日尚欠：");

} // namespace

frmPayfund::frmPayfund(Session& ofSession) : BillForm(ofSession, PaymentTraits)
{
  TxtCode = add<TextBox>(FrameProvide, "TxtCode");
  TxtCode->setReadOnly(true);
  TxtCode->setTabStop(false);
  TxtName = add<TextBox>(FrameProvide, "TxtName", {}, "输入编号或名称回车自动调出");
  TxtName->onKey = [this](const Key& key) { return TxtName_KeyPress(key); };
  TxtName->onChange = [this] { RefreshBalanceLabel(); };
  add<ImageButton>(FrameProvide, "ImgName", {}, "点击选择")->onClick = [this] { ImgName_Click(); };
  buildRest();
  LabFundAttention = add<Label>(Pic, "LabFundAttention", BalanceHeading);
}

QList<BillForm::SaveCheck> frmPayfund::saveChecks() const
{
  return {
      &frmPayfund::operatorMayEdit,
      &frmPayfund::dateIsOpen,
      &frmPayfund::totalIsNotZero,
      static_cast<SaveCheck>(&frmPayfund::partnerIsNamed),
      static_cast<SaveCheck>(&frmPayfund::partnerIsKnown),
      &frmPayfund::currencyIsGiven,
      &frmPayfund::hasLines,
      &frmPayfund::lineAccountsAreLeaves,
      &frmPayfund::numberNewBill,
      // The prefix comes first here, so a blank code gets its message.
      &frmPayfund::codeHasPrefix,
      &frmPayfund::codeIsGiven,
      &frmPayfund::voucherIsAllowed,
  };
}

bool frmPayfund::partnerIsNamed()
{
  if (!Trim(TxtName->text()).isEmpty())
    return true;
  session.desk.inform(QStringLiteral("单位名称不能为空！"));
  return false;
}

// The name decides, and overwrites the code; of two partners of one name the first counts.
bool frmPayfund::partnerIsKnown()
{
  const Recordset rs = OpenRecordset(session, "select * from TabClient where Name='" + Trim(TxtName->text()) + "'");
  if (rs.eof()) {
    session.desk.inform(QStringLiteral("往来单位名称在设置中不存在，请重新选择！"));
    return false;
  }
  TxtName->setText(rs.text("Name"));
  TxtCode->setText(rs.text("Code"));
  return true;
}

QStringList frmPayfund::headerValues() const
{
  return {
      quoted(billCode()),
      quoted(dateText()),
      quoted(Trim(TxtCode->text())),
      quoted(Trim(TxtName->text())),
      quoted(Trim(session.params.UserName)),
      totalMoney().toText(),
      quoted(Trim(TxtMemo->text())),
      quoted(QString::fromUtf16(traits().billType)),
      quoted("正常"),
      quoted({}), // Report
      quoted(Trim(TxtSaleMan->text())),
      quoted(Trim(TxtMoneyName->text())),
      NumberText::ofDouble(NumberText::numericPrefix(TxtMoneyRate->text())),
      quoted(Trim(TxtAuditing->text())),
  };
}

QStringList frmPayfund::lineValues(int row) const
{
  return {
      QString::number(row),
      quoted(dateText()),
      quoted(billCode()),
      quoted(Trim(TxtCode->text())),
      quoted(Trim(TxtName->text())),
      quoted(m_lines->text(row, LineGrid::AccountCode)),
      quoted(m_lines->text(row, LineGrid::AccountName)),
      m_lines->amount(row).toText(),
      quoted(m_lines->text(row, LineGrid::Remark)),
      quoted("正常"),
      quoted(Trim(TxtMoneyName->text())),
      NumberText::ofDouble(NumberText::numericPrefix(TxtMoneyRate->text())),
      quoted(Trim(TxtAuditing->text())),
  };
}

void frmPayfund::fillOwnFields(const Recordset& header)
{
  TxtCode->setText(header.text("UnitCode"));
  TxtName->setText(header.text("UnitName"));
  RefreshBalanceLabel();
}

void frmPayfund::clearOwnFields()
{
  TxtCode->setText({});
  TxtName->setText({});
  LabFundAttention->setCaption(BalanceHeading);
}

void frmPayfund::RefreshBalanceLabel()
{
  const QString code = Trim(TxtCode->text());
  if (code.isEmpty())
    return;
  const QString currency = session.params.IsLotMoney ? Trim(TxtMoneyName->text()) : QString();
  const TogatherData balance = GetOutstandingBalance(session, code, DTPDate->date(), currency, IsAuditedOnly(session));
  LabFundAttention->setCaption(BalanceHeading + FormatDotText(-balance.EndBalance, session.DotSet.DotMoney) + "元");
}

bool frmPayfund::TxtName_KeyPress(const Key& key)
{
  const QString text = Trim(TxtName->text());
  if (key.code != Key::Enter || text.isEmpty())
    return false;
  const Recordset rs = OpenRecordset(session, "select Code,Name,SaleMan from TabClient  where Code like '" + text + "%' " +
                                                  " or Name like '" + text + "%'  " + " order by code");
  if (rs.recordCount() == 1) {
    TxtCode->setText(rs.text("Code"));
    TxtName->setText(rs.text("Name"));
    TxtSaleMan->setText(rs.text("SaleMan"));
    focusNext();
  } else {
    TxtCode->setText({});
    TxtName->setText({});
    ImgName_Click();
  }
  return true;
}

void frmPayfund::ImgName_Click()
{
  CodePicker::pick(session, *this, {"select Code,Name from TabClient order by code", "TabClient", "选择往来单位", true});
}

void frmPayfund::pickLineAccount(int)
{
  // Cash and bank. Without brackets, as the picker's own condition is added behind.
  TreePicker::pick(session, *this,
                   {.TreeWhere = QString("  where Code = '1' or  ") + "  Code  ='1001' or Code= '1002' " +
                                 " or ParentCode like '1001%' or ParentCode like '1002%'"});
}

void frmPayfund::ShowPartnerInfo()
{
  if (Trim(TxtCode->text()).isEmpty()) {
    session.desk.inform(QStringLiteral("请先确定往来单位！"));
    return;
  }
  if (CheckOperateRight(session, session.params.UserName, "往来单位信息录入", RightKind::Read))
    Mod_ZORVEKMain::RunSiblingProgram(session, "往来单位资料", {"往来单位信息录入", billName(), Trim(TxtCode->text())});
}
