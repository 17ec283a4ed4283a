#include "spreadsheet/office/Office.h"

// The symbol that the program looks up in this library. Null if no office is installed, or if its libraries can't be
// used.
extern "C" Q_DECL_EXPORT SpreadsheetDriver* makeSpreadsheetDriver()
{
  try {
    return new Office;
  } catch (const RunTimeError&) {
    return nullptr;
  } catch (const com::sun::star::uno::Exception&) {
    return nullptr;
  }
}
