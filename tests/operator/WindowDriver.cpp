#include "Driver.h"
#include "Failure.h"
#include "Widgets.h"
#include "desktop/DesktopDesk.h"
#include "screen/Grid.h"
#include "screen/Tree.h"
#include "support/NodeTexts.h"
#include "windows/Windows.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QTreeView>
#include <QWheelEvent>

namespace {

using Widgets::Face;

template <typename Kind> Kind& as(const Face& face, const ControlName& name, const char* kind)
{
  if (auto* const found = qobject_cast<Kind*>(face.widget))
    return *found;
  throw Failure(QStringLiteral("%1 is no %2").arg(name.text(), QString::fromLatin1(kind)));
}

// Handles what is pending: layouts, the activation of a new window, repaints.
void settle()
{
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
}

void clickAt(QWidget* widget, QPoint at, bool twice)
{
  QTest::mouseClick(widget, Qt::LeftButton, {}, at);
  if (twice)
    QTest::mouseDClick(widget, Qt::LeftButton, {}, at);
  settle();
}

// Where a widget takes a click: a check box only on its mark and text, however wide it is.
QPoint clickPlace(const QWidget& widget)
{
  const bool isCheck = qobject_cast<const QCheckBox*>(&widget) || qobject_cast<const QRadioButton*>(&widget);
  if (!isCheck)
    return widget.rect().center();
  QStyleOptionButton option;
  option.initFrom(&widget);
  return widget.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &widget).center();
}

struct WindowKey {
  Qt::Key key;
  const char* text; // as the window system delivers it
};

WindowKey keyOf(const Key& key)
{
  switch (key.code) {
  case Key::Enter: return {Qt::Key_Return, "\r"};
  case Key::Tab: return {key.shift ? Qt::Key_Backtab : Qt::Key_Tab, "\t"};
  case Key::Escape: return {Qt::Key_Escape, "\x1b"};
  case Key::Backspace: return {Qt::Key_Backspace, "\b"};
  case Key::Delete: return {Qt::Key_Delete, "\x7f"};
  case Key::Up: return {Qt::Key_Up, ""};
  case Key::Down: return {Qt::Key_Down, ""};
  case Key::Left: return {Qt::Key_Left, ""};
  case Key::Right: return {Qt::Key_Right, ""};
  case Key::PageUp: return {Qt::Key_PageUp, ""};
  case Key::PageDown: return {Qt::Key_PageDown, ""};
  case Key::Home: return {Qt::Key_Home, ""};
  case Key::End: return {Qt::Key_End, ""};
  case Key::Character: break;
  }
  // The codes of ASCII keys are those of their characters; a Chinese character comes from no key.
  const char32_t character = key.text.toUcs4().value(0);
  return {character < 0x80 ? Qt::Key(key.text.toUpper().at(0).unicode()) : Qt::Key_unknown, nullptr};
}

// In the order of QMessageBox::Icon, and of Desk::Answer.
constexpr Desk::Icon Icons[] = {Desk::Icon::None, Desk::Icon::Information, Desk::Icon::Warning, Desk::Icon::Stop, Desk::Icon::Question};
constexpr QMessageBox::StandardButton AnswerButtons[] = {QMessageBox::Ok, QMessageBox::Cancel, QMessageBox::Yes, QMessageBox::No};

Desk::Buttons buttonsOf(const QMessageBox& box)
{
  if (box.button(QMessageBox::Yes))
    return Desk::Buttons::YesNo;
  return box.button(QMessageBox::Cancel) ? Desk::Buttons::OkCancel : Desk::Buttons::Ok;
}

// The visible tool button of an action; null if there is none.
QWidget* toolButtonOf(const QAction& action)
{
  for (QObject* object : action.associatedObjects())
    if (const auto* bar = qobject_cast<QToolBar*>(object))
      if (QWidget* const button = bar->widgetForAction(const_cast<QAction*>(&action)); button && button->isVisible())
        return button;
  return nullptr;
}

