#include "session/Screen.h"

#include "session/ModuleADO.h"

void Screen::onUnload()
{
  CloseConnection(session);
}
