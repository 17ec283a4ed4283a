#pragma once

#include "database/Statement.h"

#include <QString>

#include <optional>

struct Session;

// The request for one node of a coded tree.
struct TreePickerCall {
  // TabAccountantType; any other table counts as one of warehouses.
  QString TreeTable = QStringLiteral("TabAccountantType");
  // Which rows are listed, with its leading " where "; empty for all.
  Statement TreeWhere = {};
  // "转出账户", "转入账户", "收入科目", "费用科目", or empty.
  QString TreeKind = {};
  // The target of the choice on frmFeeElseIncome: "Text2", "现金" or "银行存款".
  QString TreeTarget = {};
};

struct PickedNode {
  QString code;
  QString name;
  // That of the call, or "现金" or "银行存款" if only a branch of cash or bank accounts was listed.
  QString TreeTarget;
};

namespace TreePicker {

// Shows frmWarehouseSelect over the screen and returns when it is closed; nothing if the user left it without a
// choice. RunTimeError if the tree cannot be read.
std::optional<PickedNode> pick(Session& session, const TreePickerCall& call);

} // namespace TreePicker
