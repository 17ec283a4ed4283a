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
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
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

constexpr const char* Screens[] = {"frmPayfund",    "frmGathefund", "frmBankKeepTake",   "frmFeeElseIncome",
                                   "frmFeeSustain", "frmGouDui",    "frmGouDuiTogather", "frmSFKHeXiao"};

// The keys of a menu item: Alt and the letter of its menu, the arrows to the item, Enter.
void pressByKeys(QWidget& window, const Control& item)
{
  QList<const Control*> path{&item};
  while (qobject_cast<const Menu*>(path.first()->parent()))
    path.prepend(static_cast<const Control*>(path.first()->parent()));
  const QString bar = path.first()->caption();
  QTest::keyClick(window.focusWidget(), bar.at(bar.indexOf(u'&') + 1).toLatin1(), Qt::AltModifier);
  for (const Control* const at : path.mid(1)) {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu) << shown(at->name());
    const auto isThere = [&] {
      const QAction* const active = menu->activeAction();
      return active && (active->objectName() == at->name() || (active->menu() && active->menu()->objectName() == at->name()));
    };
    for (qsizetype steps = menu->actions().size(); steps > 0 && !isThere(); --steps)
      QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, at == &item ? Qt::Key_Return : Qt::Key_Right);
  }
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
  for (const char* name : Screens)
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

TEST(Windows, EveryToolAndMenuItemIsReachedByKeys)
{
  SessionFixture at;
  frmWarehouseSelect accounts(at.session, {});
  std::vector<std::unique_ptr<Screen>> screens;
  QList<Form*> forms{&accounts};
  for (const char* name : Screens)
    forms.append(&screens.emplace_back(makeProgramScreen(at.session, name))->form());
  for (Form* const form : forms) {
    QString pressed;
    for (Control* const control : form->controls()) {
      if (control->onClick)
        control->onClick = [&pressed, control] { pressed = control->name(); };
      if (auto* const items = qobject_cast<MenuItemArray*>(control))
        items->onItemClick = [&pressed, items](int) { pressed = items->name(); };
    }
    const FormWindow bound(*form, Windows::Designs, nullptr);
    form->opened();
    bound.window().show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&bound.window()));
    form->focusFirst();
    for (const Control* const control : form->controls()) {
      const bool isItem = qobject_cast<const MenuItem*>(control) || qobject_cast<const MenuItemArray*>(control);
      const bool isTool = qobject_cast<const ToolButton*>(control) && control->onClick;
      const QString twin = u'F' + control->name().mid(4);
      // Enter selects in the tree of accounts.
      if (!control->isReachable() || (!isItem && !isTool) || control->name() == "ToolSelect")
        continue;
      pressed.clear();
      const QKeySequence key(bound.actionDesign(*control).shortcut.toString());
      if (isItem)
        pressByKeys(bound.window(), *control);
      else if (!key.isEmpty())
        QTest::keySequence(bound.window().focusWidget(), key);
      else if (form->find(twin))
        continue;
      const QString expected = isTool && !key.isEmpty() && form->find<MenuItem>(twin) ? twin : control->name();
      EXPECT_EQ(pressed, expected) << shown(form->name());
    }
  }
}
