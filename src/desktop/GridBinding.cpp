#include "desktop/GridBinding.h"

#include "desktop/Appearance.h"
#include "desktop/FormWindow.h"

#include <QAbstractButton>
#include <QApplication>
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

using namespace Qt::StringLiterals;

namespace {

// A row is as high as a line of Chinese text needs, and columns are scaled to match: a bill's code fits into
// its column.
constexpr int TwipsPerPixel = 12;
constexpr int RowPixels = 24;
constexpr QRgb TotalsBackground = 0xffe8edf2;

// A coloured cell keeps its colour in the highlighted row.
class CellDelegate : public QStyledItemDelegate {
public:
  CellDelegate(const Grid& ofGrid, QObject* parent) : QStyledItemDelegate(parent), m_grid(ofGrid) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
  {
    QStyleOptionViewItem cell(option);
    cell.state &= ~QStyle::State_HasFocus;
    QStyledItemDelegate::paint(painter, cell, index);
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    if (view && view->currentIndex() == index && (view->hasFocus() || view->isAncestorOf(QApplication::focusWidget())))
      Appearance::drawFocus(*painter, option.rect);
  }

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
  {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const int color = m_grid.cellColor(index.row() + 1, index.column() + 1))
      for (const QPalette::ColorRole role : {QPalette::Text, QPalette::HighlightedText})
        option->palette.setColor(role, QColor(color & 0xff, color >> 8 & 0xff, color >> 16 & 0xff));
    if (!m_grid.isTotals(index.row() + 1))
      return;
    option->backgroundBrush = QColor::fromRgb(TotalsBackground);
    option->font.setBold(true);
    option->fontMetrics = QFontMetrics(option->font);
  }

private:
  const Grid& m_grid;
};

} // namespace

GridBinding::GridBinding(FormWindow& window, Grid& control, QTableView& widget)
    : ItemViewBinding(window, control, widget, control.model()), m_grid(control), m_view(widget)
{
  prepareView();
  connect(&m_grid.model(), &QAbstractItemModel::modelReset, this, &GridBinding::layOut);
  connect(&m_grid, &Grid::currentChanged, this, &GridBinding::showCurrent);
  connect(&m_grid, &Grid::columnChanged, this, [this](int col) {
    layOutColumn(col);
    m_view.viewport()->update();
  });
  connect(m_view.horizontalHeader(), &QHeaderView::sectionPressed, this, [this](int section) { clickHeading(0, section + 1); });
  connect(m_view.verticalHeader(), &QHeaderView::sectionPressed, this, [this](int section) { clickHeading(section + 1, 0); });
  for (const QHeaderView* header : {m_view.horizontalHeader(), m_view.verticalHeader()})
    connect(header, &QHeaderView::sectionDoubleClicked, this, [this] { formWindow().act([this] { m_grid.doubleClick(); }); });
}

void GridBinding::prepareView()
{
  m_view.setItemDelegate(new CellDelegate(m_grid, &m_view));
  m_view.setTabKeyNavigation(false);
  m_view.setWordWrap(false);
  m_view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  m_view.setCornerButtonEnabled(false);
  for (QHeaderView* const header : {m_view.horizontalHeader(), m_view.verticalHeader()}) {
    header->setHighlightSections(false);
    header->setMinimumSectionSize(1);
    header->setDefaultAlignment(Qt::AlignCenter);
  }
  m_view.horizontalHeader()->setFixedHeight(RowPixels + 2);
  m_view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  m_view.verticalHeader()->setDefaultSectionSize(RowPixels);
}

void GridBinding::show()
{
  ItemViewBinding::show();
  layOut();
}

void GridBinding::layOut()
{
  m_view.setSelectionBehavior(m_grid.isRowList() ? QAbstractItemView::SelectRows : QAbstractItemView::SelectItems);
  // The last column of a list with totals is an amount: do not stretch it.
  m_view.horizontalHeader()->setStretchLastSection(!m_grid.hasTotalsRow());
  for (int col = 0; col < m_grid.cols(); ++col)
    layOutColumn(col);
  showCurrent();
}

void GridBinding::layOutColumn(int col)
{
  const int twips = m_grid.colWidth(col);
  const int width = qMax(1, qRound(double(twips) / TwipsPerPixel));
  if (col == 0) {
    m_view.verticalHeader()->setVisible(twips > 0);
    m_view.verticalHeader()->setFixedWidth(width);
    showCorner();
    return;
  }
  QHeaderView* const headings = m_view.horizontalHeader();
  headings->setSectionHidden(col - 1, twips <= 0);
  if (twips > 0)
    headings->resizeSection(col - 1, width);
}

// QTableView shows no text in the corner where the two headers meet.
void GridBinding::showCorner()
{
  const QString text = m_grid.text(0, 0);
  if (!m_corner && text.isEmpty())
    return;
  if (!m_corner) {
    QWidget* const button = m_view.findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    m_corner = new QLabel(button);
    m_corner->setObjectName(u"cornerText"_s);
    m_corner->setAlignment(Qt::AlignCenter);
    auto* const layout = new QVBoxLayout(button);
    layout->setContentsMargins({});
    layout->addWidget(m_corner);
  }
  m_corner->setText(text);
}

void GridBinding::showCurrent()
{
  // The whole row is highlighted even if its heading is the current cell.
  const int col = m_grid.isRowList() ? qMax(m_grid.col(), 1) : m_grid.col();
  ItemViewBinding::showCurrent(m_grid.indexOf(m_grid.row(), col));
}

bool GridBinding::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != m_view.viewport() || event->type() != QEvent::Wheel)
    return ItemViewBinding::eventFilter(watched, event);
  const auto& wheel = *static_cast<const QWheelEvent*>(event);
  return wheelTurned(wheel.angleDelta().y(), wheel.modifiers());
}

void GridBinding::mousePressed(const QPoint& at, Qt::MouseButton button, bool twice)
{
  if (button == Qt::RightButton)
    formWindow().act([&] { m_grid.pressRightButton(); });
  if (button != Qt::LeftButton)
    return;
  const QModelIndex cell = m_view.indexAt(at);
  const int row = cell.row() + 1;
  const int col = cell.column() + 1;
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
}

void GridBinding::clickHeading(int row, int col)
{
  formWindow().act([&] { m_grid.clickCell(row, col); });
}

// A turn that moves the current cell does not also scroll the view.
bool GridBinding::wheelTurned(int step, Qt::KeyboardModifiers held)
{
  if (formWindow().isClosed() || step == 0 || held != Qt::NoModifier)
    return false;
  const int row = m_grid.row();
  formWindow().act([&] { m_grid.wheel(step); });
  return m_grid.row() != row;
}

Qt::InputMethodHints GridBinding::inputHints() const
{
  return m_grid.isLatin(m_grid.col()) ? LatinHints : Qt::ImhNone;
}

// Keys unknown to the grid must not move the view's current cell.
bool GridBinding::pressSpecial(const QKeyEvent& event)
{
  if (event.matches(QKeySequence::Copy))
    QGuiApplication::clipboard()->setText(m_grid.text(m_grid.row(), m_grid.col()));
  return true;
}
