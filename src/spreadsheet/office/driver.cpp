#include "spreadsheet/office/Office.h"

// What the program looks for in this library.
extern "C" Q_DECL_EXPORT SpreadsheetDriver* makeSpreadsheetDriver()
{
  return new Office;
}
