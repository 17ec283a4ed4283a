#include "windows/Windows.h"

#include "desktop/Appearance.h"
#include "ui_BillPartner.h"
#include "ui_BillStaff.h"
#include "ui_BillTransfer.h"
#include "ui_BillWindow.h"
#include "ui_ListWindow.h"
#include "ui_frmCode.h"
#include "ui_frmExport.h"
#include "ui_frmGouDui.h"
#include "ui_frmOption_Bill.h"
#include "ui_frmSFKHeXiao.h"
#include "ui_frmWarehouseSelect.h"

#include <QDialog>
#include <QMainWindow>

// The icons are in this static library; without the call the linker would drop them.
static void loadPictures()
{
  Q_INIT_RESOURCE(pictures);
}

namespace Windows {
namespace {

template <typename Design> std::unique_ptr<QWidget> dialog(QWidget* parent)
{
  auto window = std::make_unique<QDialog>(parent);
  Design().setupUi(window.get());
  return window;
}

// The designs of the bills differ in the contents of FrameProvide.
template <typename Provide> std::unique_ptr<QWidget> billWindow(QWidget* parent)
{
  auto window = std::make_unique<QMainWindow>(parent);
  Ui::BillWindow bill;
  bill.setupUi(window.get());
  Provide().setupUi(bill.FrameProvide);
  Appearance::stamp(*bill.LabState);
  Appearance::note(*bill.FrameDraft);
  // The stored date as plain text; the picker covers it.
  Appearance::blend(*bill.TxtDate);
  return window;
}

// A list below the conditions of its query.
template <typename Conditions> std::unique_ptr<QWidget> listWindow(QWidget* parent)
{
  auto window = std::make_unique<QMainWindow>(parent);
  Ui::ListWindow list;
  list.setupUi(window.get());
  Conditions().setupUi(list.FrameCondition);
  list.LabRestore->setForegroundRole(QPalette::PlaceholderText);
  return window;
}

struct Maker {
  QStringView form;
  std::unique_ptr<QWidget> (*make)(QWidget* parent);
  QSize size; // initial size of the window; by default that of its contents
};

constexpr Maker Makers[] = {
    {u"frmPayfund", billWindow<Ui::BillPartner>, {1024, 700}},
    {u"frmGathefund", billWindow<Ui::BillPartner>, {1024, 700}},
    {u"frmBankKeepTake", billWindow<Ui::BillTransfer>, {960, 460}},
    {u"frmFeeElseIncome", billWindow<Ui::BillStaff>, {1024, 700}},
    {u"frmFeeSustain", billWindow<Ui::BillPartner>, {1024, 700}},
    {u"frmSFKHeXiao", listWindow<Ui::frmSFKHeXiao>, {1260, 760}},
    {u"frmGouDui", listWindow<Ui::frmGouDui>, {1260, 760}},
    {u"frmGouDuiTogather", listWindow<Ui::frmGouDui>, {1260, 760}},
    {u"frmExport", dialog<Ui::frmExport>, {}},
    {u"frmOption_Bill", dialog<Ui::frmOption_Bill>, {560, 420}},
    {u"frmCode", dialog<Ui::frmCode>, {860, 560}},
    {u"frmWarehouseSelect", dialog<Ui::frmWarehouseSelect>, {460, 560}},
};

struct NamedAction {
  QStringView control;
  ActionDesign design;
};

constexpr NamedAction Actions[] = {
    {u"ToolBuild", {u"new", u"Ctrl+N"}},
    {u"ToolSave", {u"save", u"Ctrl+S"}},
    {u"ToolAuditing", {u"audit", u"F9", true}},
    {u"ToolUnAuditing", {u"unaudit", u"Shift+F9"}},
    {u"ToolDelete", {u"delete", u"Ctrl+Shift+Del", true}},
    {u"ToolInsertRow", {u"insert-row", u"Ctrl+I", true}},
    {u"ToolDeleteRow", {u"delete-row", u"Ctrl+D"}},
    {u"ToolRedWord", {u"void", {}, true}},
    {u"ToolSeeWarrent", {u"voucher", u"Ctrl+Shift+V", true}},
    {u"ToolInOutBill", {u"goods-bill", u"Ctrl+B"}},
    {u"ToolSFKBill", {u"money-bill", u"Ctrl+M"}},
    {u"ToolOldBill", {u"goods-bill", u"Ctrl+B"}},
    {u"ToolInf", {u"detail", u"Ctrl+E"}},
    {u"ToolHX", {u"write-off", u"Ctrl+H"}},
    {u"ToolOK", {u"take-in", {}, true}},
    {u"ToolFiltre", {u"filter"}},
    {u"ToolPrint", {u"print", u"Ctrl+P", true}},
    {u"ToolProvideInf", {u"partner", u"Ctrl+R", true}},
    {u"ToolClientInf", {u"partner", u"Ctrl+R", true}},
    {u"ToolProvideClientInf", {u"partner", u"Ctrl+R", true}},
    {u"ToolImg", {u"images", u"Ctrl+G"}},
    {u"ToolBefore", {u"previous", u"Ctrl+PgUp", true}},
    {u"ToolBack", {u"next", u"Ctrl+PgDown"}},
    {u"ToolExit", {u"exit", u"Ctrl+F4", true}},
    {u"FBuild", {{}, u"Ctrl+N"}},
    {u"FSave", {{}, u"Ctrl+S"}},
    {u"FDelete", {{}, u"Ctrl+Shift+Del"}},
    {u"FSeeWarrent", {{}, u"Ctrl+Shift+V", true}},
    {u"FMSHFormat", {{}, {}, true}},
    {u"FPrintSet", {{}, {}, true}},
    {u"CmdQuery", {{}, u"F5"}},
    {u"FExit", {{}, u"Ctrl+F4", true}},
    {u"ToolRestore", {{}, u"Alt+R"}},
    {u"FRestoreHX", {{}, u"Ctrl+Z", true}},
    {u"ToolSelect", {u"select"}},
    {u"ToolAdd", {u"add", u"Ctrl+N"}},
    {u"ToolRefresh", {u"refresh", u"F5"}},
    {u"MPDirect_Excel", {{}, {}, true}},
    {u"MPrintSet_Excel", {{}, {}, true}},
};

} // namespace

std::unique_ptr<QWidget> make(const QString& form, QWidget* parent)
{
  loadPictures();
  for (const Maker& maker : Makers)
    if (form == maker.form) {
      auto window = maker.make(parent);
      if (maker.size.isValid())
        window->resize(maker.size);
      return window;
    }
  return nullptr;
}

ActionDesign action(const QString& control)
{
  for (const NamedAction& named : Actions)
    if (control == named.control)
      return named.design;
  return {};
}

} // namespace Windows
