#pragma once

#include "screen/Key.h"

#include <QObject>
#include <QString>
#include <functional>

class Form;

// A named thing on a form. Its name (objectName) is the system's own, and the window finds the
// widget of the same name. A control holds what the operator sees; it knows no widget.
//
// Two sorts of calls: setters, which the form makes and which never ask whether the operator may;
// and events (press, click, focus …), which are the operator's actions and reach the handlers
// through Form::handle.
class Control : public QObject {
  Q_OBJECT

public:
  Control(QObject* parent, const QString& name);

  QString name() const { return objectName(); }
  // The form that the control lies on.
  Form& form() const;

  // The control's own state. A container that is disabled or hidden disables or hides what it holds.
  bool isEnabled() const { return m_enabled; }
  bool isVisible() const { return m_visible; }
  // What the operator sees: the control in all its containers.
  bool isReachable() const { return isShown() && isUsable(); }
  bool isShown() const;
  bool isUsable() const;
  void setEnabled(bool enabled) { change(m_enabled, enabled); }
  void setVisible(bool visible) { change(m_visible, visible); }

  QString caption() const { return m_caption; }
  void setCaption(const QString& caption) { change(m_caption, caption); }
  QString toolTip() const { return m_toolTip; }
  void setToolTip(const QString& toolTip) { m_toolTip = toolTip; }

  // What a script and the window read as the control's text: the caption, or what was typed.
  virtual QString shownText() const { return m_caption; }

  // True for a control that can hold the focus.
  virtual bool takesFocus() const { return false; }
  // False for one that is passed over by Tab although it can hold the focus.
  bool isTabStop() const { return m_tabStop; }
  void setTabStop(bool tabStop) { m_tabStop = tabStop; }

  // Handlers of the form. onKey says whether it swallowed the key; one that a control did not swallow
  // is offered to the onKey of its form.
  std::function<bool(const Key&)> onKey;
  std::function<void()> onClick;
  std::function<void()> onDoubleClick;
  std::function<void()> onFocusIn;
  std::function<void()> onFocusOut;

  // Events. Nothing happens on a control that is not reachable. A click takes the focus to a control
  // that can hold it.
  void click();
  void doubleClick();
  // The handlers' part of a key press: onKey here and of the form, then Tab, which moves the focus. True if the key is
  // used up, so that neither the control nor the widget edits with it.
  bool handleKey(const Key& key);
  // A whole key press: the handlers, then what the control itself does with it.
  void press(const Key& key);

signals:
  // Something that the operator sees of this control is no longer what it was.
  void changed();

protected:
  // Sets a visible property. True, after changed(), if it was different.
  template <typename Value> bool change(Value& property, const Value& to)
  {
    if (property == to)
      return false;
    property = to;
    emit changed();
    return true;
  }
  virtual void clicked();
  // What the control does with a key that no handler swallowed.
  virtual void edit(const Key& key) { Q_UNUSED(key); }
  // The container that holds this control; null for a form.
  Control* container() const { return qobject_cast<Control*>(parent()); }

private:
  QString m_caption;
  QString m_toolTip;
  bool m_enabled = true;
  bool m_visible = true;
  bool m_tabStop = true;
};
