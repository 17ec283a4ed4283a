#include "desktop/TreeModel.h"

#include "desktop/Icons.h"

TreeModel::TreeModel(Tree& tree, QObject* parent)
    : QAbstractItemModel(parent), m_tree(tree), m_parentPic(Icons::icon("tree-root")), m_childPic(Icons::icon("tree-node"))
{
  rebuild();
  connect(&tree, &Tree::nodesChanged, this, &TreeModel::rebuild);
}

void TreeModel::rebuild()
{
  beginResetModel();
  m_entries.clear();
  m_top.clear();
  m_places.clear();
  for (const Tree::Node& node : m_tree.nodes()) {
    const int place = int(m_entries.size());
    const int parent = m_places.value(node.parentKey, -1);
    std::vector<int>& siblings = parent < 0 ? m_top : m_entries[parent].children;
    const int row = int(siblings.size());
    siblings.push_back(place);
    m_places.insert(node.key, place);
    m_entries.push_back({node, parent, row, {}});
  }
  endResetModel();
}

const std::vector<int>& TreeModel::childrenOf(const QModelIndex& parent) const
{
  return parent.isValid() ? m_entries[parent.internalId()].children : m_top;
}

QModelIndex TreeModel::indexAt(int place) const
{
  return place < 0 ? QModelIndex() : createIndex(m_entries[place].row, 0, quintptr(place));
}

QModelIndex TreeModel::indexOf(const QString& key) const
{
  return indexAt(m_places.value(key, -1));
}

QString TreeModel::keyOf(const QModelIndex& index) const
{
  return index.isValid() ? m_entries[index.internalId()].node.key : QString();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
  const std::vector<int>& siblings = childrenOf(parent);
  return column == 0 && row >= 0 && row < int(siblings.size()) ? indexAt(siblings[row]) : QModelIndex();
}

QModelIndex TreeModel::parent(const QModelIndex& index) const
{
  return index.isValid() ? indexAt(m_entries[index.internalId()].parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
  return int(childrenOf(parent).size());
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
  if (!index.isValid())
    return {};
  const Tree::Node& node = m_entries[index.internalId()].node;
  switch (role) {
  case Qt::DisplayRole: return node.text;
  case Qt::DecorationRole: return node.image == Tree::Image::ParentPic ? m_parentPic : m_childPic;
  default: return {};
  }
}
