#include "desktop/GridBinding.h"

#include "desktop/FormWindow.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>

namespace {

// Rows of the usual height get the room that a line of Chinese text needs, and the columns grow in step:
// a bill's code fits into the column that is made for it.
constexpr int TwipsPerPixel = 12;
constexpr int UsualRowPixels = 24;

// A cell that has a colour of its own keeps it in the row that is marked.
class CellDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
  {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const QVariant color = index.data(Qt::ForegroundRole); color.isValid())
      option->palette.setColor(QPalette::HighlightedText, color.value<QColor>());
  }
};

} // namespace

GridBinding::GridBinding(FormWindow& window, Grid& control, QTableView& face)
    : SelfActingBinding(window, control, face), m_grid(control), m_view(face), m_model(control, nullptr)
{
  prepareView();
  connect(&m_model, &GridModel::modelReset, this, &GridBinding::layOut);
  connect(&m_grid, &Grid::currentChanged, this, &GridBinding::showCurrent);
  connect(&m_grid, &Grid::cellChanged, this, [this](int row, int col) {
    if (row == 0 && col == 0)
      showCorner();
  });
  connect(&formWindow(), &FormWindow::settled, &m_model, &GridModel::settle);
  for (const QScrollBar* bar : {m_view.verticalScrollBar(), m_view.horizontalScrollBar()}) {
    connect(bar, &QScrollBar::valueChanged, this, &GridBinding::tellFirstShown);
    connect(bar, &QScrollBar::rangeChanged, this, &GridBinding::tellFirstShown);
  }
  connect(m_view.horizontalHeader(), &QHeaderView::sectionPressed, this, [this](int section) { clickHeading(0, m_model.colOf(section)); });
  connect(m_view.verticalHeader(), &QHeaderView::sectionPressed, this, [this](int section) { clickHeading(m_model.rowOf(section), 0); });
  for (const QHeaderView* header : {m_view.horizontalHeader(), m_view.verticalHeader()})
    connect(header, &QHeaderView::sectionDoubleClicked, this, [this] { formWindow().act([this] { m_grid.doubleClick(); }); });
  layOut();
}

void GridBinding::prepareView()
{
  m_view.setModel(&m_model);
  m_view.setItemDelegate(new CellDelegate(&m_view));
  m_view.viewport()->installEventFilter(this);
  m_view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_view.setSelectionMode(QAbstractItemView::SingleSelection);
  m_view.setTabKeyNavigation(false);
  m_view.setWordWrap(false);
  m_view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  m_view.setCornerButtonEnabled(false);
  QHeaderView* const headings = m_view.horizontalHeader();
  headings->setHighlightSections(false);
  headings->setMinimumSectionSize(1);
  QHeaderView* const rows = m_view.verticalHeader();
  rows->setHighlightSections(false);
  rows->setSectionResizeMode(QHeaderView::Fixed);
  rows->setMinimumSectionSize(1);
  rows->setDefaultSectionSize(heightOf(Grid::DefaultRowHeight));
}

int GridBinding::widthOf(int twips)
{
  return qMax(1, qRound(double(twips) / TwipsPerPixel));
}

int GridBinding::heightOf(int twips)
{
  return qMax(1, twips * UsualRowPixels / Grid::DefaultRowHeight);
}

void GridBinding::layOut()
{
  m_view.setSelectionBehavior(m_grid.marksRow() ? QAbstractItemView::SelectRows : QAbstractItemView::SelectItems);
  layOutColumns();
  layOutRows();
  showCorner();
  showCurrent();
  tellFirstShown();
}

void GridBinding::layOutColumns()
{
  QHeaderView* const headings = m_view.horizontalHeader();
  headings->setVisible(m_grid.fixedRows() > 0 && m_grid.rowHeight(0) > 0);
  // Amounts that end a list stay beside the others.
  headings->setStretchLastSection(!m_grid.hasTotalsRow());
  headings->setFixedHeight(heightOf(qMax(Grid::DefaultRowHeight, m_grid.rowHeight(0))) + 2);
  for (int section = 0; section < m_model.columnCount(); ++section) {
    const int twips = m_grid.colWidth(m_model.colOf(section));
    headings->setSectionHidden(section, twips <= 0);
    if (twips > 0)
      headings->resizeSection(section, widthOf(twips));
  }
}

