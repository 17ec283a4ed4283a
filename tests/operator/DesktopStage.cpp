#include "DesktopStage.h"

#include "Unmet.h"
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
  throw Unmet(QStringLiteral("%1 is no %2").arg(name.text(), QString::fromLatin1(kind)));
}

// Lets the program do what it has put off: layouts, the activation of a new window, repaints.
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

// Where a widget takes a click: a check box only on its mark and text, whatever room it has.
QPoint clickPlace(const QWidget& widget)
{
  const bool isCheck = qobject_cast<const QCheckBox*>(&widget) || qobject_cast<const QRadioButton*>(&widget);
  if (!isCheck)
    return widget.rect().center();
  QStyleOptionButton option;
  option.initFrom(&widget);
  return widget.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &widget).center();
}

Qt::Key keyOf(const Key& key)
{
  switch (key.code) {
  case Key::Enter: return Qt::Key_Return;
  case Key::Tab: return key.shift ? Qt::Key_Backtab : Qt::Key_Tab;
  case Key::Escape: return Qt::Key_Escape;
  case Key::Up: return Qt::Key_Up;
  case Key::Down: return Qt::Key_Down;
  case Key::Left: return Qt::Key_Left;
  case Key::Right: return Qt::Key_Right;
  case Key::PageUp: return Qt::Key_PageUp;
  case Key::PageDown: return Qt::Key_PageDown;
  case Key::Home: return Qt::Key_Home;
  case Key::End: return Qt::Key_End;
  case Key::Backspace: return Qt::Key_Backspace;
  case Key::Delete: return Qt::Key_Delete;
  case Key::Character: break;
  }
  // The codes of printable signs are those of their characters; a Chinese one comes from no key.
  const char32_t character = key.text.toUcs4().value(0);
  return character < 0x80 ? Qt::Key(key.text.toUpper().at(0).unicode()) : Qt::Key_unknown;
}

// The text that a key brings with it, as the window system tells it.
QString textOf(const Key& key)
{
  switch (key.code) {
  case Key::Character: return key.text;
  case Key::Enter: return QStringLiteral("\r");
  case Key::Tab: return QStringLiteral("\t");
  case Key::Escape: return QStringLiteral("\x1b");
  case Key::Backspace: return QStringLiteral("\b");
  case Key::Delete: return QStringLiteral("\x7f");
  default: return {};
  }
}

Desk::Icon iconOf(QMessageBox::Icon icon)
{
  switch (icon) {
  case QMessageBox::NoIcon: return Desk::Icon::None;
  case QMessageBox::Information: return Desk::Icon::Information;
  case QMessageBox::Question: return Desk::Icon::Question;
  case QMessageBox::Warning: return Desk::Icon::Warning;
  case QMessageBox::Critical: return Desk::Icon::Stop;
  }
  return Desk::Icon::None;
}

Desk::Buttons buttonsOf(const QMessageBox& box)
{
  if (box.button(QMessageBox::Yes))
    return Desk::Buttons::YesNo;
  return box.button(QMessageBox::Cancel) ? Desk::Buttons::OkCancel : Desk::Buttons::Ok;
}

QMessageBox::StandardButton buttonOf(Desk::Answer answer)
{
  switch (answer) {
  case Desk::Answer::Ok: return QMessageBox::Ok;
  case Desk::Answer::Cancel: return QMessageBox::Cancel;
  case Desk::Answer::Yes: return QMessageBox::Yes;
  case Desk::Answer::No: return QMessageBox::No;
  }
  return QMessageBox::NoButton;
}

// The tool button that shows an action, if it has room on its bar.
QWidget* toolButtonOf(const QAction& action)
{
  for (QObject* object : action.associatedObjects())
    if (const auto* bar = qobject_cast<QToolBar*>(object))
      if (QWidget* const button = bar->widgetForAction(const_cast<QAction*>(&action)); button && button->isVisible())
        return button;
  return nullptr;
}

// Opens the menus down to the one that holds the action, and gives it; null if it hangs in no menu bar.
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

// A grid as its table shows it: row 0 is the header above the cells, column 0 the one beside them.
class Table {
public:
  Table(const Face& face, const ControlName& name) : m_view(as<QTableView>(face, name, "grid")), m_model(*m_view.model()) {}