// Opens the menus down to the one with the action, and returns it; null if the action is in no menu bar.
QMenu* openMenuOf(QAction& action)
{
  for (QObject* object : action.associatedObjects()) {
    auto* const menu = qobject_cast<QMenu*>(object);
    if (!menu || menu->menuAction() == &action)
      continue;
    if (menu->isVisible())
      return menu;
    for (QObject* holder : menu->menuAction()->associatedObjects())
      if (auto* const bar = qobject_cast<QMenuBar*>(holder)) {
        clickAt(bar, bar->actionGeometry(menu->menuAction()).center(), false);
        return menu->isVisible() ? menu : nullptr;
      }
    if (QMenu* const above = openMenuOf(*menu->menuAction())) {
      above->setActiveAction(menu->menuAction());
      settle();
      return menu->isVisible() ? menu : nullptr;
    }
  }
  return nullptr;
}

void trigger(QAction& action)
{
  if (QWidget* const button = toolButtonOf(action))
    clickAt(button, button->rect().center(), false);
  else if (QMenu* const menu = openMenuOf(action))
    clickAt(menu, menu->actionGeometry(&action).center(), false);
  else
    action.trigger();
}

// A grid as its table shows it: row 0 is the horizontal header, column 0 the vertical one.
class Table {
public:
  Table(const Face& face, const ControlName& name) : m_view(as<QTableView>(face, name, "grid")), m_model(*m_view.model()) {}

  int rows() const { return m_model.rowCount() + 1; }
  int cols() const { return m_model.columnCount() + 1; }

  bool isHidden(int col) const { return col == 0 ? m_view.verticalHeader()->isHidden() : m_view.isColumnHidden(col - 1); }

  QString text(int row, int col) const
  {
    if (row == 0 && col == 0) {
      const auto* const corner = m_view.findChild<QLabel*>(QStringLiteral("cornerText"));
      return corner ? corner->text() : QString();
    }
    if (row == 0)
      return m_model.headerData(col - 1, Qt::Horizontal).toString();
    return (col == 0 ? m_model.headerData(row - 1, Qt::Vertical) : index(row, col).data()).toString();
  }

  int width(int col) const
  {
    return m_model.headerData(qMax(0, col - 1), col == 0 ? Qt::Vertical : Qt::Horizontal, Grid::WidthRole).toInt();
  }

  // 0 for a header, which is never current in the view.
  int currentRow() const { return m_view.currentIndex().row() + 1; }
  int currentCol() const { return m_view.currentIndex().column() + 1; }

  void click(int row, int col, bool twice) const
  {
    if (row == 0 && col == 0)
      throw Failure(QStringLiteral("the corner of %1 takes no click").arg(m_view.objectName()));
    if (row == 0)
      return clickHeader(*m_view.horizontalHeader(), col - 1, twice);
    if (col == 0)
      return clickHeader(*m_view.verticalHeader(), row - 1, twice);
    m_view.scrollTo(index(row, col));
    clickAt(m_view.viewport(), m_view.visualRect(index(row, col)).center(), twice);
  }

private:
  QModelIndex index(int row, int col) const { return m_model.index(row - 1, col - 1); }

  static void clickHeader(QHeaderView& header, int section, bool twice)
  {
    const int along = header.sectionViewportPosition(section) + header.sectionSize(section) / 2;
    const bool isAbove = header.orientation() == Qt::Horizontal;
    clickAt(header.viewport(), isAbove ? QPoint(along, header.height() / 2) : QPoint(header.width() / 2, along), twice);
  }

  QTableView& m_view;
  const QAbstractItemModel& m_model;
};

// The real windows: key and mouse events go to widgets, and what is looked at is what the widgets show.
class WindowDriver : public Driver, private DeskObserver {
public:
  explicit WindowDriver(DriverEvents& events) : m_events(events), m_desk(Windows::Designs, this) {}

  Desk& desk() override { return m_desk; }

  QString topForm() override
  {
    settle();
    const QWidget* const window = Widgets::topWindow();
    return window ? window->objectName() : QString();
  }

