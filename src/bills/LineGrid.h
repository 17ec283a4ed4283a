#pragma once

#include "platform/Currency.h"
#include "screen/CellEditor.h"

#include "database/Statement.h"

#include <QStringList>

class Label;
struct Session;

// What the lines of a bill ask of the bill form they stand on.
class LineGridHost {
public:
  virtual ~LineGridHost() = default;

  // False for an audited, voided or closed bill: then no cell opens.
  virtual bool linesEditable() const = 0;
  // Headings of columns 1 and 2, the account's code and name.
  virtual QStringList accountHeadings() const = 0;
  // Name under which a layout of this grid is stored.
  virtual QString layoutKey() const = 0;
  // Lets the user pick an account for the current row, which goes to Txt2ToMSH.
  virtual void pickLineAccount() = 0;
};

// The lines of a bill, entered in the grid MSH through the floating Text2: keyboard first, a blank
// last row always there to type in, every change retotalled. On save the grid is the bill.
//
// Always holds after a change: the last row is blank in column 1; lines are rows 1 to rows - 2;
// column 3 shows amounts as FormatDotText makes them; LabTotalMoney is the sum of column 3.
class LineGrid {
public:
  enum Column { Marker = 0, AccountCode = 1, AccountName = 2, Amount = 3, Remark = 4, ColumnCount = 5 };

  // One line as it is read from the database; without an amount it shows none.
  struct Line {
    QString accountCode;
    QString accountName;
    QString amount;
    QString remark;
  };

  LineGrid(Session& session, LineGridHost& host, Grid& grid, CellEditor& editor, Label& total);

  // Resets the grid to its headings and one blank row, by the stored layout if there is one. A layout
  // of fewer rows than columns is an error in the stored data and throws RunTimeError.
  void InitLineGrid();
  // Lays Text2 on the current cell, if lines may be edited.
  void OpenCellEditor();
  // Carries what was typed or picked to the current row: for columns 1 and 2 the account that
  // `account` selects, or the picker if there is none; then retotals.
  void Txt2ToMSH(const Statement& account);
  void RecalcTotal();
  void InsertLineRow();
  void DeleteLineRow();

  // Puts stored lines into a grid that InitLineGrid has reset. Gives their sum; the total label is
  // the caller's.
  Currency showLines(const QList<Line>& lines);

  int lineCount() const { return m_grid.rows() - 2; }
  // Trimmed text of a line's column.
  QString text(int row, Column column) const;
  Currency amount(int row) const;
  void setAccount(int row, const QString& code, const QString& name);

private:
  void applyDefaultLayout();
  void applyStoredLayout();
  void gridKeyDown(const Key& key);
  bool gridTab(const Key& key);
  bool editorKey(const Key& key);
  void editorTab(bool backwards);
  void editorEnter();
  void editorChanged();
  void pickAccount();
  void ReenterCell();
  void shiftRowsDown(int row);
  void shiftRowsUp(int row);
  void reopenIfOpen();
  bool isOnLine() const;

  Session& m_session;
  LineGridHost& m_host;
  Grid& m_grid;
  CellEditor& m_editor;
  Label& m_total;
};
