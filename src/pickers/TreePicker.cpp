#include "pickers/TreePicker.h"

#include "pickers/frmWarehouseSelect.h"
#include "session/Session.h"

namespace TreePicker {

void pick(Session& session, Form& caller, const TreePickerCall& call)
{
  frmWarehouseSelect dialog(session, caller, call);
  dialog.cmdLoad_Click();
  session.desk.showModal(dialog);
}

} // namespace TreePicker
