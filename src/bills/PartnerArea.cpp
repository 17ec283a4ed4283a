#include "bills/PartnerArea.h"

#include "bills/BillScreen.h"
#include "pickers/CodePicker.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/OperateRight.h"
#include "startup/Launcher.h"

using namespace Qt::StringLiterals;

PartnerArea::PartnerArea(BillScreen& screen)
    : TxtCode(&screen.FrameProvide, "TxtCode"), TxtName(&screen.FrameProvide, "TxtName"),
      ImgName(&screen.FrameProvide, "ImgName", [this] { ImgName_Click(); }), m_screen(screen)
{
  TxtCode.setReadOnly(true);
  TxtCode.setTabStop(false);
  TxtName.setToolTip(u"输入编号或名称回车自动调出"_s);
  TxtName.onKey = [this](const Key& key) { return TxtName_KeyPress(key); };
}

void PartnerArea::show(const Recordset& header)
{
  TxtCode.setText(header.text("UnitCode"));
  TxtName.setText(header.text("UnitName"));
}

void PartnerArea::clear()
{
  TxtCode.setText({});
  TxtName.setText({});
}

void PartnerArea::addTo(BillRecord& record) const
{
  record.partner = {Trim(TxtCode.text()), Trim(TxtName.text())};
}

bool PartnerArea::TxtName_KeyPress(const Key& key)
{
  const QString text = Trim(TxtName.text());
  if (key.code != Key::Enter || text.isEmpty())
    return false;
  const bool bringsSaleMan = m_screen.partnerBringsSaleMan();
  const Recordset rs =
      OpenRecordset(m_screen.session, {u"select {} from TabClient  where Code like '{}%'  or Name like '{}%'   order by code",
                                       Statement(bringsSaleMan ? SqlLiteral(u"Code,Name,SaleMan") : SqlLiteral(u"Code,Name")), text, text});
  if (rs.recordCount() == 1) {
    TxtCode.setText(rs.text("Code"));
    TxtName.assign(rs.text("Name"));
    if (bringsSaleMan)
      m_screen.staff.TxtSaleMan.setText(rs.text("SaleMan"));
    m_screen.focusNext();
  } else {
    clear();
    ImgName_Click();
  }
  return true;
}

// The code first: assigning the name triggers the partner's handler, even if the same name was typed before or
// another partner has it.
void PartnerArea::ImgName_Click()
{
  const PartnerTraits& traits = *m_screen.traits().partner;
  const auto picked = CodePicker::pick(
      m_screen.session, {traits.pickerSql, u"TabClient"_s, QString::fromUtf16(traits.pickerTitle), m_screen.traits().pickersOfferAdd});
  if (!picked)
    return;
  TxtCode.setText(picked->code);
  TxtName.assign(picked->name);
  const Recordset rs = OpenRecordset(m_screen.session, {u"select SaleMan from TabClient  where Code = '{}' ", Trim(picked->code)});
  m_screen.staff.TxtSaleMan.setText(rs.eof() ? QString() : rs.text("SaleMan"));
}

void PartnerArea::ShowPartnerInfo()
{
  const QString code = Trim(TxtCode.text());
  if (code.isEmpty())
    return m_screen.desk().inform(m_screen.noPartnerMessage());
  const QString right = u"往来单位信息录入"_s;
  if (CheckOperateRight(m_screen.session, m_screen.session.params.UserName, right, RightKind::Read))
    Mod_ZORVEKMain::RunSiblingProgram(m_screen.session, u"往来单位资料"_s, {right, m_screen.billName(), code});
}
