#pragma once

#include "screen/Controls.h"
#include "screen/Form.h"

class Grid;
struct Session;

// The dialog that renames, resizes, aligns and hides the columns of the calling screen's grid. It works on the live
// grid, so each change shows at once; closing without saving keeps the changes.
//
// Every column with the chosen heading is changed: both columns if two share a heading.
class frmOption_Bill : public Form {
  Q_OBJECT

public:
  explicit frmOption_Bill(Session& ofSession);

  // The grid, and the name under which CmdOk stores its layout.
  void LoadMSHHead(Grid& ofGrid, const QString& layoutName);

private:
  void wire();
  QList<int> chosenColumns() const;
  // Fills the fields from a column, without changing the column.
  void showColumn(int col);
  void ListMSHHead_Click();
  void ChShowCol_Click();
  void TxtMSHColWidth_Change();
  void TxtMSHElseName_Change();
  void align(int alignment);
  void CmdOk_Click();

  Session& m_session;
  Grid* m_grid = nullptr;
  QString m_name;
  bool m_isShowing = false;

  Label LabHead{this, "LabHead"};
  ListBox ListMSHHead{this, "ListMSHHead"};
  Label LabElseName{this, "LabElseName"};
  TextBox TxtMSHElseName{this, "TxtMSHElseName"};
  CheckBox ChShowCol{this, "ChShowCol"};
  Label LabColWidth{this, "LabColWidth"};
  TextBox TxtMSHColWidth{this, "TxtMSHColWidth"};
  Container FrameAlign{this, "FrameAlign"};
  Option OptionMSHHeadDefault{&FrameAlign, "OptionMSHHeadDefault"};
  Option OptionMSHHeadLeft{&FrameAlign, "OptionMSHHeadLeft"};
  Option OptionMSHHeadCenter{&FrameAlign, "OptionMSHHeadCenter"};
  Option OptionMSHHeadRight{&FrameAlign, "OptionMSHHeadRight"};
  Button CmdOk{this, "CmdOk"};
  Button CmdExit{this, "CmdExit"};
};
