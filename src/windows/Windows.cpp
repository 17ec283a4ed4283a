#include "windows/Windows.h"

#include "ui_BillWindow.h"
#include "ui_frmBankKeepTake.h"
#include "ui_frmCode.h"
#include "ui_frmExport.h"
#include "ui_frmFeeElseIncome.h"
#include "ui_frmFeeSustain.h"
#include "ui_frmGouDui.h"
#include "ui_frmOption_Bill.h"
#include "ui_frmPayfund.h"
#include "ui_frmSFKHeXiao.h"
#include "ui_frmWarehouseSelect.h"

#include <QDialog>
#include <QMainWindow>

using namespace Qt::StringLiterals;

// The pictures are in this library; without the call the linker would leave them out.
static void loadPictures()
{
  Q_INIT_RESOURCE(pictures);
}

namespace Windows {
namespace {

template <typename Design, typename Window> std::unique_ptr<QWidget> design(QWidget* parent)
{
  auto window = std::make_unique<Window>(parent);
  Design().setupUi(window.get());
  return window;
}

// The bills are panels in one window with a menu bar and a toolbar.
template <typename Panel> std::unique_ptr<QWidget> designBill(QWidget* parent)
{
  auto window = std::make_unique<QMainWindow>(parent);
  Ui::BillWindow frame;
  frame.setupUi(window.get());
  auto* const panel = new QWidget;
  panel->setObjectName(u"Pic"_s);
  Panel().setupUi(panel);
  window->resize(panel->size());
  frame.area->setWidget(panel);
  return window;
}

struct Maker {
  QStringView form;
  std::unique_ptr<QWidget> (*make)(QWidget* parent);
};

constexpr Maker Makers[] = {
    {u"frmPayfund", designBill<Ui::frmPayfund>},
    {u"frmGathefund", designBill<Ui::frmPayfund>},
    {u"frmBankKeepTake", designBill<Ui::frmBankKeepTake>},
    {u"frmFeeElseIncome", designBill<Ui::frmFeeElseIncome>},
    {u"frmFeeSustain", designBill<Ui::frmFeeSustain>},
    {u"frmSFKHeXiao", design<Ui::frmSFKHeXiao, QMainWindow>},
    {u"frmGouDui", design<Ui::frmGouDui, QMainWindow>},
    {u"frmGouDuiTogather", design<Ui::frmGouDui, QMainWindow>},
    {u"frmExport", design<Ui::frmExport, QDialog>},
    {u"frmOption_Bill", design<Ui::frmOption_Bill, QDialog>},
    {u"frmCode", design<Ui::frmCode, QDialog>},
    {u"frmWarehouseSelect", design<Ui::frmWarehouseSelect, QDialog>},
};

struct NamedFace {
  QStringView control;
  ActionFace face;
};

constexpr NamedFace Faces[] = {
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
    {u"ToolSelect", {u"select"}},
    {u"ToolAdd", {u"add"}},
    {u"ToolRefresh", {u"refresh", u"F5"}},
    {u"MPDirect_Excel", {{}, {}, true}},
    {u"MPrintSet_Excel", {{}, {}, true}},
};

} // namespace

std::unique_ptr<QWidget> make(const QString& form, QWidget* parent)
{
  loadPictures();
  for (const Maker& maker : Makers)
    if (form == maker.form)
      return maker.make(parent);
  return nullptr;
}

ActionFace face(const QString& control)
{
  for (const NamedFace& named : Faces)
    if (control == named.control)
      return named.face;
  return {};
}

} // namespace Windows