void GridBinding::layOutRows()
{
  QHeaderView* const rows = m_view.verticalHeader();
  const int twips = m_grid.colWidth(0);
  rows->setVisible(m_grid.fixedCols() > 0 && twips > 0);
  rows->setFixedWidth(widthOf(twips));
  // Asking is cheap, telling the header is not: a list has thousands of rows of the usual height.
  for (int section = 0; section < m_model.rowCount(); ++section) {
    const int height = m_grid.rowHeight(m_model.rowOf(section));
    if (height == Grid::DefaultRowHeight)
      continue;
    rows->setSectionHidden(section, height <= 0);
    if (height > 0)
      rows->resizeSection(section, heightOf(height));
  }
}

// The place where the two headers meet has no text in the view itself.
void GridBinding::showCorner()
{
  const QString text = m_grid.fixedRows() > 0 && m_grid.fixedCols() > 0 ? m_grid.text(0, 0) : QString();
  if (!m_corner && text.isEmpty())
    return;
  if (!m_corner) {
    QWidget* const button = m_view.findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    m_corner = new QLabel(button);
    m_corner->setObjectName(QStringLiteral("cornerText"));
    m_corner->setAlignment(Qt::AlignCenter);
    auto* const layout = new QVBoxLayout(button);
    layout->setContentsMargins({});
    layout->addWidget(m_corner);
  }
  m_corner->setText(text);
}

void GridBinding::showCurrent()
{
  m_model.settle();
  // A row is marked as a whole even when its fixed column is the current one.
  const int col = m_grid.marksRow() ? qMax(m_grid.col(), m_model.colOf(0)) : m_grid.col();
  const QModelIndex current = m_model.indexOf(m_grid.row(), col);
  if (m_view.currentIndex() == current)
    return;
  m_view.setCurrentIndex(current);
  if (current.isValid())
    m_view.scrollTo(current);
}

void GridBinding::tellFirstShown()
{
  m_grid.setFirstShown(m_model.rowOf(qMax(0, m_view.rowAt(0))), m_model.colOf(qMax(0, m_view.columnAt(0))));
}

bool GridBinding::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != m_view.viewport() || formWindow().isClosed())
    return SelfActingBinding::eventFilter(watched, event);
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick: {
    const auto* const mouse = static_cast<const QMouseEvent*>(event);
    return mousePressed(mouse->position().toPoint(), mouse->button(), event->type() == QEvent::MouseButtonDblClick);
  }
  case QEvent::MouseMove:
  case QEvent::MouseButtonRelease: return true;
  case QEvent::Wheel: {
    const auto* const wheel = static_cast<const QWheelEvent*>(event);
    return wheelTurned(wheel->angleDelta().y(), wheel->modifiers());
  }
  default: return false;
  }
}

// The first press of a double click has been a click already.
bool GridBinding::mousePressed(const QPoint& at, Qt::MouseButton button, bool twice)
{
  if (button == Qt::RightButton)
    formWindow().act([&] { m_grid.pressRightButton(); });
  if (button != Qt::LeftButton)
    return true;
  const QModelIndex cell = m_view.indexAt(at);
  const int row = m_model.rowOf(cell.row());
  const int col = m_model.colOf(cell.column());
  const bool isClicked = twice && m_pressed == QPair(row, col);
  m_pressed = {row, col};
  formWindow().act([&] {
    if (!cell.isValid())
      m_grid.form().setFocus(m_grid);
    else if (isClicked)
      m_grid.doubleClick();
    else if (twice)
      m_grid.doubleClickCell(row, col);
    else
      m_grid.clickCell(row, col);
  });
  return true;
}

void GridBinding::clickHeading(int row, int col)
{
  formWindow().act([&] { m_grid.clickCell(row, col); });
}

// A turn that has moved the current cell has scrolled enough; any other scrolls the view.
bool GridBinding::wheelTurned(int step, Qt::KeyboardModifiers held)
{
  if (step == 0 || held != Qt::NoModifier)
    return false;
  const int row = m_grid.row();
  formWindow().act([&] { m_grid.wheel(step); });
  return m_grid.row() != row;
}

// Keys that the grid does not know must not move the view's own current cell.
bool GridBinding::pressSpecial(const QKeyEvent& event)
{
  if (event.matches(QKeySequence::Copy))
    QGuiApplication::clipboard()->setText(m_grid.text(m_grid.row(), m_grid.col()));
  return true;
}
