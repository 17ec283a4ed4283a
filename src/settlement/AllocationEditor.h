#pragma once

#include "screen/CellEditor.h"

#include <functional>

// Text2 over the list of the write-off screen. Only one column of the rows above the totals can be edited: a key
// opens it, Enter accepts the amount, anything else discards what was typed; so does Enter if that has no digit.
class AllocationEditor {
public:
  // `take` runs for an amount that the operator has confirmed; the current cell holds it by then.
  AllocationEditor(Grid& grid, CellEditor& editor, int column, std::function<void()> take);

  // Lays the box over the current cell with this text, if the cell can be edited.
  void ShowEditBox(const QString& text);

private:
  void openCell();
  bool gridKey(const Key& key);
  bool editorKey(const Key& key);
  void confirm();

  Grid& m_grid;
  CellEditor& m_editor;
  const int m_column;
  const std::function<void()> m_take;
};
