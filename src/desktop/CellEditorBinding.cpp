#include "desktop/CellEditorBinding.h"

#include "desktop/Appearance.h"
#include "desktop/FormWindow.h"

#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>

CellEditorBinding::CellEditorBinding(FormWindow& window, CellEditor& control, QTableView& view)
    : CellEditorBinding(window, control, view, *new QLineEdit(view.viewport()))
{
}

CellEditorBinding::CellEditorBinding(FormWindow& window, CellEditor& control, QTableView& view, QLineEdit& widget)
    : TextBinding(window, control, widget), m_editor(control), m_view(view), m_widget(widget)
{
  widget.setObjectName(control.name());
  widget.setFrame(false);
  Appearance::markAsCellEditor(widget);
  widget.hide();
  for (const QScrollBar* bar : {view.verticalScrollBar(), view.horizontalScrollBar()})
    connect(bar, &QScrollBar::valueChanged, this, &CellEditorBinding::lay);
  connect(view.horizontalHeader(), &QHeaderView::sectionResized, this, &CellEditorBinding::lay);
  connect(view.model(), &QAbstractItemModel::modelReset, this, &CellEditorBinding::lay);
  connect(&control.grid(), &Grid::columnChanged, this, &CellEditorBinding::lay);
}

void CellEditorBinding::show()
{
  if (m_editor.isShown() && m_widget.isHidden())
    m_view.scrollTo(m_editor.grid().indexOf(m_editor.grid().row(), m_editor.grid().col()));
  lay();
  TextBinding::show();
}

void CellEditorBinding::lay()
{
  if (!m_editor.isShown())
    return;
  const Grid& grid = m_editor.grid();
  // Inside the ring of the current cell.
  m_widget.setGeometry(m_view.visualRect(grid.indexOf(grid.row(), grid.col())).adjusted(2, 2, -2, -2));
  m_widget.setAlignment(grid.alignment(grid.row(), grid.col()));
  m_widget.raise();
}

bool CellEditorBinding::eventFilter(QObject* watched, QEvent* event)
{
  // The view draws the ring for both.
  if (watched == &m_widget && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
    m_view.viewport()->update();
  return TextBinding::eventFilter(watched, event);
}

bool CellEditorBinding::openPicker()
{
  formWindow().act([this] { m_editor.doubleClick(); });
  return true;
}
