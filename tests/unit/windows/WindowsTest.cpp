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

using namespace Qt::StringLiterals;

namespace {

// Controls without a face in the window, and faces that bear a name (those that begin with a small letter
// are the window's own) without a control.
QStringList unmatched(Form& form)
{
  const FormWindow bound(form, Windows::Designs, nullptr);
  QStringList names;
  for (const Control* control : form.controls())
    if (!bound.bindingOf(*control))
      names.append(control->name() + u" has no widget"_s);
  for (const QObject* face : bound.window().findChildren<QObject*>()) {
    const QString name = face->objectName();
    const bool isNamed = !name.isEmpty() && name.front().isUpper() && (face->isWidgetType() || qobject_cast<const QAction*>(face));
    if (isNamed && !form.find(name))
      names.append(name + u" has no control"_s);
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
  for (Form* const form : forms)
    EXPECT_EQ(unmatched(*form).join(u", "_s), u""_s) << shown(form->name());
}
