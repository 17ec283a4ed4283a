#include "ledger/FieldHelp.h"

#include "platform/Trim.h"
#include "screen/Controls.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

namespace ModFuntion {

bool FilterKeyPress(Desk& desk, const Key& key, const QString& allowedCharacters, bool allowBackspace)
{
  const bool types = key.code == Key::Character || key.code == Key::Backspace;
  const bool allowed = key.code == Key::Backspace ? allowBackspace : allowedCharacters.contains(key.text, Qt::CaseInsensitive);
  if (!types || allowed)
    return true;
  desk.beep();
  return false;
}

void FillTemplateMenu(Session& session, MenuItemArray& menu, const QString& templateType)
{
  Recordset rs =
      OpenRecordset(session, {u"select TabName from TabExcelTable where TabType= '{}'  order by  OrderBy,TabName ", Trim(templateType)});
  for (int index = 0; !rs.eof(); rs.moveNext())
    menu.setItem(index++, rs.trimmed("TabName"));
}

} // namespace ModFuntion
