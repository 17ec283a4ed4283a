#include "desktop/Appearance.h"
#include "desktop/DesktopDesk.h"
#include "platform/Machine.h"
#include "program/ProgramScreens.h"
#include "session/Session.h"
#include "startup/Entry.h"
#include "windows/Windows.h"

#include <QApplication>
#include <QEvent>

#include <cstdio>
#include <cstdlib>

// The program as it starts, up to the moment in which its screen is painted and ready; then it ends at
// once. With any argument it first prints how many widgets the screen has.

namespace {

class FirstPaint : public QObject {
public:
  bool hasCome = false;

  bool eventFilter(QObject* watched, QEvent* event) override
  {
    hasCome = hasCome || (event->type() == QEvent::Paint && watched->isWidgetType());
    return false;
  }
};

} // namespace

int main(int argc, char** argv)
{
  QApplication application(argc, argv);
  Appearance::apply();
  FirstPaint paint;
  application.installEventFilter(&paint);
  DesktopDesk desk(Windows::Designs);
  ThisMachine machine;
  Session session{desk, machine};
  const Mod_ZORVEKMain::Start start = Mod_ZORVEKMain::Main(session, makeProgramScreen);
  if (!start.screen)
    return 1;
  while (!paint.hasCome)
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QApplication::processEvents();
  if (argc > 1)
    std::printf("%d\n", int(QApplication::allWidgets().size()));
  std::fflush(stdout);
  std::_Exit(0);
}
