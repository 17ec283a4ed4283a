#pragma once

#include <QList>
#include <QString>

#include <functional>

class Form;

// The user interface as forms see it: message boxes, other forms, the beep, the busy cursor. The desktop
// implements it, and so does the player of operator scripts.
class Desk {
public:
  enum class Icon { None, Information, Question, Warning, Stop };
  enum class Buttons { Ok, OkCancel, YesNo };
  enum class Answer { Ok, Cancel, Yes, No };

  // What lies behind a message, such as the record that refuses an action: looked up when the user asks for it, without boxes of
  // its own. The session and the texts that it captures must outlive the box.
  using Details = std::function<QString()>;

  struct Box {
    QString text;
    Icon icon = Icon::Information;
    Buttons buttons = Buttons::Ok;
    QString title = QString::fromUtf16(u"系统提示");
    bool isNoPreset = false; // the button that Enter presses at once, of YesNo
    Details details = {};
  };

  virtual ~Desk() = default;

  // Shows a box and waits for its answer. A box closed without an answer counts as Cancel or No,
  // and as Ok where Ok is the only one. While boxes are held, one without a choice is kept for later.
  Answer ask(const Box& box);

  // Nobody waits for a box that another user has on the screen: what an action has to say while it writes is held
  // until it has written, then shown in its order, or dropped. A box with a choice is never asked meanwhile.
  void holdBoxes() { m_isHolding = true; }
  void showHeldBoxes();
  void dropHeldBoxes();

  // Shows a form and returns at once. One that is open already comes to the front.
  virtual void show(Form& form) = 0;
  // Shows a form as a modal dialog and returns when it has been closed.
  virtual void showModal(Form& form) = 0;

  // Shows `form` modally while `work` runs, then closes it.
  virtual void showDuring(Form& form, const std::function<void()>& work) = 0;
  // Called regularly by long-running work: repaints, and delivers input to the modal form only.
  virtual void breathe() = 0;

  virtual void beep() = 0;
  // The busy cursor. Not reference counted: the last call applies.
  virtual void setBusy(bool busy) = 0;

  // Boxes without a choice.
  void inform(const QString& text, const Details& details = {}) { ask({.text = text, .details = details}); }
  void stop(const QString& text) { ask({text, Icon::Stop}); }
  // Yes or no; true for yes.
  bool confirm(const QString& text, Icon icon) { return ask({text, icon, Buttons::YesNo}) == Answer::Yes; }
  // The same for what cannot be taken back: Enter presses no.
  bool confirmDestruction(const QString& text, Icon icon, const Details& details = {})
  {
    return ask({.text = text, .icon = icon, .buttons = Buttons::YesNo, .isNoPreset = true, .details = details}) == Answer::Yes;
  }

protected:
  virtual Answer showBox(const Box& box) = 0;

private:
  bool m_isHolding = false;
  QList<Box> m_held;
};
