#include "desktop/TreeBinding.h"

#include "desktop/FormWindow.h"

#include <QMouseEvent>
#include <QTreeView>

TreeBinding::TreeBinding(FormWindow& window, Tree& control, QTreeView& face)
    : SelfActingBinding(window, control, face), m_tree(control), m_view(face), m_model(control, nullptr)
{
  prepareView();
  connect(&m_model, &TreeModel::modelReset, this, &TreeBinding::showNodes);
  connect(&m_tree, &Tree::currentChanged, this, &TreeBinding::showCurrent);
  connect(&m_tree, &Tree::expandedChanged, this,
          [this](const QString& key) { m_view.setExpanded(m_model.indexOf(key), m_tree.node(key).isExpanded); });
  connect(&m_view, &QTreeView::expanded, this, [this](const QModelIndex& index) { m_tree.setExpanded(m_model.keyOf(index), true); });
  connect(&m_view, &QTreeView::collapsed, this, [this](const QModelIndex& index) { m_tree.setExpanded(m_model.keyOf(index), false); });
  showNodes();
}

void TreeBinding::prepareView()
{
  m_view.setModel(&m_model);
  m_view.viewport()->installEventFilter(this);
  m_view.setHeaderHidden(true);
  m_view.setUniformRowHeights(true);
  m_view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_view.setSelectionMode(QAbstractItemView::SingleSelection);
}

void TreeBinding::showNodes()
{
  for (const Tree::Node& node : m_tree.nodes())
    if (node.isExpanded)
      m_view.expand(m_model.indexOf(node.key));
  showCurrent();
}

void TreeBinding::showCurrent()
{
  const QModelIndex current = m_model.indexOf(m_tree.current());
  m_view.setCurrentIndex(current);
  if (current.isValid())
    m_view.scrollTo(current);
}

bool TreeBinding::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != m_view.viewport() || formWindow().isClosed())
    return SelfActingBinding::eventFilter(watched, event);
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick: {
    const auto& mouse = *static_cast<const QMouseEvent*>(event);
    if (mouse.button() == Qt::LeftButton)
      mousePressed(mouse.position().toPoint(), event->type() == QEvent::MouseButtonDblClick);
    return true;
  }
  case QEvent::MouseMove:
  case QEvent::MouseButtonRelease: return true;
  default: return false;
  }
}

void TreeBinding::mousePressed(const QPoint& at, bool twice)
{
  const QModelIndex index = m_view.indexAt(at);
  const Tree::Node node = m_tree.node(m_model.keyOf(index));
  formWindow().act([&] {
    m_tree.form().setFocus(m_tree);
    if (!index.isValid())
      return;
    // Ahead of the node stands what opens and closes its branch.
    if (at.x() < m_view.visualRect(index).left())
      m_tree.setExpanded(node.key, !node.isExpanded);
    else
      twice ? m_tree.doubleClickNode(node.key) : m_tree.clickNode(node.key);
  });
}
