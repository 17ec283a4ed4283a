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

using namespace Qt::StringLiterals;

namespace {

// Widgets and actions that bear a name (those that begin with a small letter are the window's own).
QStringList namedFaces(const QWidget& window)
{
  QStringList names;
  for (const QObject* face : window.findChildren<QObject*>()) {
    const QString name = face->objectName();
    if (!name.isEmpty() && name.front().isUpper() && (face->isWidgetType() || qobject_cast<const QAction*>(face)))
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
  for (const QString& name : {u"frmPayfund"_s, u"frmGathefund"_s, u"frmBankKeepTake"_s, u"frmFeeElseIncome"_s, u"frmFeeSustain"_s,
                              u"frmGouDui"_s, u"frmGouDuiTogather"_s, u"frmSFKHeXiao"_s})
    forms.append(&screens.emplace_back(makeProgramScreen(at.session, name))->form());
  QSet<QString> faces;
  QSet<QString> controls;
  for (Form* const form : forms) {
    const FormWindow bound(*form, Windows::Designs, nullptr);
    for (const Control* control : form->controls()) {
      EXPECT_TRUE(bound.bindingOf(*control)) << shown(form->name()) << " has no widget for " << shown(control->name());
      controls.insert(control->name());
    }
    for (const QString& name : namedFaces(bound.window()))
      faces.insert(name);
  }
  // Forms that share a design need not have every control of it, but one of them has.
  EXPECT_EQ((faces - controls).values().join(u", "_s), u""_s);
}
