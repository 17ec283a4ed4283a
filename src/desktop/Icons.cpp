#include "desktop/Icons.h"

// The pictures lie in this library; without the call the linker would leave them out.
static void load()
{
  Q_INIT_RESOURCE(icons);
}

QIcon Icons::icon(const char* name)
{
  load();
  return QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
}
