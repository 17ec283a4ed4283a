#pragma once

#include "spreadsheet/Spreadsheet.h"

#include <QList>
#include <QStringList>

#include <functional>

class Grid;
struct Session;

// A bill printed through a workbook that the user designed. The workbook is stored in the database; its first page is
// filled from the screen, and the bill's lines replace its rows 17 and 18.
namespace BillTemplate {

// A word of the template and its replacement. The order matters: a word that begins with another one comes before it.
struct Placeholder {
  QString word;
  QString value;
  bool isAmount = false;
};

using Finish = Workbook::Finish;

struct Job {
  QString templateName;
  QString billCode;
  QString headerTable;
  // Called once per print, when the template is open.
  std::function<QList<Placeholder>()> placeholders;
  // The bill's lines: its grid, which is empty for a bill without any.
  const Grid* lines;
  int amountColumn; // of the grid
  Finish finish = Finish::Print;
};

// The names of the templates of a kind of bill, in their stored order.
QStringList namesOf(Session& session, const QString& templateType);

// Prints, previews or hands over the filled workbook. Every failure is shown. Only a workbook that was
// handed over stays in TempFile; the unpacked one stays in PrintTemp.
void PrintBill_Excel(Session& session, const Job& job);

QString ReplacePlaceholders(QString cellText, const QList<Placeholder>& placeholders);

// Writes the stored template to a file. Returns the number of rows found, 0 after a message.
std::int64_t RestoreFileFromDb(Session& session, const QString& filePath, const QString& tabName);

} // namespace BillTemplate
