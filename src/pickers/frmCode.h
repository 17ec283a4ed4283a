#pragma once

#include "pickers/CodePicker.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/Grid.h"
#include "screen/Tree.h"

class Recordset;
struct Session;

// The dialog that picks one record of a master table: a tree of categories at the left narrows the list at the right,
// three boxes search it. The boxes also hold the choice, and OK takes what they hold, picked or typed. The list has
// the focus when the dialog opens: arrows move in it, Enter takes the row, a character goes into the search by name,
// Esc closes.
class frmCode : public Form {
  Q_OBJECT

public:
  frmCode(Session& ofSession, const CodePickerCall& call);

  // What OK has taken; nothing before that.
  const std::optional<PickedRecord>& choice() const { return m_choice; }

  // Lists what the two parts of one statement find, and loads the categories again. RunTimeError if
  // the statement fails; the list is empty then.
  void FillMSH(const Statement& left, const Statement& right);

private:
  void wire();
  void wireGrid();
  bool keyOfGrid(const Key& key);
  void layOutGrid();
  void showRows(const Recordset& rs);

  void loadTree();
  void loadCategories(const QString& table);
  void TreeView_Type_NodeClick(const QString& key);
  void TreeView_Type_DblClick();

  void RefreshList(const Statement& filter);
  void search(const Statement& filter);
  void MSH_Click();
  void CmdOK_Click();
  void CmdAdd_Click();

  Session& m_session;
  const QString CodeTable;
  std::optional<PickedRecord> m_choice;
  Statement BaseSql; // what the last list was built from
  QString TreeCode;  // code of the category clicked last

  Label LabName{this, "LabName"};
  Label LabListAttention{this, "LabListAttention"};
  Grid MSH{this, "MSH"};
  Label LabCode{this, "LabCode"};
  TextBox TxtCode{this, "TxtCode"};
  Label LabTxtName{this, "LabTxtName"};
  TextBox TxtName{this, "TxtName"};
  Label LabZJF{this, "LabZJF"};
  TextBox TxtZJF{this, "TxtZJF"};
  Label Label3{this, "Label3"};
  Button CmdOK{this, "CmdOK"};
  Button CmdExit{this, "CmdExit"};
  Button CmdRefresh{this, "CmdRefresh"};
  Button CmdAdd{this, "CmdAdd"};
  Tree TreeView_Type{this, "TreeView_Type"};
};
