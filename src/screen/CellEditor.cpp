#include "screen/CellEditor.h"

#include "screen/Form.h"

using namespace Qt::StringLiterals;

CellEditor::CellEditor(QObject* parent, Grid& grid) : TextBox(parent, u"Text2"_s), m_grid(grid)
{
  setVisible(false);
  setTabStop(false);
}

void CellEditor::follow(const QString& text)
{
  // Hidden while it takes the cell's text, so that this is not an edit by the user.
  setVisible(false);
  setText(text);
  setVisible(true);
  emit changed();
}

void CellEditor::lay(const QString& text)
{
  follow(text);
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

void CellEditor::hide()
{
  if (form().focused() == this)
    returnToGrid();
  setVisible(false);
}

void CellEditor::returnToGrid()
{
  form().setFocus(m_grid);
}

void CellEditor::leave(bool backwards)
{
  returnToGrid();
  hide();
  m_grid.leave(backwards);
}

void CellEditor::passToGrid(const Key& key)
{
  returnToGrid();
  m_grid.press(key);
}
