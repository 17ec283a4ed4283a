#include "spreadsheet/Spreadsheet.h"

#include "platform/RunTimeError.h"

#include <QDir>
#include <QLibrary>

namespace {

using Start = Spreadsheet* (*)(const QString& path);

} // namespace

OpenSpreadsheet installedSpreadsheet(const QString& programFolder)
{
  return [programFolder](const QString& path) {
    QLibrary driver(QDir(programFolder).filePath(QStringLiteral("spreadsheetdriver")));
    const auto start = reinterpret_cast<Start>(driver.resolve("startSpreadsheet"));
    if (!start)
      throw RunTimeError(RunTimeError::NoSpreadsheet, QStringLiteral("ActiveX 部件不能创建对象"));
    return std::unique_ptr<Spreadsheet>(start(path));
  };
}
