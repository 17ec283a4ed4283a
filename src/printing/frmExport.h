#pragma once

#include "screen/Controls.h"
#include "screen/Form.h"

class Grid;
struct Session;

// The export of a screen's grid into a new workbook, and the progress that the operator sees meanwhile.
class frmExport : public Form {
  Q_OBJECT

public:
  explicit frmExport(Session& ofSession);

  // Copies what the grid shows, each cell to the place of its row and column, always as text, in columns sized like
  // the grid's, and leaves the workbook to the operator, unsaved. Hidden columns are empty. RunTimeError without a
  // spreadsheet program. An operator who leaves before the end gets no workbook.
  void Export2Excel(const Grid& grid);

protected:
  void onUnload() override { m_isCancelled = true; }

private:
  void copy(const Grid& grid);

  Session& m_session;
  bool m_isCancelled = false;

  ProgressBar prg{this, "prg"};
  Button cmdQuit{this, "cmdQuit"};
  Label Label1{this, "Label1"};
};