  void clear() override
  {
    while (QWidget* const window = Widgets::topWindow())
      window->close();
    settle();
    // Windows are deleted after the events that closed them, and must be deleted before their forms.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  bool selectText(const ControlName& name) override
  {
    const Face face = reach(name);
    const auto* const drop = qobject_cast<QComboBox*>(face.widget);
    if (drop && !drop->lineEdit())
      throw Failure(QStringLiteral("%1 is not typed into, an item is chosen").arg(name.text()));
    auto* const edit = drop ? drop->lineEdit() : qobject_cast<QLineEdit*>(face.widget);
    if (!edit && !qobject_cast<QTableView*>(face.widget))
      throw Failure(QStringLiteral("%1 is no text box").arg(name.text()));
    giveFocus(face, name);
    if (edit)
      edit->selectAll();
    return edit && !edit->text().isEmpty();
  }

  void press(const Key& key) override
  {
    QWidget* target = QApplication::activePopupWidget();
    if (!target && Widgets::topWindow())
      target = Widgets::topWindow()->focusWidget();
    if (!target)
      throw Failure(QStringLiteral("nothing on %1 has the focus").arg(topForm()));
    const WindowKey pressed = keyOf(key);
    QTest::sendKeyEvent(QTest::Click, target, pressed.key, pressed.text ? QString::fromLatin1(pressed.text) : key.text,
                        (key.shift ? Qt::ShiftModifier : Qt::NoModifier) | (key.ctrl ? Qt::ControlModifier : Qt::NoModifier));
    settle();
  }

  void focus(const ControlName& name) override { giveFocus(reach(name), name); }

  void click(const ControlName& name) override
  {
    const Face face = reach(name);
    if (face.action && Widgets::actions(face, name).size() > 1)
      throw Failure(QStringLiteral("%1 is an item array, and no item is told").arg(name.text()));
    if (face.action)
      trigger(*face.action);
    else
      clickAt(face.widget, clickPlace(*face.widget), false);
  }

  void clickItem(const ControlName& name, int index) override
  {
    const QList<QAction*> actions = Widgets::actions(reach(name), name);
    if (index >= actions.size())
      throw Failure(QStringLiteral("%1 has %2 items, counted from 0").arg(name.text()).arg(actions.size()));
    trigger(*actions[index]);
  }

  void doubleClick(const ControlName& name) override
  {
    const Face face = reach(name);
    if (!face.widget)
      throw Failure(QStringLiteral("%1 takes no double click").arg(name.text()));
    clickAt(face.widget, clickPlace(*face.widget), true);
  }

  void choose(const ControlName& name, int item) override
  {
    const Face face = reach(name);
    giveFocus(face, name);
    if (auto* const drop = qobject_cast<QComboBox*>(face.widget)) {
      drop->showPopup();
      drop->view()->setCurrentIndex(drop->model()->index(item, drop->modelColumn()));
      QTest::keyClick(drop->view(), Qt::Key_Return);
      return settle();
    }
    auto& list = as<QListView>(face, name, "drop-down or list");
    const QModelIndex index = list.model()->index(item, 0);
    list.scrollTo(index);
    clickAt(list.viewport(), list.visualRect(index).center(), false);
  }

  void setDate(const ControlName& name, const QDate& date) override
  {
    const Face face = reach(name);
    auto& picker = as<QDateEdit>(face, name, "date picker");
    giveFocus(face, name);
    picker.setDate(date);
    settle();
  }

  void clickCell(const ControlName& name, int row, int column, bool twice) override
  {
    const Table table(reach(name), name);
    if (table.isHidden(column))
      throw Failure(QStringLiteral("the cell %1 %2 of %3 is hidden").arg(row).arg(column).arg(name.text()));
    table.click(row, column, twice);
  }

  void clickNode(const ControlName& name, const QString& key, bool twice) override
  {
    auto& tree = as<QTreeView>(reach(name), name, "tree");
    const QModelIndex node =
        tree.model()->match(tree.model()->index(0, 0), Tree::KeyRole, key, 1, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    if (!node.isValid())
      throw Failure(QStringLiteral("%1 has no node %2").arg(name.text(), key));
    tree.scrollTo(node);
    clickAt(tree.viewport(), tree.visualRect(node).center(), twice);
  }

  void wheel(const ControlName& name, int step) override
  {
    const Face face = reach(name);
    QWidget* const area = as<QTableView>(face, name, "grid").viewport();
    giveFocus(face, name);
    const QPoint at = area->rect().center();
    QWheelEvent turn(at, area->mapToGlobal(at), {}, {0, step}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(area, &turn);
    settle();
  }

  void close() override
  {
    top().close();
    settle();
  }

  QString text(const ControlName& name) override { return Widgets::text(Widgets::find(name)); }

  bool is(const ControlName& name, const QString& state) override
  {
    const Face face = Widgets::find(name);
    if (state == u"enabled")
      return Widgets::isUsable(face);
    if (state == u"visible")
      return Widgets::isShown(face);
    if (state == u"focused")
      return Widgets::isFocused(face);
    if (const auto* option = qobject_cast<QRadioButton*>(face.widget))
      return option->isChecked();
    return as<QCheckBox>(face, name, "check box or option").isChecked();
  }

  QStringList items(const ControlName& name) override { return Widgets::items(Widgets::find(name), name); }

  GridFace grid(const ControlName& name) override
  {
    const Table table(Widgets::find(name), name);
    return {table.rows(),
            table.cols(),
            table.currentRow(),
            table.currentCol(),
            [=](int row, int column) { return table.text(row, column); },
            [=](int column) { return table.width(column); }};
  }

  QStringList tree(const ControlName& name) override
  {
    return nodeTexts(*as<QTreeView>(Widgets::find(name), name, "tree").model(), QStringLiteral("  "));
  }

  void screenshot(const QString& path) override
  {
    settle();
    if (!QDir().mkpath(QFileInfo(path).path()) || !top().grab().save(path))
      throw Failure(QStringLiteral("cannot save the picture %1").arg(path));
  }

private:
  // DeskObserver
  void boxStands(QMessageBox& box) override
  {
    const Desk::Answer answer = m_events.boxOpened({box.text(), Icons[box.icon()], buttonsOf(box), box.windowTitle()});
    QTest::mouseClick(box.button(AnswerButtons[int(answer)]), Qt::LeftButton);
  }

  void modalStands(QWidget& window) override
  {
    const QPointer<QWidget> modal(&window);
    const auto isOpen = [&] { return modal && modal->isVisible(); };
    m_events.modalOpened(isOpen);
    if (isOpen())
      modal->close();
  }

  static QWidget& top()
  {
    QWidget* const window = Widgets::topWindow();
    if (!window)
      throw Failure(QStringLiteral("no form is open"));
    return *window;
  }

  // For acting: the window is active, as it is for a user.
  Face reach(const ControlName& name)
  {
    const Face face = Widgets::reach(name);
    // The list of a closed drop-down keeps the focus until another window gets it.
    const auto isInFront = [&] { return QApplication::activePopupWidget() || QApplication::activeWindow() == face.window; };
    if (!isInFront()) {
      face.window->activateWindow();
      if (!QTest::qWaitFor(isInFront))
        throw Failure(QStringLiteral("the window of %1 does not come to the front").arg(topForm()));
    }
    return face;
  }

  static void giveFocus(const Face& face, const ControlName& name)
  {
    if (!face.widget || face.widget->focusPolicy() == Qt::NoFocus)
      throw Failure(QStringLiteral("%1 takes no focus").arg(name.text()));
    face.widget->setFocus(Qt::OtherFocusReason);
    settle();
  }

  DriverEvents& m_events;
  DesktopDesk m_desk;
};

} // namespace

std::unique_ptr<Driver> Driver::ofWindows(DriverEvents& events)
{
  return std::make_unique<WindowDriver>(events);
}
