#include "windows/Windows.h"

#include "desktop/FormWindow.h"
#include "layouts/frmOption_Bill.h"
#include "pickers/frmCode.h"
#include "pickers/frmWarehouseSelect.h"
#include "printing/frmExport.h"
#include "program/ProgramScreens.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QSet>
#include <QTest>

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

TEST(Windows, WhatIsTypedIsOfferedAgainAfterADeath)
{
  AccountSetFixture at;
  const QDir drafts(at.folder.filePath("TempFile"));
  EXPECT_TRUE(drafts.mkpath("."));
  const auto start = [&at] {
    auto screen = makeProgramScreen(at.session, "frmPayfund");
    screen->Form_Load();
    screen->form().opened();
    screen->frm_Initialize(false);
    return screen;
  };
  {
    const auto dying = start();
    const FormWindow bound(dying->form(), Windows::Designs, nullptr);
    bound.window().show();
    QTest::keyClicks(bound.window().findChild<QLineEdit*>("TxtMemo"), "memo");
    QTest::qWait(1000);
    QTest::keyClicks(bound.window().findChild<QLineEdit*>("TxtMemo"), "s");
    QTest::qWait(1200);
    EXPECT_TRUE(drafts.isEmpty()) << "two seconds after the last change";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !drafts.isEmpty(); }));
  }
  const auto next = start();
  const FormWindow bound(next->form(), Windows::Designs, nullptr);
  bound.window().show();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&bound.window()));
  const QWidget& strip = *bound.window().findChild<QWidget*>("FrameDraft");
  EXPECT_TRUE(strip.isVisible());
  QTest::keyClick(bound.window().focusWidget(), Qt::Key_R, Qt::AltModifier);
  EXPECT_FALSE(strip.isVisible());
  EXPECT_EQ(bound.window().findChild<QLineEdit*>("TxtMemo")->text(), "memos");
}
