#include "Driver.h"
#include "Failure.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/Grid.h"
#include "screen/Tree.h"
#include "support/NodeTexts.h"

#include <QScopeGuard>

namespace {

// " by CONTAINER" if a container, not the control itself, makes it unreachable.
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
    throw Failure(QStringLiteral("%1 is hidden%2").arg(control.name(), culprit(control, &Control::isVisible)));
  if (!control.isUsable())
    throw Failure(QStringLiteral("%1 is disabled%2").arg(control.name(), culprit(control, &Control::isEnabled)));
}

void giveFocus(Control& control)
{
  if (control.takesFocus())
    control.form().setFocus(control);
}

// The view models alone, without a window: the user's events are calls of the controls.
class ModelDriver : public Driver, private Desk {
public:
  explicit ModelDriver(DriverEvents& events) : m_events(events) {}

  Desk& desk() override { return *this; }
  QString topForm() override { return m_forms.isEmpty() ? QString() : m_forms.last()->name(); }

  void clear() override
  {
    while (!m_forms.isEmpty())
      m_forms.takeLast()->close();
  }

  bool selectText(const ControlName& name) override
  {
    Control& control = reach(name);
    auto* const box = qobject_cast<TextBox*>(&control);
    if (!box && !qobject_cast<Grid*>(&control))
      throw Failure(QStringLiteral("%1 is no text box").arg(name.text()));
    if (auto* const drop = qobject_cast<ComboBox*>(&control); drop && !drop->isEditable())
      throw Failure(QStringLiteral("%1 is not typed into, an item is chosen").arg(name.text()));
    giveFocus(control);
    if (box)
      box->selectAll();
    return box && !box->text().isEmpty();
  }

  void press(const Key& key) override
  {
    Control* const focused = top().focused();
    if (!focused)
      throw Failure(QStringLiteral("nothing on %1 has the focus").arg(topForm()));
    requireReachable(*focused);
    focused->press(key);
  }

  void focus(const ControlName& name) override
  {
    Control& control = reach(name);
    if (!control.takesFocus())
      throw Failure(QStringLiteral("%1 takes no focus").arg(name.text()));
    giveFocus(control);
  }

  void click(const ControlName& name) override
  {
    if (qobject_cast<MenuItemArray*>(&find(name)))
      throw Failure(QStringLiteral("%1 is an item array, and no item is told").arg(name.text()));
    reach(name).click();
  }

  void clickItem(const ControlName& name, int index) override
  {
    auto& items = reach<MenuItemArray>(name, "item array");
    if (!items.clickItem(index))
      throw Failure(QStringLiteral("%1 has %2 items, counted from 0").arg(name.text()).arg(items.captions().size()));
  }

  void doubleClick(const ControlName& name) override
  {
    Control& control = reach(name);
    control.click();
    control.doubleClick();
  }

  void choose(const ControlName& name, int item) override
  {
    Control& control = reach(name);
    giveFocus(control);
    if (auto* const box = qobject_cast<ComboBox*>(&control))
      box->choose(box->items().value(item));
    else
      find<ListBox>(name, "drop-down or list").select(item);
  }

  void setDate(const ControlName& name, const QDate& date) override
  {
    auto& picker = reach<DatePicker>(name, "date picker");
    giveFocus(picker);
    picker.setDate(date);
  }

  void clickCell(const ControlName& name, int row, int column, bool twice) override
  {
    auto& grid = reach<Grid>(name, "grid");
    if (grid.colWidth(column) == 0)
      throw Failure(QStringLiteral("the cell %1 %2 of %3 is hidden").arg(row).arg(column).arg(name.text()));
    twice ? grid.doubleClickCell(row, column) : grid.clickCell(row, column);
  }

  void clickNode(const ControlName& name, const QString& key, bool twice) override
  {
    auto& tree = reach<Tree>(name, "tree");
    if (!tree.contains(key))
      throw Failure(QStringLiteral("%1 has no node %2").arg(name.text(), key));
    giveFocus(tree);
    twice ? tree.doubleClickNode(key) : tree.clickNode(key);
  }

