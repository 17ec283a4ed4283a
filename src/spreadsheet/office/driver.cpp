#include "spreadsheet/office/Office.h"

// The symbol that the program looks up in this library.
extern "C" Q_DECL_EXPORT SpreadsheetDriver* makeSpreadsheetDriver()
{
  return new Office;
}
