#pragma once

#include "pickers/TreePicker.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/Tree.h"

struct Session;

// The account picker: the dialog that picks one node of a coded tree, an account of the chart and by design also a
// warehouse. Any node below the top level can be taken, a group as well as a leaf; the bill refuses groups when it is
// saved. Arrows move in the tree, Enter takes the node, Esc closes.
//
// The node clicked last is kept for the run, so that it can be taken again when the dialog is next opened.
class frmWarehouseSelect : public Form {
  Q_OBJECT

public:
  frmWarehouseSelect(Session& ofSession, const TreePickerCall& call);

  // What was selected; nothing before that.
  const std::optional<PickedNode>& choice() const { return m_choice; }

  // Builds the tree from the table and the WHERE text. RunTimeError if it cannot be read.
  void cmdLoad_Click();

private:
  void wire();
  Statement listStatement() const;
  void loadNodes();
  void addRoot(const QString& code);
  void Select();
  void ToolAdd_Click();

  Session& m_session;
  QString& SelectedCode; // of the node clicked last
  const QString TreeTable;
  const Statement TreeWhere;
  const QString TreeKind;
  QString TreeTarget; // the target of the choice; also the label of a synthetic root
  std::optional<PickedNode> m_choice;

  Menu File{this, "File"};
  MenuItem FEixt{&File, "FEixt"};
  Container Toolbar1{this, "Toolbar1"};
  ToolButton ToolSelect{&Toolbar1, "ToolSelect"};
  ToolButton ToolAdd{&Toolbar1, "ToolAdd"};
  ToolButton ToolRefresh{&Toolbar1, "ToolRefresh"};
  ToolButton ToolExit{&Toolbar1, "ToolExit"};
  Tree TreeView{this, "TreeView"};
};

// What the account picker keeps for the run.
struct LastPickedNode {
  QString code; // of the node clicked last
};
