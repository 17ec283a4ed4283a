#include "pickers/TreePicker.h"

#include "pickers/frmWarehouseSelect.h"
#include "session/Session.h"

namespace TreePicker {

std::optional<PickedNode> pick(Session& session, const TreePickerCall& call)
{
  frmWarehouseSelect dialog(session, call);
  dialog.cmdLoad_Click();
  session.desk.showModal(dialog);
  return dialog.choice();
}

} // namespace TreePicker
