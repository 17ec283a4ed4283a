#include "ModelStage.h"

#include "Unmet.h"
#include "screen/Controls.h"
#include "screen/Grid.h"
#include "screen/Tree.h"
#include "support/NodeTexts.h"

#include <QScopeGuard>

namespace {

// The container, or the control itself, that keeps the operator from it.
QString culprit(const Control& control, bool (Control::*itself)() const)
{
  for (const QObject* at = &control; at; at = at->parent())
    if (const auto* found = qobject_cast<const Control*>(at); found && !(found->*itself)())
      return found == &control ? QString() : QStringLiteral(" by %1").arg(found->name());
  return {};
}

void requireReachable(const Control& control)
{
  if (!control.isShown())
    throw Unmet(QStringLiteral("%1 is hidden%2").arg(control.name(), culprit(control, &Control::isVisible)));
  if (!control.isUsable())
    throw Unmet(QStringLiteral("%1 is disabled%2").arg(control.name(), culprit(control, &Control::isEnabled)));
}

void requireCell(const Grid& grid, int row, int column)
{
  if (row >= grid.rows() || column >= grid.cols())
    throw Unmet(QStringLiteral("%1 has %2 rows and %3 columns").arg(grid.name()).arg(grid.rows()).arg(grid.cols()));
}

} // namespace

QString ModelStage::topForm()
{
  return m_forms.isEmpty() ? QString() : m_forms.last()->name();
}

void ModelStage::clear()
{
  while (!m_forms.isEmpty())
    m_forms.takeLast()->close();
}

void ModelStage::show(Form& form)
{
  if (!m_forms.contains(&form))
    QObject::connect(
        &form, &Form::closed, &form, [this, &form] { m_forms.removeAll(&form); }, Qt::SingleShotConnection);
  m_forms.removeAll(&form);
  m_forms.append(&form);
  form.opened();
  if (!form.focused())
    form.focusNext();
}

void ModelStage::showModal(Form& form)
{
  show(form);
  m_encounters.modalStands([this, &form] { return m_forms.contains(&form); });
  if (m_forms.contains(&form))
    form.close();
}

void ModelStage::showDuring(Form& form, const std::function<void()>& work)
{
  show(form);
  const auto gone = qScopeGuard([&] { form.close(); });
  work();
}

Form& ModelStage::top()
{
  if (m_forms.isEmpty())
    throw Unmet(QStringLiteral("no form is open"));
  return *m_forms.last();
}

Form& ModelStage::form(const ControlName& name)
{
  if (name.form.isEmpty())
    return top();
  for (Form* form : m_forms)
    if (form->name() == name.form)
      return *form;
  throw Unmet(QStringLiteral("no form %1 is open").arg(name.form));
}

Control& ModelStage::find(const ControlName& name)
{
  Form& on = form(name);
  if (Control* const control = on.find(name.control))
    return *control;
  // The name of a form stands for the form itself.
  for (Form* open : m_forms)
    if (name.form.isEmpty() && open->name() == name.control)
      return *open;
  throw Unmet(QStringLiteral("there is no %1 on %2").arg(name.control, on.name()));
}

template <typename Kind> Kind& ModelStage::find(const ControlName& name, const char* kind)
{
  if (auto* const found = qobject_cast<Kind*>(&find(name)))
    return *found;
  throw Unmet(QStringLiteral("%1 is no %2").arg(name.text(), QString::fromLatin1(kind)));
}

Control& ModelStage::reach(const ControlName& name)
{
  Control& control = find(name);
  if (&control.form() != &top())
    throw Unmet(QStringLiteral("%1 stands over %2").arg(topForm(), control.form().name()));
  requireReachable(control);
  return control;
}

template <typename Kind> Kind& ModelStage::reach(const ControlName& name, const char* kind)
{
  reach(name);
  return find<Kind>(name, kind);
}

void ModelStage::giveFocus(Control& control)
{
  if (control.takesFocus())
    control.form().setFocus(control);
}

bool ModelStage::markText(const ControlName& name)
{
  Control& control = reach(name);
  auto* const box = qobject_cast<TextBox*>(&control);
  if (!box && !qobject_cast<Grid*>(&control))
    throw Unmet(QStringLiteral("%1 is no text box").arg(name.text()));
  if (auto* const drop = qobject_cast<ComboBox*>(&control); drop && !drop->isEditable())
    throw Unmet(QStringLiteral("%1 is not typed into, an item is chosen").arg(name.text()));
  giveFocus(control);
  if (box)
    box->selectAll();
  return box && !box->text().isEmpty();
}

