#include "spreadsheet/Spreadsheet.h"

#include "platform/RunTimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>

Spreadsheet::Spreadsheet(const QString& driverFolder) : m_driverFolder(driverFolder) {}

Spreadsheet::~Spreadsheet() = default;

std::unique_ptr<Workbook> Spreadsheet::open(const QString& path)
{
  return driver().open(path);
}

std::unique_ptr<Workbook> Spreadsheet::create()
{
  return driver().create();
}

SpreadsheetDriver& Spreadsheet::driver()
{
  if (!m_driver) {
    const QString folder = m_driverFolder.isEmpty() ? QCoreApplication::applicationDirPath() : m_driverFolder;
    // The library is never unloaded: the office's own libraries would not survive it.
    QLibrary library(QDir(folder).filePath(QStringLiteral("spreadsheetdriver")));
    const auto make = reinterpret_cast<SpreadsheetDriver* (*)()>(library.resolve("makeSpreadsheetDriver"));
    if (!make)
      throw RunTimeError(RunTimeError::NoSpreadsheet, QStringLiteral("ActiveX 部件不能创建对象"));
    m_driver.reset(make());
  }
  return *m_driver;
}
