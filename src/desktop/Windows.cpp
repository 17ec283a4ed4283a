#include "desktop/Windows.h"

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

namespace Windows {
namespace {

template <typename Design, typename Window> std::unique_ptr<QWidget> design(QWidget* parent)
{
  auto window = std::make_unique<Window>(parent);
  Design().setupUi(window.get());
  return window;
}

struct Maker {
  const char* form;
  std::unique_ptr<QWidget> (*make)(QWidget* parent);
};

constexpr Maker Makers[] = {
    {"frmPayfund", design<Ui::frmPayfund, QMainWindow>},
    {"frmGathefund", design<Ui::frmPayfund, QMainWindow>},
    {"frmBankKeepTake", design<Ui::frmBankKeepTake, QMainWindow>},
    {"frmFeeElseIncome", design<Ui::frmFeeElseIncome, QMainWindow>},
    {"frmFeeSustain", design<Ui::frmFeeSustain, QMainWindow>},
    {"frmSFKHeXiao", design<Ui::frmSFKHeXiao, QMainWindow>},
    {"frmGouDui", design<Ui::frmGouDui, QMainWindow>},
    {"frmGouDuiTogather", design<Ui::frmGouDui, QMainWindow>},
    {"frmExport", design<Ui::frmExport, QDialog>},
    {"frmOption_Bill", design<Ui::frmOption_Bill, QDialog>},
    {"frmCode", design<Ui::frmCode, QDialog>},
    {"frmWarehouseSelect", design<Ui::frmWarehouseSelect, QDialog>},
};

} // namespace

std::unique_ptr<QWidget> make(const QString& form, QWidget* parent)
{
  for (const Maker& maker : Makers)
    if (form == QLatin1String(maker.form))
      return maker.make(parent);
  return nullptr;
}

} // namespace Windows
