#include "pickers/CodePicker.h"

#include "pickers/frmCode.h"
#include "session/Session.h"

namespace CodePicker {

std::optional<PickedRecord> pick(Session& session, const CodePickerCall& call)
{
  frmCode dialog(session, call);
  dialog.FillMSH(call.sql, {});
  session.desk.showModal(dialog);
  return dialog.choice();
}

} // namespace CodePicker
