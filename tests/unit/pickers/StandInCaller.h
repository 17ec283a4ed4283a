#pragma once

#include "pickers/AccountReceiver.h"
#include "screen/Controls.h"
#include "screen/Form.h"

// A form of any name that has every box into which a picker may write, and a line grid that notes
// down what it is handed.
class StandInCaller : public Form, public AccountReceiver {
public:
  StandInCaller(Desk& desk, const QString& name) : Form(desk, name)
  {
    for (const char* box :
         {"TxtCode", "TxtName", "TxtSaleMan", "TxtUnitCode", "TxtUnitName", "TxtAccountCodeC", "TxtAccountNameC", "TxtAccountCodeR",
          "TxtAccountNameR", "TxtCashAccouCode", "TxtCashAccouName", "TxtTransferCode", "TxtTransferName"})
      (new TextBox(this, box))->setText("-");
  }

  void Txt2ToMSH(const QString& sql) override { m_lines.append(sql); }

  // What a picker has written: "TxtCode=G001 TxtName=…", and statements for the lines.
  QString written() const
  {
    QStringList texts;
    for (const TextBox* box : findChildren<TextBox*>())
      if (box->text() != u"-")
        texts.append(box->name() + "=" + box->text());
    return (texts + m_lines).join(u' ');
  }

private:
  QStringList m_lines;
};
