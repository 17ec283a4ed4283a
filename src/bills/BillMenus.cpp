#include "bills/BillMenus.h"

#include "bills/BillPrints.h"
#include "bills/BillScreen.h"
#include "layouts/GridLayout.h"
#include "printing/ImageAttachments.h"
#include "session/Edition.h"
#include "vouchers/ShowVoucher.h"

using namespace Qt::StringLiterals;

namespace {

struct Item {
  const char* name; // null for the partner's button, whose name differs
  const char16_t* caption;
  void (*press)(BillScreen& screen);
  BillArea of = BillArea::Head; // a bill without it omits the item
};

void deleteLayout(BillScreen& screen)
{
  GridLayout::FDeleteMSHFormat_Click(screen.session, screen.billName());
}

void printSettings(BillScreen& screen)
{
  BillPrints::PrintHandOff(screen, u"打印设置"_s);
}

constexpr Item Tools[] = {
    {"ToolBuild", u"新建", [](BillScreen& s) { s.NewBill(); }},
    {"ToolSave", u"保存", [](BillScreen& s) { s.FSave_Click(); }},
    {"ToolAuditing", u"审核", [](BillScreen& s) { s.RequestAudit(); }},
    {"ToolUnAuditing", u"反审核", [](BillScreen& s) { s.RequestUnAudit(); }},
    {"ToolDelete", u"删除", [](BillScreen& s) { s.FDelete_Click(); }},
    {"ToolInsertRow", u"插入行", [](BillScreen& s) { s.lines->InsertLineRow(); }, BillArea::Lines},
    {"ToolDeleteRow", u"删除行", [](BillScreen& s) { s.lines->DeleteLineRow(); }, BillArea::Lines},
    {"ToolRedWord", u"作废", [](BillScreen& s) { s.VoidBill(); }},
    {"ToolSeeWarrent", u"凭证", [](BillScreen& s) { Vouchers::ShowVoucher(s.session, s.store.bill().code); }},
    {"ToolHX", u"核销", [](BillScreen& s) { s.openWriteOff(); }, BillArea::WriteOff},
    {"ToolPrint", u"打印", [](BillScreen& s) { s.menus.MPrint.popUp(); }},
    {nullptr, u"资料", [](BillScreen& s) { s.partner->ShowPartnerInfo(); }, BillArea::Partner},
    {"ToolImg", u"图文", [](BillScreen& s) { OpenBillImages(s.session, s.store.bill().code, s.voucherKind()); }},
    {"ToolBefore", u"前单", [](BillScreen& s) { s.BrowsePrevious(); }},
    {"ToolBack", u"后单", [](BillScreen& s) { s.BrowseNext(); }},
    {"ToolExit", u"退出", [](BillScreen& s) { s.close(); }},
};

constexpr Item FileItems[] = {
    {"FBuild", u"新建", [](BillScreen& s) { s.NewBill(); }},
    {"FSave", u"保存", [](BillScreen& s) { s.FSave_Click(); }},
    {"FDelete", u"删除单据", [](BillScreen& s) { s.FDelete_Click(); }},
    {"FRedWord", u"作废单据", [](BillScreen& s) { s.VoidBill(); }},
    {"FSeeWarrent", u"查看凭证", [](BillScreen& s) { Vouchers::FSeeWarrent_Click(s.session, s.store.bill().code); }},
    {"FJXCAccount", u"自动生成会计凭证对应科目设置", [](BillScreen& s) { s.FJXCAccount_Click(); }},
    {"FMSHFormat", u"界面列表格式设置", [](BillScreen& s) { s.lines->FMSHFormat_Click(); }, BillArea::Lines},
    {"FDeleteMSHFormat", u"删除界面列表格式", deleteLayout, BillArea::Lines},
    {"FPrintSet", u"打印设置", printSettings},
};

constexpr Item PrintItems[] = {
    {"MPDirect_PT", u"直接打印", [](BillScreen& s) { BillPrints::PrintHandOff(s, u"直接打印"_s); }},
    {"MPPreview_PT", u"打印预览", [](BillScreen& s) { BillPrints::PrintHandOff(s, u"打印预览"_s); }},
    {"MPrintSet_PT", u"打印设置", printSettings},
};

template <typename Kind> Kind* add(BillScreen& screen, Control& container, const Item& item, const char* name = nullptr)
{
  Kind* const control = new Kind(&container, item.name ? item.name : name);
  control->setCaption(QString::fromUtf16(item.caption));
  control->onClick = [&screen, press = item.press] { press(screen); };
  return control;
}

} // namespace

