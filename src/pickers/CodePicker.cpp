#include "pickers/CodePicker.h"

#include "pickers/frmCode.h"
#include "session/Session.h"

namespace CodePicker {

void pick(Session& session, Form& caller, const CodePickerCall& call)
{
  frmCode dialog(session, caller, call);
  dialog.FillMSH(call.sql, {});
  session.desk.showModal(dialog);
}

} // namespace CodePicker