void ModelStage::press(const Key& key)
{
  Control* const focused = top().focused();
  if (!focused)
    throw Unmet(QStringLiteral("nothing on %1 has the focus").arg(topForm()));
  requireReachable(*focused);
  focused->press(key);
}

void ModelStage::focus(const ControlName& name)
{
  Control& control = reach(name);
  if (!control.takesFocus())
    throw Unmet(QStringLiteral("%1 takes no focus").arg(name.text()));
  giveFocus(control);
}

void ModelStage::click(const ControlName& name)
{
  if (qobject_cast<MenuItemArray*>(&find(name)))
    throw Unmet(QStringLiteral("%1 is an item array, and no item is told").arg(name.text()));
  reach(name).click();
}

void ModelStage::clickItem(const ControlName& name, int index)
{
  auto& items = reach<MenuItemArray>(name, "item array");
  if (!items.clickItem(index))
    throw Unmet(QStringLiteral("%1 has %2 items, counted from 0").arg(name.text()).arg(items.captions().size()));
}

void ModelStage::doubleClick(const ControlName& name)
{
  Control& control = reach(name);
  control.click();
  control.doubleClick();
}

void ModelStage::choose(const ControlName& name, int item)
{
  Control& control = reach(name);
  giveFocus(control);
  if (auto* const box = qobject_cast<ComboBox*>(&control))
    box->choose(box->items().value(item));
  else
    find<ListBox>(name, "drop-down or list").select(item);
}

void ModelStage::setDate(const ControlName& name, const QDate& date)
{
  auto& picker = reach<DatePicker>(name, "date picker");
  giveFocus(picker);
  picker.setDate(date);
}

void ModelStage::clickCell(const ControlName& name, int row, int column, bool twice)
{
  auto& grid = reach<Grid>(name, "grid");
  requireCell(grid, row, column);
  if (grid.colWidth(column) == 0)
    throw Unmet(QStringLiteral("the cell %1 %2 of %3 is hidden").arg(row).arg(column).arg(name.text()));
  twice ? grid.doubleClickCell(row, column) : grid.clickCell(row, column);
}

void ModelStage::clickNode(const ControlName& name, const QString& key, bool twice)
{
  auto& tree = reach<Tree>(name, "tree");
  if (!tree.contains(key))
    throw Unmet(QStringLiteral("%1 has no node %2").arg(name.text(), key));
  giveFocus(tree);
  twice ? tree.doubleClickNode(key) : tree.clickNode(key);
}

void ModelStage::wheel(const ControlName& name, int step)
{
  auto& grid = reach<Grid>(name, "grid");
  giveFocus(grid);
  grid.wheel(step);
}

void ModelStage::close()
{
  top().close();
}

QString ModelStage::text(const ControlName& name)
{
  return find(name).shownText();
}

bool ModelStage::is(const ControlName& name, const QString& state)
{
  if (state == u"checked")
    return find<CheckBox>(name, "check box or option").isChecked();
  const Control& control = find(name);
  if (state == u"enabled")
    return control.isUsable();
  return state == u"visible" ? control.isShown() : control.form().focused() == &control;
}

QStringList ModelStage::items(const ControlName& name)
{
  Control& control = find(name);
  if (auto* const box = qobject_cast<ComboBox*>(&control))
    return box->items();
  if (auto* const list = qobject_cast<ListBox*>(&control))
    return list->items();
  return find<MenuItemArray>(name, "drop-down, list or item array").captions();
}

QString ModelStage::cell(const ControlName& name, int row, int column)
{
  auto& grid = find<Grid>(name, "grid");
  requireCell(grid, row, column);
  return grid.text(row, column);
}

int ModelStage::measure(const ControlName& name, const QString& what)
{
  auto& grid = find<Grid>(name, "grid");
  if (what == u"rows")
    return grid.rows();
  if (what == u"cols")
    return grid.cols();
  return what == u"row" ? grid.row() : grid.col();
}

int ModelStage::columnWidth(const ControlName& name, int column)
{
  auto& grid = find<Grid>(name, "grid");
  requireCell(grid, 0, column);
  return grid.colWidth(column);
}

QStringList ModelStage::tree(const ControlName& name)
{
  return nodeTexts(find<Tree>(name, "tree").model(), QStringLiteral("  "));
}
