#include "desktop/Appearance.h"
#include "desktop/DesktopDesk.h"
#include "platform/Machine.h"
#include "platform/MemoryImage.h"
#include "program/ProgramScreens.h"
#include "screen/Form.h"
#include "session/Session.h"
#include "startup/Entry.h"
#include "windows/Windows.h"

#include <QApplication>

using namespace Qt::StringLiterals;

// One run opens one screen, and ends when that screen has closed.
int main(int argc, char** argv)
{
  forbidMemoryImages();
  QApplication application(argc, argv);
  QApplication::setApplicationName(u"ZORVEK"_s);
  // Closing a box before the screen is open must not end the run.
  QApplication::setQuitOnLastWindowClosed(false);
  Appearance::apply();

  ThisMachine machine;
  DesktopDesk desk(Windows::Designs);
  Session session{desk, machine};
  const Mod_ZORVEKMain::Start start = Mod_ZORVEKMain::Main(session, makeProgramScreen);
  if (!start.screen || !start.screen->form().isOpen())
    return start.exitStatus;
  QObject::connect(&start.screen->form(), &Form::closed, &application, &QApplication::quit);
  return QApplication::exec();
}
