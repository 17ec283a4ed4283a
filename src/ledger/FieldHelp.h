#pragma once

#include "screen/Key.h"

#include <QString>

class Desk;
class MenuItemArray;
struct Session;

// Small services that fields and menus of every screen use.
namespace ModFuntion {

// True if the key may go into a field that takes only these characters (Latin case does not matter),
// and Backspace if `allowBackspace`; otherwise the beep sounds. Keys that type nothing always may.
bool FilterKeyPress(Desk& desk, const Key& key, const QString& allowedCharacters, bool allowBackspace);

// Gives the menu one item for each workbook template of a bill kind, in their stored order. Without
// templates the menu stays as it is.
void FillTemplateMenu(Session& session, MenuItemArray& menu, const QString& templateType);

} // namespace ModFuntion
