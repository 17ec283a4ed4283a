#pragma once

#include "screen/Key.h"

#include <QObject>
#include <QString>
#include <functional>

class Form;

// A named element of a form. Its name (objectName) is the one that the suite uses; the window finds the
// widget of the same name. A control holds what the user sees; it knows no widget.
//
// There are two kinds of calls: setters, called by the form and not subject to enabled or visible; and
// events (press, click, focus …), which are the user's actions and reach the handlers through
// Form::handle.
class Control : public QObject {
  Q_OBJECT

public:
  Control(QObject* parent, QAnyStringView name);

  QString name() const { return objectName(); }
  // The form that the control lies on.
  Form& form() const;

  // The control's own state. A disabled or hidden container disables or hides its contents.
  bool isEnabled() const { return m_enabled; }
  bool isVisible() const { return m_visible; }
  // What the user sees: the state of the control and of all its containers.
  bool isReachable() const { return isShown() && isUsable(); }
  bool isShown() const;
  bool isUsable() const;
  void setEnabled(bool enabled) { change(m_enabled, enabled); }
  void setVisible(bool visible) { change(m_visible, visible); }

  QString caption() const { return m_caption; }
  void setCaption(const QString& caption) { change(m_caption, caption); }
  QString toolTip() const { return m_toolTip; }
  void setToolTip(const QString& toolTip) { m_toolTip = toolTip; }

  // The text that scripts and windows read: the caption, or what was typed.
  virtual QString shownText() const { return m_caption; }

  // True for a control that can hold the focus.
  virtual bool takesFocus() const { return false; }
  // False for a control that Tab skips although it can hold the focus.
  bool isTabStop() const { return m_tabStop; }
  void setTabStop(bool tabStop) { m_tabStop = tabStop; }
  // True for a control that is typed into, if only to open a text box: an input method may compose in it.
  virtual bool takesText() const { return m_takesText; }
  void setTakesText(bool takesText) { m_takesText = takesText; }
  // The focus has come by a key, and onFocusIn has run.
  virtual void focusedByKey() {}

  // Handlers of the form. onKey returns whether it consumed the key; a key that a control did not consume
  // is offered to the onKey of its form.
  std::function<bool(const Key&)> onKey;
  // The same for a key with Ctrl, which reaches nothing else.
  std::function<bool(const Key&)> onCtrlKey;
  std::function<void()> onClick;
  std::function<void()> onDoubleClick;
  std::function<void()> onFocusIn;
  std::function<void()> onFocusOut;

  // Events. Nothing happens on a control that is not reachable. A click focuses a control that
  // can hold the focus.
  void click();
  void doubleClick();
  // Offers the key to onKey, then to the form's onKey, then handles Tab. True if the key is consumed, so that
  // neither the control nor the widget edits with it.
  bool handleKey(const Key& key);
  // Moves the focus to the next or the previous control, whatever Tab means here.
  virtual void leave(bool backwards);
  // A whole key press: the handlers, then the control's own editing.
  void press(const Key& key);

signals:
  // A visible property has changed.
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
  // What the control does with a key that no handler consumed.
  virtual void edit(const Key& key) { Q_UNUSED(key); }
  // The container that holds this control; null for a form.
  Control* container() const { return qobject_cast<Control*>(parent()); }

private:
  QString m_caption;
  QString m_toolTip;
  bool m_enabled = true;
  bool m_visible = true;
  bool m_tabStop = true;
  bool m_takesText = false;
};
