#include "bills/StaffArea.h"

#include "bills/BillScreen.h"
#include "pickers/CodePicker.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"

using namespace Qt::StringLiterals;

StaffArea::StaffArea(BillScreen& screen)
    : TxtSaleMan(&screen.FrameProvide, "TxtSaleMan"), ImgSaleMan(&screen.FrameProvide, "ImgSaleMan", [this] { ImgSaleMan_Click(); }),
      TxtMemo(&screen.FrameProvide, "TxtMemo"), m_screen(screen)
{
  TxtSaleMan.setToolTip(u"输入编号或姓名回车自动调出"_s);
  TxtSaleMan.onKey = [this](const Key& key) { return TxtSaleMan_KeyPress(key); };
}

bool StaffArea::TxtSaleMan_KeyPress(const Key& key)
{
  // As in the suite, the author's field is tested, not this one.
  if (key.code != Key::Enter || Trim(m_screen.footer.TxtOperator.text()).isEmpty())
    return false;
  const QString text = Trim(TxtSaleMan.text());
  const Recordset rs = OpenRecordset(
      m_screen.session, {u"select Code,Name from TabStuff  where Code like '{}%'  or Name like '{}%'   order by code", text, text});
  if (rs.recordCount() == 1) {
    TxtSaleMan.setText(rs.text("Name"));
    m_screen.focusNext();
  } else {
    TxtSaleMan.setText({});
    ImgSaleMan_Click();
  }
  return true;
}

void StaffArea::ImgSaleMan_Click()
{
  const BillTraits& traits = m_screen.traits();
  const Statement list(u"select Code,Name from TabStuff order by code");
  if (const auto picked =
          CodePicker::pick(m_screen.session, {list, u"TabStuff"_s, QString::fromUtf16(traits.saleManPickerTitle), traits.pickersOfferAdd}))
    TxtSaleMan.setText(picked->name);
}
