#pragma once

#include "screen/Form.h"
#include "session/Session.h"

// A form that the entry can open: one screen over one session. The entry knows it by this interface
// alone. Calls come in this order: HXMode if the order has one, load, then by the order FillBill,
// and behind the showing frm_Initialize.
class Screen : public Form {
  Q_OBJECT

public:
  Screen(Session& ofSession, const QString& name) : Form(ofSession.desk, name), session(ofSession) {}

  // Runs Form_Load, once.
  void load()
  {
    if (!m_loaded)
      Form_Load();
    m_loaded = true;
  }

  // Shows the stored bill of this header table and code.
  virtual void FillBill(const QString& table, const QString& code)
  {
    Q_UNUSED(table)
    Q_UNUSED(code)
  }
  // Makes the screen ready once it is shown; `keepScreen` for one that FillBill has filled.
  virtual void frm_Initialize(bool keepScreen) { Q_UNUSED(keepScreen) }

  // The mode of the write-off bench; other screens have none.
  QString HXMode;

protected:
  virtual void Form_Load() {}
  // A screen that goes takes the connection with it, and with the last one the run ends.
  void onUnload() override;

  Session& session;

private:
  bool m_loaded = false;
};

// Who makes the screens. The program gives the entry the real ones.
class Screens {
public:
  virtual ~Screens() = default;
  // The one instance of a screen, made at first use; null if there is no screen of this name.
  virtual Screen* screen(const QString& name) = 0;
};
