#include "screen/CellEditor.h"

#include "screen/Form.h"

using namespace Qt::StringLiterals;

CellEditor::CellEditor(QObject* parent, Grid& grid) : TextBox(parent, u"Text2"_s), m_grid(grid)
{
  setVisible(false);
  setTabStop(false);
}

void CellEditor::lay(const QString& text)
{
  // Hidden while it takes the cell's text, so that this is not an edit by the user.
  setVisible(false);
  setText(text);
  setVisible(true);
  emit changed();
  form().setFocus(*this);
}

void CellEditor::open(const QString& text)
{
  lay(text);
  selectAll();
}

void CellEditor::openAtEnd(const QString& text)
{
  lay(text);
  moveCaretToEnd();
}

void CellEditor::returnToGrid()
{
  form().setFocus(m_grid);
}

void CellEditor::leave(bool backwards)
{
  hide();
  returnToGrid();
  m_grid.leave(backwards);
}

void CellEditor::passToGrid(const Key& key)
{
  returnToGrid();
  m_grid.press(key);
}