  void wheel(const ControlName& name, int step) override
  {
    auto& grid = reach<Grid>(name, "grid");
    giveFocus(grid);
    grid.wheel(step);
  }

  void close() override { top().close(); }

  QString text(const ControlName& name) override { return find(name).shownText(); }

  bool is(const ControlName& name, const QString& state) override
  {
    if (state == u"checked")
      return find<CheckBox>(name, "check box or option").isChecked();
    const Control& control = find(name);
    if (state == u"enabled")
      return control.isUsable();
    return state == u"visible" ? control.isShown() : control.form().focused() == &control;
  }

  QStringList items(const ControlName& name) override
  {
    Control& control = find(name);
    if (auto* const box = qobject_cast<ComboBox*>(&control))
      return box->items();
    if (auto* const list = qobject_cast<ListBox*>(&control))
      return list->items();
    return find<MenuItemArray>(name, "drop-down, list or item array").captions();
  }

  GridFace grid(const ControlName& name) override
  {
    Grid& grid = find<Grid>(name, "grid");
    return {grid.rows(),
            grid.cols(),
            grid.row(),
            grid.col(),
            [&](int row, int column) { return grid.text(row, column); },
            [&](int column) { return grid.colWidth(column); }};
  }

  QStringList tree(const ControlName& name) override { return nodeTexts(find<Tree>(name, "tree").model(), QStringLiteral("  ")); }
  void screenshot(const QString&) override {}

private:
  // Desk
  Answer showBox(const Box& box) override { return m_events.boxOpened(box); }

  void show(Form& form) override
  {
    if (!m_forms.contains(&form))
      QObject::connect(&form, &Form::closed, &form, [this, &form] { m_forms.removeAll(&form); }, Qt::SingleShotConnection);
    m_forms.removeAll(&form);
    m_forms.append(&form);
    form.opened();
    if (!form.focused())
      form.focusFirst();
  }

  void showModal(Form& form) override
  {
    show(form);
    m_events.modalOpened([this, &form] { return m_forms.contains(&form); });
    if (m_forms.contains(&form))
      form.close();
  }

  void showDuring(Form& form, const std::function<void()>& work) override
  {
    show(form);
    const auto closed = qScopeGuard([&] { form.close(); });
    work();
  }

  void breathe() override {}
  void beep() override {}
  void setBusy(bool) override {}

  Form& top()
  {
    if (m_forms.isEmpty())
      throw Failure(QStringLiteral("no form is open"));
    return *m_forms.last();
  }

  Form& form(const ControlName& name)
  {
    if (name.form.isEmpty())
      return top();
    for (Form* form : m_forms)
      if (form->name() == name.form)
        return *form;
    throw Failure(QStringLiteral("no form %1 is open").arg(name.form));
  }

  // For looking.
  Control& find(const ControlName& name)
  {
    Form& on = form(name);
    if (Control* const control = on.find(name.control))
      return *control;
    // The name of a form means the form itself.
    for (Form* open : m_forms)
      if (name.form.isEmpty() && open->name() == name.control)
        return *open;
    throw Failure(QStringLiteral("there is no %1 on %2").arg(name.control, on.name()));
  }

  template <typename Kind> Kind& find(const ControlName& name, const char* kind)
  {
    if (auto* const found = qobject_cast<Kind*>(&find(name)))
      return *found;
    throw Failure(QStringLiteral("%1 is no %2").arg(name.text(), QString::fromLatin1(kind)));
  }

  // For acting.
  Control& reach(const ControlName& name)
  {
    Control& control = find(name);
    if (&control.form() != &top())
      throw Failure(QStringLiteral("%1 stands over %2").arg(topForm(), control.form().name()));
    requireReachable(control);
    return control;
  }

  template <typename Kind> Kind& reach(const ControlName& name, const char* kind)
  {
    reach(name);
    return find<Kind>(name, kind);
  }

  DriverEvents& m_events;
  QList<Form*> m_forms; // the topmost last
};

} // namespace

std::unique_ptr<Driver> Driver::ofModels(DriverEvents& events)
{
  return std::make_unique<ModelDriver>(events);
}
