#pragma once

#include "billstore/BillRecord.h"
#include "database/Statement.h"
#include "screen/CellEditor.h"

class BillScreen;
class Recordset;
struct LineTraits;
struct PickedNode;

// The lines of a bill and their total: an account, an amount and a remark each, entered in the grid MSH through the
// floating Text2, keyboard first. A save stores what the grid holds.
//
// Always holds after a change: the last row is empty in column 1; lines are rows 1 to rows - 2;
// column 3 shows amounts as FormatDotText makes them; LabTotalMoney is the sum of column 3.
class LineArea {
public:
  enum Column { Marker = 0, AccountCode = 1, AccountName = 2, Amount = 3, Remark = 4, ColumnCount = 5 };

  LineArea(BillScreen& screen, const LineTraits& traits);

  // Resets the grid to its headings and one empty row, in the stored layout if there is one. An open editor stays in its
  // column, without its text.
  void InitLineGrid();
  // Fills a grid that InitLineGrid has reset with stored lines. A line without an amount shows none.
  void show(Recordset& lines);
  void addTo(BillRecord& record) const;
  // All rows below the headings as they are, and back into a grid that InitLineGrid has reset.
  QList<QStringList> rows() const;
  void takeBack(const QList<QStringList>& rows);

  int lineCount() const { return m_grid.rows() - 2; }
  // Trimmed text of a line's column.
  QString text(int row, Column column) const;
  Currency amount(int row) const;
  void setAccount(int row, const QString& code, const QString& name);
  Currency total() const;

  // An account was picked for the current line.
  void takeAccount(const PickedNode& account);
  void InsertLineRow();
  void DeleteLineRow();
  void FMSHFormat_Click();

  Label LabAttention;
  Label LabLineKeys; // names the keys of an open cell; a blank, which keeps its height, while none is open
  CellEditor Text2;
  Container FrameTotal;
  Label LabTotalMoney;

private:
  // Opens Text2 over the current cell, if lines may be edited.
  void OpenCellEditor();
  // Copies what was typed or picked to the current row: for columns 1 and 2 the account that `account` selects, or
  // the picker's if there is none; then updates the total.
  void Txt2ToMSH(const Statement& account);
  void RecalcTotal();
  void gridKeyDown(const Key& key);
  bool gridTab(const Key& key);
  bool editorKey(const Key& key);
  void editorTab(bool backwards);
  void editorEnter();
  bool quickKey(const Key& key);
  void enterAndGoDown(Column column);
  void copyCellAbove();
  void takeRestOfBalance();
  void editorChanged();
  void pickAccountOfCell();
  void pickAccount();
  void ReenterCell();
  bool isOffLines();
  void copyRow(int to, int from);
  void reopenIfOpen();
  bool isOnLine() const;
  bool isEditable() const;

  BillScreen& m_screen;
  Grid& m_grid;
};
