#pragma once

#include <QString>

#include <memory>

class Form;
struct Session;

// The interface by which the entry opens a screen. It calls Form_Load, then for a stored bill FillBill, shows the
// form, and calls frm_Initialize as an event of the screen.
class Screen {
public:
  virtual ~Screen() = default;

  virtual Form& form() = 0;
  virtual void Form_Load() = 0;
  // The bill was opened from the write-off, and offers none itself.
  virtual void hideWriteOff() {}
  // Shows the stored bill of this header table and code.
  virtual void FillBill(const QString& table, const QString& code)
  {
    Q_UNUSED(table)
    Q_UNUSED(code)
  }
  // Prepares the screen once it is shown; `keepScreen` for one that FillBill has filled.
  virtual void frm_Initialize(bool keepScreen) { Q_UNUSED(keepScreen) }
};

// Creates the screen of this name; null if there is none. The program passes the entry its own.
using ScreenMaker = std::unique_ptr<Screen> (*)(Session& session, const QString& name);
