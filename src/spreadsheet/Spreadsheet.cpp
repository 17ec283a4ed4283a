#include "spreadsheet/Spreadsheet.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>

using namespace Qt::StringLiterals;

Spreadsheet::Spreadsheet(const QString& driverFolder) : m_driverFolder(driverFolder) {}

Spreadsheet::~Spreadsheet() = default;

SpreadsheetResult<std::unique_ptr<Workbook>> Spreadsheet::open(const QString& path)
{
  return driver().and_then([&path](SpreadsheetDriver* driver) { return driver->open(path); });
}

SpreadsheetResult<std::unique_ptr<Workbook>> Spreadsheet::create()
{
  return driver().and_then([](SpreadsheetDriver* driver) { return driver->create(); });
}

SpreadsheetResult<SpreadsheetDriver*> Spreadsheet::driver()
{
  if (!m_driver) {
    const QString folder = m_driverFolder.isEmpty() ? QCoreApplication::applicationDirPath() : m_driverFolder;
    QLibrary library(QDir(folder).filePath(u"spreadsheetdriver"_s));
    // The office's libraries, which it links, can't be unloaded.
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const auto make = reinterpret_cast<SpreadsheetDriver* (*)()>(library.resolve("makeSpreadsheetDriver"));
    if (make)
      m_driver.reset(make());
  }
  if (!m_driver)
    return tl::unexpected(RunTimeError(RunTimeError::NoSpreadsheet, u"ActiveX 部件不能创建对象"_s));
  return m_driver.get();
}
