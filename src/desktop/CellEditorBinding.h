#pragma once

#include "desktop/TextBindings.h"
#include "screen/CellEditor.h"

class QTableView;

// The text box over the current cell of a grid. It follows its cell when the view scrolls or is laid out
// again, and has the cell's alignment.
class CellEditorBinding : public TextBinding {
  Q_OBJECT

public:
  // Creates the widget, over the cells of the view that shows the editor's grid.
  CellEditorBinding(FormWindow& window, CellEditor& control, QTableView& view);

  void show() override;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  // In a cell that has a picker a double click opens it.
  bool openPicker() override;

private:
  CellEditorBinding(FormWindow& window, CellEditor& control, QTableView& view, QLineEdit& widget);
  void lay();

  CellEditor& m_editor;
  QTableView& m_view;
  QLineEdit& m_widget;
};
