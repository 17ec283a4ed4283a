#pragma once

#include "screen/Controls.h"
#include "screen/Grid.h"

// The floating text box "Text2" of a grid that is edited in place: one box, laid over the current
// cell, while it is visible. What its keys mean belongs to the form; this class only opens it,
// leaves it and keeps it over its cell.
class CellEditor : public TextBox {
  Q_OBJECT

public:
  CellEditor(QObject* parent, Grid& grid);

  Grid& grid() const { return m_grid; }

  // Lays the box over the current cell with this text, shows it, focuses it and marks all of it.
  void open(const QString& text);
  // The same with the caret at the end and nothing marked.
  void openAtEnd(const QString& text);
  void hide() { setVisible(false); }
  // Gives the focus back to the grid; the box stays as it is.
  void returnToGrid();
  // Gives the focus back to the grid and lets it have the key, as when it had the focus itself.
  void passToGrid(const Key& key);

private:
  void lay(const QString& text);

  Grid& m_grid;
};
