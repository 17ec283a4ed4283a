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
  panel->setObjectName(QStringLiteral("Pic"));
  Panel().setupUi(panel);
  window->resize(panel->size());
  frame.area->setWidget(panel);
  return window;
}

struct Maker {
  const char* form;
  std::unique_ptr<QWidget> (*make)(QWidget* parent);
};

constexpr Maker Makers[] = {
    {"frmPayfund", designBill<Ui::frmPayfund>},
    {"frmGathefund", designBill<Ui::frmPayfund>},
    {"frmBankKeepTake", designBill<Ui::frmBankKeepTake>},
    {"frmFeeElseIncome", designBill<Ui::frmFeeElseIncome>},
    {"frmFeeSustain", designBill<Ui::frmFeeSustain>},
    {"frmSFKHeXiao", design<Ui::frmSFKHeXiao, QMainWindow>},
    {"frmGouDui", design<Ui::frmGouDui, QMainWindow>},
    {"frmGouDuiTogather", design<Ui::frmGouDui, QMainWindow>},
    {"frmExport", design<Ui::frmExport, QDialog>},
    {"frmOption_Bill", design<Ui::frmOption_Bill, QDialog>},
    {"frmCode", design<Ui::frmCode, QDialog>},
    {"frmWarehouseSelect", design<Ui::frmWarehouseSelect, QDialog>},
};

struct NamedFace {
  const char* control;
  ActionFace face;
};

constexpr NamedFace Faces[] = {
    {"ToolBuild", {"new", "Ctrl+N"}},
    {"ToolSave", {"save", "Ctrl+S"}},
    {"ToolAuditing", {"audit", "F9", true}},
    {"ToolUnAuditing", {"unaudit", "Shift+F9"}},
    {"ToolDelete", {"delete", "Ctrl+Shift+Del", true}},
    {"ToolInsertRow", {"insert-row", "Ctrl+I", true}},
    {"ToolDeleteRow", {"delete-row", "Ctrl+D"}},
    {"ToolRedWord", {"void", nullptr, true}},
    {"ToolSeeWarrent", {"voucher", "Ctrl+Shift+V", true}},
    {"ToolInOutBill", {"goods-bill", "Ctrl+B"}},
    {"ToolSFKBill", {"money-bill", "Ctrl+M"}},
    {"ToolOldBill", {"goods-bill", "Ctrl+B"}},
    {"ToolInf", {"detail", "Ctrl+E"}},
    {"ToolHX", {"write-off", "Ctrl+H"}},
    {"ToolOK", {"take-in", nullptr, true}},
    {"ToolFiltre", {"filter"}},
    {"ToolPrint", {"print", "Ctrl+P", true}},
    {"ToolProvideInf", {"partner", "Ctrl+R", true}},
    {"ToolClientInf", {"partner", "Ctrl+R", true}},
    {"ToolProvideClientInf", {"partner", "Ctrl+R", true}},
    {"ToolImg", {"images", "Ctrl+G"}},
    {"ToolBefore", {"previous", "Ctrl+PgUp", true}},
    {"ToolBack", {"next", "Ctrl+PgDown"}},
    {"ToolExit", {"exit", "Ctrl+F4", true}},
    {"FBuild", {nullptr, "Ctrl+N"}},
    {"FSave", {nullptr, "Ctrl+S"}},
    {"FDelete", {nullptr, "Ctrl+Shift+Del"}},
    {"FSeeWarrent", {nullptr, "Ctrl+Shift+V", true}},
    {"FMSHFormat", {nullptr, nullptr, true}},
    {"FPrintSet", {nullptr, nullptr, true}},
    {"CmdQuery", {nullptr, "F5"}},
    {"FExit", {nullptr, "Ctrl+F4", true}},
    {"ToolSelect", {"select"}},
    {"ToolAdd", {"add"}},
    {"ToolRefresh", {"refresh", "F5"}},
    {"MPDirect_Excel", {nullptr, nullptr, true}},
    {"MPrintSet_Excel", {nullptr, nullptr, true}},
};

} // namespace

std::unique_ptr<QWidget> make(const QString& form, QWidget* parent)
{
  loadPictures();
  for (const Maker& maker : Makers)
    if (form == QLatin1String(maker.form))
      return maker.make(parent);
  return nullptr;
}

ActionFace face(const QString& control)
{
  for (const NamedFace& named : Faces)
    if (control == QLatin1String(named.control))
      return named.face;
  return {};
}

} // namespace Windows
