#include "settlement/AllocationEditor.h"

#include "platform/HalfWidth.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"

#include <algorithm>

AllocationEditor::AllocationEditor(Grid& grid, CellEditor& editor, int column, std::function<void()> take)
    : m_grid(grid), m_editor(editor), m_column(column), m_take(std::move(take))
{
  m_grid.setTakesText(true);
  m_grid.onMouseDown = [this] { m_editor.hide(); };
  m_grid.onClick = [this] { openCell(); };
  m_grid.onRightButton = [this] { openCell(); };
  m_grid.onKey = [this](const Key& key) { return gridKey(key); };
  m_grid.onCellChange = [this] { m_editor.setText(m_grid.text(m_grid.row(), m_grid.col())); };
  m_editor.onKey = [this](const Key& key) { return editorKey(key); };
}

void AllocationEditor::ShowEditBox(const QString& text)
{
  if (m_grid.col() == m_column && m_grid.row() >= 1 && m_grid.row() < m_grid.rows() - 1)
    m_editor.openAtEnd(text);
}

void AllocationEditor::openCell()
{
  ShowEditBox(m_grid.text(m_grid.row(), m_grid.col()));
}

bool AllocationEditor::gridKey(const Key& key)
{
  m_editor.hide();
  switch (key.code) {
  case Key::Enter: openCell(); return true;
  // Shift+Tab also moves right, as in the suite, but not where it leaves the list.
  case Key::Tab: return (!key.shift || m_grid.hasShownColumn(-1)) && m_grid.moveToShownColumn(1);
  case Key::Character: ShowEditBox(halfWidth(key.text)); return true;
  default: return false;
  }
}

bool AllocationEditor::editorKey(const Key& key)
{
  switch (key.code) {
  case Key::Enter: confirm(); return true;
  case Key::Up:
  case Key::Down:
    confirm();
    m_grid.press(key);
    return true;
  case Key::Escape:
    m_editor.hide();
    m_editor.returnToGrid();
    return true;
  case Key::Tab:
    m_editor.hide();
    m_editor.returnToGrid();
    if (!m_grid.moveToShownColumn(key.shift ? -1 : 1))
      m_grid.leave(key.shift);
    return true;
  default: return false;
  }
}

void AllocationEditor::confirm()
{
  const QString typed = m_editor.text();
  if (std::none_of(typed.begin(), typed.end(), [](QChar character) { return character.isDigit(); })) {
    m_editor.hide();
    return;
  }
  m_grid.setText(m_grid.row(), m_grid.col(), NumberText::ofDouble(NumberText::numericPrefix(m_editor.text())));
  m_editor.hide();
  m_take();
  m_editor.returnToGrid();
}
