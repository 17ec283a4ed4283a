#pragma once

#include "screen/Controls.h"
#include "screen/Grid.h"

// The floating text box "Text2" of a grid that is edited in place. While it is visible it lies over the
// current cell. The form decides what its keys mean; this class only opens it and leaves it.
class CellEditor : public TextBox {
  Q_OBJECT

public:
  CellEditor(QObject* parent, Grid& grid);

  Grid& grid() const { return m_grid; }
  bool isLatin() const override { return m_grid.isLatin(m_grid.col()); }

  // Lays the box over the current cell with this text, shows it, focuses it and selects its text.
  void open(const QString& text);
  // The same with the caret at the end and nothing selected.
  void openAtEnd(const QString& text);
  // An open box goes to the current cell and shows this text; the focus stays where it is.
  void follow(const QString& text);
  // Closes the box; the grid has the focus then if the box had it.
  void hide();
  // Returns the focus to the grid; the box stays as it is.
  void returnToGrid();
  // Returns the focus to the grid and presses the key there.
  void passToGrid(const Key& key);
  // Closes the box and leaves the grid.
  void leave(bool backwards) override;

private:
  void lay(const QString& text);

  Grid& m_grid;
};
