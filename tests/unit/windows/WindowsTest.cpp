#include "windows/Windows.h"

#include "desktop/FormWindow.h"
#include "layouts/frmOption_Bill.h"
#include "pickers/frmCode.h"
#include "pickers/frmWarehouseSelect.h"
#include "printing/frmExport.h"
#include "program/ProgramScreens.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QSet>

namespace {

// Widgets and actions with a name (those that begin with a small letter are the window's own).
QStringList namedWidgets(const QWidget& window)
{
  QStringList names;
  for (const QObject* widget : window.findChildren<QObject*>()) {
    const QString name = widget->objectName();
    if (!name.isEmpty() && name.front().isUpper() && (widget->isWidgetType() || qobject_cast<const QAction*>(widget)))
      names.append(name);
  }
  return names;
}

} // namespace

TEST(Windows, EveryControlHasItsWidgetAndEveryNamedWidgetItsControl)
{
  SessionFixture at;
  std::vector<std::unique_ptr<Screen>> screens;
  frmCode codes(at.session, {});
  frmWarehouseSelect accounts(at.session, {});
  frmOption_Bill columns(at.session);
  frmExport progress(at.session);
  QList<Form*> forms{&codes, &accounts, &columns, &progress};
  for (const char* name : {"frmPayfund", "frmGathefund", "frmBankKeepTake", "frmFeeElseIncome", "frmFeeSustain", "frmGouDui",
                           "frmGouDuiTogather", "frmSFKHeXiao"})
    forms.append(&screens.emplace_back(makeProgramScreen(at.session, name))->form());
  QSet<QString> named;
  QSet<QString> controls;
  for (Form* const form : forms) {
    const FormWindow bound(*form, Windows::Designs, nullptr);
    for (const Control* control : form->controls()) {
      EXPECT_TRUE(bound.bindingOf(*control)) << shown(form->name()) << " has no widget for " << shown(control->name());
      controls.insert(control->name());
    }
    for (const QString& name : namedWidgets(bound.window()))
      named.insert(name);
  }
  // Forms that share a design need not have every control of it, but one of them has.
  EXPECT_EQ((named - controls).values().join(", "), "");
}