  int rows() const { return m_model.rowCount() + 1; }
  int cols() const { return m_model.columnCount() + 1; }

  void require(int row, int col) const
  {
    if (row >= rows() || col >= cols())
      throw Unmet(QStringLiteral("%1 has %2 rows and %3 columns").arg(m_view.objectName()).arg(rows()).arg(cols()));
  }

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

  // 0 for a place in a header, which the view has no current one of.
  int currentRow() const { return m_view.currentIndex().row() + 1; }
  int currentCol() const { return m_view.currentIndex().column() + 1; }

  void click(int row, int col, bool twice) const
  {
    if (row == 0 && col == 0)
      throw Unmet(QStringLiteral("the corner of %1 takes no click").arg(m_view.objectName()));
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

// The node of this key; invalid if there is none.
QModelIndex nodeOf(const QAbstractItemModel& model, const QString& key)
{
  return model.match(model.index(0, 0), Tree::KeyRole, key, 1, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

} // namespace

DesktopStage::DesktopStage(Encounters& encounters) : m_encounters(encounters), m_desk(Windows::Designs, this) {}

QString DesktopStage::topForm()
{
  settle();
  const QWidget* const window = Widgets::topWindow();
  return window ? window->objectName() : QString();
}

void DesktopStage::clear()
{
  while (QWidget* const window = Widgets::topWindow())
    window->close();
  settle();
  // Windows go when the events that closed them are over, and must go ahead of their forms.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void DesktopStage::boxStands(QMessageBox& box)
{
  const Desk::Answer answer = m_encounters.boxStands({box.text(), iconOf(box.icon()), buttonsOf(box), box.windowTitle()});
  QTest::mouseClick(box.button(buttonOf(answer)), Qt::LeftButton);
}

void DesktopStage::modalStands(QWidget& window)
{
  const QPointer<QWidget> standing(&window);
  m_encounters.modalStands([&] { return standing && standing->isVisible(); });
  if (standing && standing->isVisible())
    standing->close();
}

Face DesktopStage::reach(const ControlName& name)
{
  const Face face = Widgets::reach(name);
  // The list of a drop-down that has gone keeps the focus until another window gets it.
  const auto isInFront = [&] { return QApplication::activePopupWidget() || QApplication::activeWindow() == face.window; };
  if (!isInFront()) {
    face.window->activateWindow();
    if (!QTest::qWaitFor(isInFront))
      throw Unmet(QStringLiteral("the window of %1 does not come to the front").arg(topForm()));
  }
  return face;
}

void DesktopStage::giveFocus(const Face& face, const ControlName& name)
{
  if (!face.widget || face.widget->focusPolicy() == Qt::NoFocus)
    throw Unmet(QStringLiteral("%1 takes no focus").arg(name.text()));
  face.widget->setFocus(Qt::OtherFocusReason);
  settle();
}

bool DesktopStage::markText(const ControlName& name)
{
  const Face face = reach(name);
  const auto* const drop = qobject_cast<QComboBox*>(face.widget);
  if (drop && !drop->lineEdit())
    throw Unmet(QStringLiteral("%1 is not typed into, an item is chosen").arg(name.text()));
  auto* const edit = drop ? drop->lineEdit() : qobject_cast<QLineEdit*>(face.widget);
  if (!edit && !qobject_cast<QTableView*>(face.widget))
    throw Unmet(QStringLiteral("%1 is no text box").arg(name.text()));
  giveFocus(face, name);
  if (edit)
    edit->selectAll();
  return edit && !edit->text().isEmpty();
}

void DesktopStage::press(const Key& key)
{
  QWidget* target = QApplication::activePopupWidget();
  if (!target && Widgets::topWindow())
    target = Widgets::topWindow()->focusWidget();
  if (!target)
    throw Unmet(QStringLiteral("nothing on %1 has the focus").arg(topForm()));
  QTest::sendKeyEvent(QTest::Click, target, keyOf(key), textOf(key), key.shift ? Qt::ShiftModifier : Qt::NoModifier);
  settle();
}

void DesktopStage::focus(const ControlName& name)
{
  giveFocus(reach(name), name);
}

void DesktopStage::click(const ControlName& name)
{
  const Face face = reach(name);
  if (face.action && Widgets::actions(face, name).size() > 1)
    throw Unmet(QStringLiteral("%1 is an item array, and no item is told").arg(name.text()));
  if (face.action)
    trigger(*face.action);
  else
    clickAt(face.widget, clickPlace(*face.widget), false);
}

void DesktopStage::clickItem(const ControlName& name, int index)
{
  const Face face = reach(name);
  const QList<QAction*> actions = Widgets::actions(face, name);
  if (index >= actions.size())
    throw Unmet(QStringLiteral("%1 has %2 items, counted from 0").arg(name.text()).arg(actions.size()));
  trigger(*actions[index]);
}

void DesktopStage::doubleClick(const ControlName& name)
{
  const Face face = reach(name);
  if (!face.widget)
    throw Unmet(QStringLiteral("%1 takes no double click").arg(name.text()));
  clickAt(face.widget, clickPlace(*face.widget), true);
}

void DesktopStage::choose(const ControlName& name, int item)
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

void DesktopStage::setDate(const ControlName& name, const QDate& date)
{
  const Face face = reach(name);
  auto& picker = as<QDateEdit>(face, name, "date picker");
  giveFocus(face, name);
  picker.setDate(date);
  settle();
}

void DesktopStage::clickCell(const ControlName& name, int row, int column, bool twice)
{
  const Table table(reach(name), name);
  table.require(row, column);
  if (table.isHidden(column))
    throw Unmet(QStringLiteral("the cell %1 %2 of %3 is hidden").arg(row).arg(column).arg(name.text()));
  table.click(row, column, twice);
}

void DesktopStage::clickNode(const ControlName& name, const QString& key, bool twice)
{
  auto& tree = as<QTreeView>(reach(name), name, "tree");
  const QModelIndex node = nodeOf(*tree.model(), key);
  if (!node.isValid())
    throw Unmet(QStringLiteral("%1 has no node %2").arg(name.text(), key));
  for (QModelIndex above = node.parent(); above.isValid(); above = above.parent())
    tree.expand(above);
  tree.scrollTo(node);
  clickAt(tree.viewport(), tree.visualRect(node).center(), twice);
}

void DesktopStage::wheel(const ControlName& name, int step)
{
  const Face face = reach(name);
  QWidget* const area = as<QTableView>(face, name, "grid").viewport();
  giveFocus(face, name);
  const QPoint at = area->rect().center();
  QWheelEvent turn(at, area->mapToGlobal(at), {}, {0, step}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(area, &turn);
  settle();
}

void DesktopStage::close()
{
  QWidget* const window = Widgets::topWindow();
  if (!window)
    throw Unmet(QStringLiteral("no form is open"));
  window->close();
  settle();
}

QString DesktopStage::text(const ControlName& name)
{
  return Widgets::text(Widgets::find(name));
}

bool DesktopStage::is(const ControlName& name, const QString& state)
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

QStringList DesktopStage::items(const ControlName& name)
{
  return Widgets::items(Widgets::find(name), name);
}

QString DesktopStage::cell(const ControlName& name, int row, int column)
{
  const Table table(Widgets::find(name), name);
  table.require(row, column);
  return table.text(row, column);
}

int DesktopStage::measure(const ControlName& name, const QString& what)
{
  const Table table(Widgets::find(name), name);
  if (what == u"rows")
    return table.rows();
  if (what == u"cols")
    return table.cols();
  return what == u"row" ? table.currentRow() : table.currentCol();
}

int DesktopStage::columnWidth(const ControlName& name, int column)
{
  const Table table(Widgets::find(name), name);
  table.require(0, column);
  return table.width(column);
}

QStringList DesktopStage::tree(const ControlName& name)
{
  return nodeTexts(*as<QTreeView>(Widgets::find(name), name, "tree").model(), QStringLiteral("  "));
}

void DesktopStage::screenshot(const QString& path)
{
  settle();
  QWidget* const window = Widgets::topWindow();
  if (!window)
    throw Unmet(QStringLiteral("no form is open"));
  if (!QDir().mkpath(QFileInfo(path).path()) || !window->grab().save(path))
    throw Unmet(QStringLiteral("cannot save the picture %1").arg(path));
}
