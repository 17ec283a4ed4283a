#include "bills/PartnerBillForm.h"

#include "pickers/CodePicker.h"
#include "platform/Trim.h"
#include "session/Mod_ZORVEKMain.h"
#include "session/ModuleADO.h"

void PartnerBillForm::buildPartner()
{
  TxtCode = add<TextBox>(FrameProvide, "TxtCode");
  TxtCode->setReadOnly(true);
  TxtCode->setTabStop(false);
  TxtName = add<TextBox>(FrameProvide, "TxtName", {}, "输入编号或名称回车自动调出");
  TxtName->onKey = [this](const Key& key) { return TxtName_KeyPress(key); };
  addPickButton(FrameProvide, "ImgName", [this] { ImgName_Click(); });
}

QList<Statement> PartnerBillForm::headerValues() const
{
  return QList<Statement>{sqlText(billCode()), sqlText(dateText())} + partnerValues() +
         QList<Statement>{
             sqlText(Trim(session.params.UserName)),
             sqlNumber(SqlNumber(totalMoney())),
             textOf(*TxtMemo),
             sqlText(QString::fromUtf16(traits().billType)),
             sqlText("正常"),
         } +
         kindValues() +
         QList<Statement>{
             sqlText({}), // Report
             textOf(*TxtSaleMan),
         } +
         closingValues();
}

void PartnerBillForm::fillOwnFields(const Recordset& header)
{
  TxtCode->setText(header.text("UnitCode"));
  TxtName->setText(header.text("UnitName"));
}

void PartnerBillForm::clearOwnFields()
{
  LineBillForm::clearOwnFields();
  TxtCode->setText({});
  TxtName->setText({});
}

bool PartnerBillForm::partnerIsNamed()
{
  if (!Trim(TxtName->text()).isEmpty())
    return true;
  session.desk.inform(QStringLiteral("单位名称不能为空！"));
  return false;
}

// The name decides, and overwrites the code; of two partners of one name the first counts.
bool PartnerBillForm::partnerIsKnown()
{
  const Recordset rs = OpenRecordset(session, {u"select * from TabClient where Name='{}'", Trim(TxtName->text())});
  if (rs.eof()) {
    session.desk.inform(QString::fromUtf16(traits().partner->unknown));
    return false;
  }
  TxtName->setText(rs.text("Name"));
  TxtCode->setText(rs.text("Code"));
  return true;
}

bool PartnerBillForm::TxtName_KeyPress(const Key& key)
{
  const QString text = Trim(TxtName->text());
  if (key.code != Key::Enter || text.isEmpty())
    return false;
  const Recordset rs = OpenRecordset(session, {u"select {} from TabClient  where Code like '{}%'  or Name like '{}%'   order by code",
                                               Statement(partnerColumns()), text, text});
  if (rs.recordCount() == 1) {
    TxtCode->setText(rs.text("Code"));
    TxtName->assign(rs.text("Name"));
    if (partnerBringsSaleMan())
      TxtSaleMan->setText(rs.text("SaleMan"));
    focusNext();
  } else {
    TxtCode->setText({});
    TxtName->setText({});
    ImgName_Click();
  }
  return true;
}

void PartnerBillForm::ImgName_Click()
{
  const PartnerTraits& partner = *traits().partner;
  const CodePickerCall call{partner.pickerSql, "TabClient", QString::fromUtf16(partner.pickerTitle), traits().pickersOfferAdd};
  if (const auto picked = CodePicker::pick(session, call))
    takePartner(*picked);
}

// The code first: the change of the name sets off the work on the partner, also when the name was typed in full before
// or is that of another partner.
void PartnerBillForm::takePartner(const PickedRecord& picked)
{
  TxtCode->setText(picked.code);
  TxtName->assign(picked.name);
  const Recordset rs = OpenRecordset(session, {u"select SaleMan from TabClient  where Code = '{}' ", Trim(picked.code)});
  TxtSaleMan->setText(rs.eof() ? QString() : rs.text("SaleMan"));
}

void PartnerBillForm::ShowPartnerInfo()
{
  if (Trim(TxtCode->text()).isEmpty()) {
    session.desk.inform(noPartnerMessage());
    return;
  }
  if (CheckOperateRight(session, session.params.UserName, "往来单位信息录入", RightKind::Read))
    Mod_ZORVEKMain::RunSiblingProgram(session, "往来单位资料", {"往来单位信息录入", billName(), Trim(TxtCode->text())});
}
