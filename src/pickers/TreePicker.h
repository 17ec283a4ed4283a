#pragma once

#include "database/Statement.h"

#include <QString>

class Form;
struct Session;

// How a form asks for one node of a coded tree.
struct TreePickerCall {
  // TabAccountantType; any other table counts as one of warehouses.
  QString TreeTable = QStringLiteral("TabAccountantType");
  // Which rows are listed, with its leading " where "; empty for all.
  Statement TreeWhere = {};
  // "转出账户", "转入账户", "收入科目", "费用科目", or empty.
  QString TreeKind = {};
  // Where the choice goes on frmFeeElseIncome: "Text2", "现金" or "银行存款".
  QString TreeTarget = {};
};

namespace TreePicker {

// Shows frmWarehouseSelect over the caller and returns when it is closed. The choice has then been
// written into the caller's controls, which are found by name, or handed to its line grid (see
// AccountReceiver.h). RunTimeError if the tree cannot be read.
void pick(Session& session, Form& caller, const TreePickerCall& call);

} // namespace TreePicker
