#include "Faults.h"
#include "FaultyFiles.h"

// Plays faults: faults kill|kill-server|disk|damage|operators|operators-server|pairs|pairs-server|injection|injection-server. With the
// environment variable ZORVEK_LONG set it tries every place there is, which takes long.

int main(int count, char** texts)
{
  const QString kind = count == 2 ? QString::fromLocal8Bit(texts[1]) : QString();
  const bool isLong = qEnvironmentVariableIsSet("ZORVEK_LONG");
  Tally tally;
  FaultyFiles::install();
  if (kind == u"kill" || kind == u"kill-server")
    Faults::kill(QStringLiteral(SCRIPTS_FOLDER), kind == u"kill-server", isLong, tally);
  else if (kind == u"disk")
    Faults::failingDisk(tally);
  else if (kind == u"damage")
    Faults::damage(isLong, tally);
  else if (kind == u"operators" || kind == u"operators-server")
    Faults::operators(kind == u"operators-server", isLong, tally);
  else if (kind == u"pairs" || kind == u"pairs-server")
    Faults::pairs(kind == u"pairs-server", isLong, tally);
  else if (kind == u"injection" || kind == u"injection-server")
    Faults::injection(kind == u"injection-server", isLong, tally);
  else {
    std::fputs("Usage: faults kill|kill-server|disk|damage|operators|operators-server|pairs|pairs-server|injection|injection-server\n",
               stderr);
    return 2;
  }
  return tally.close();
}