BillMenus::BillMenus(BillScreen& screen, const BillTraits& traits)
    : Toolbar1(&screen, "Toolbar1"), File(&screen, "File"), MPrint(&screen, "MPrint"), m_screen(screen)
{
  File.setCaption(u"文件(&F)"_s);
  MPrint.setCaption(u"打印(&T)"_s);
  buildToolbar(traits);
  buildFileMenu(traits);
  buildPrintMenu();
}

void BillMenus::buildToolbar(const BillTraits& traits)
{
  for (const Item& item : Tools) {
    if (!traits.has(item.of))
      continue;
    auto* const button = add<ToolButton>(m_screen, Toolbar1, item, traits.partner ? traits.partner->infoTool : nullptr);
    if (!item.name)
      button->setToolTip(QString::fromUtf16(traits.partner->infoToolTip));
  }
  Toolbar1.findChild<Control*>(u"ToolDelete"_s)->setToolTip(u"删除单据"_s);
  Toolbar1.findChild<Control*>(u"ToolSeeWarrent"_s)->setVisible(hasAccountingModule(m_screen.session.params.VisionType));
}

void BillMenus::buildFileMenu(const BillTraits& traits)
{
  for (const Item& item : FileItems)
    if (traits.has(item.of))
      add<MenuItem>(m_screen, File, item);
  Menu* const exports = new Menu(&File, "FExcle");
  exports->setCaption(u"导出至Excel文件..."_s);
  add<MenuItem>(m_screen, *exports, {"FExcle_PT", u"普通格式", [](BillScreen& s) { BillPrints::FExcle_PT_Click(s); }});
  addTemplateMenu(*exports, "FIntoExcel", u"设置的格式", "FIntoExcel_Inf", BillTemplate::Finish::HandOver);
  add<MenuItem>(m_screen, File, {"FExit", u"退出", [](BillScreen& s) { s.close(); }});
}

void BillMenus::buildPrintMenu()
{
  for (const Item& item : PrintItems)
    add<MenuItem>(m_screen, MPrint, item);
  addTemplateMenu(MPrint, "MPDirect_Excel", u"按模板直接打印", "MPDirect_Excel_D_Inf", BillTemplate::Finish::Print);
  addTemplateMenu(MPrint, "MPPreview_Excel", u"按模板打印预览", "MPPreview_Excel_D_Inf", BillTemplate::Finish::Preview);
  add<MenuItem>(m_screen, MPrint, {"MPrintSet_Excel", u"外部报表管理", [](BillScreen& s) { BillPrints::MPrintSet_Excel_Click(s); }});
}

void BillMenus::addTemplateMenu(Menu& parent, const char* name, const char16_t* caption, const char* items, BillTemplate::Finish finish)
{
  Menu* const menu = new Menu(&parent, name);
  menu->setCaption(QString::fromUtf16(caption));
  auto* const templates = new MenuItemArray(menu, items);
  templates->setItem(0, u"暂无"_s);
  templates->onItemClick = [this, templates, finish](int index) {
    BillPrints::PrintBill_Excel(m_screen, templates->captions().value(index), finish);
  };
  m_templates.append(templates);
}

void BillMenus::fillTemplateMenus()
{
  const QStringList names = BillTemplate::namesOf(m_screen.session, m_screen.billName());
  for (MenuItemArray* const menu : m_templates)
    for (int index = 0; index < names.size(); ++index)
      menu->setItem(index, names[index]);
}

void BillMenus::enablePrinting(bool on)
{
  Toolbar1.findChild<Control*>(u"ToolPrint"_s)->setEnabled(on);
  MPrint.setEnabled(on);
}
