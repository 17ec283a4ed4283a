#include "printing/PrintHandOff.h"

#include "platform/Trim.h"
#include "screen/Grid.h"
#include "session/Session.h"
#include "startup/Launcher.h"

using namespace Qt::StringLiterals;

ModSavePrintData::PrintGrid printedLines(const Grid& grid)
{
  const bool endsBlank = Trim(grid.text(grid.rows() - 1, 1)).isEmpty();
  return {.grid = &grid, .leftSkip = 1, .bottomSkip = endsBlank ? 1 : 0};
}

void PrintHandOff(Session& session, const PrintJob& job, const QString& printType)
{
  for (int i = 0; i < job.head.size(); ++i)
    ModSavePrintData::SetPrintHeadString(session, job.head[i], i + 1);
  for (int i = 0; i < job.foot.size(); ++i)
    ModSavePrintData::SetPrintFootString(session, job.foot[i], i + 1);
  ModSavePrintData::WritePrintFile(session, job.printed, job.title, printType);
  if (!Mod_ZORVEKMain::RunSiblingProgram(session, u"打印"_s, {}))
    session.desk.stop(u"启动打印模块意外失败，请重新操作！"_s);
}
