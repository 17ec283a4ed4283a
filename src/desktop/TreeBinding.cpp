#include "desktop/TreeBinding.h"

#include "desktop/FormWindow.h"
#include "desktop/Icons.h"

#include <QLabel>
#include <QStyledItemDelegate>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

QString keyOf(const QModelIndex& node)
{
  return node.data(Tree::KeyRole).toString();
}

// Roots and other nodes have different icons.
class NodeDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
  {
    QStyledItemDelegate::initStyleOption(option, index);
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = index.data(Tree::ImageRole) == int(Tree::Image::ParentPic) ? m_parentPic : m_childPic;
  }

private:
  const QIcon m_parentPic = Icons::icon(u"tree-root");
  const QIcon m_childPic = Icons::icon(u"tree-node");
};

} // namespace

TreeBinding::TreeBinding(FormWindow& window, Tree& control, QTreeView& widget)
    : ItemViewBinding(window, control, widget, control.model()), m_tree(control), m_view(widget), m_typed(*new QLabel(&widget))
{
  m_typed.setObjectName(u"typed"_s);
  m_typed.setTextFormat(Qt::PlainText);
  m_typed.setAutoFillBackground(true);
  m_typed.setMargin(4);
  m_typed.setFrameShape(QFrame::Box);
  m_typed.hide();
  m_view.setItemDelegate(new NodeDelegate(&m_view));
  m_view.setHeaderHidden(true);
  m_view.setUniformRowHeights(true);
  const auto showAll = [this] {
    showNodes({});
    showCurrent(m_tree.indexOf(m_tree.current()));
  };
  connect(&m_tree.model(), &QAbstractItemModel::modelReset, this, showAll);
  connect(&m_tree, &Tree::currentChanged, this, [this] { showCurrent(m_tree.indexOf(m_tree.current())); });
  connect(&m_tree, &Tree::expandedChanged, this,
          [this](const QString& key) { m_view.setExpanded(m_tree.indexOf(key), m_tree.isExpanded(key)); });
  connect(&m_view, &QTreeView::expanded, this, [this](const QModelIndex& index) { m_tree.setExpanded(keyOf(index), true); });
  connect(&m_view, &QTreeView::collapsed, this, [this](const QModelIndex& index) { m_tree.setExpanded(keyOf(index), false); });
  showAll();
}

void TreeBinding::show()
{
  ItemViewBinding::show();
  m_typed.setText(u"查找：%1"_s.arg(m_tree.typed()));
  m_typed.adjustSize();
  m_typed.move(m_view.viewport()->geometry().bottomRight() - m_typed.rect().bottomRight() - QPoint(4, 4));
  m_typed.setVisible(!m_tree.typed().isEmpty());
}

void TreeBinding::showNodes(const QModelIndex& above)
{
  for (int row = 0; row < m_tree.model().rowCount(above); ++row) {
    const QModelIndex node = m_tree.model().index(row, 0, above);
    m_view.setExpanded(node, m_tree.isExpanded(keyOf(node)));
    showNodes(node);
  }
}

void TreeBinding::mousePressed(const QPoint& at, Qt::MouseButton button, bool twice)
{
  if (button != Qt::LeftButton)
    return;
  const QModelIndex index = m_view.indexAt(at);
  const QString key = keyOf(index);
  formWindow().act([&] {
    m_tree.form().setFocus(m_tree);
    if (!index.isValid())
      return;
    // Left of the node is its expander.
    if (at.x() < m_view.visualRect(index).left())
      m_tree.setExpanded(key, !m_tree.isExpanded(key));
    else
      twice ? m_tree.doubleClickNode(key) : m_tree.clickNode(key);
  });
}
