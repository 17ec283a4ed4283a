#pragma once

#include "screen/Tree.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>
#include <vector>

// A Tree as the window's views read it. It is built anew when the tree says that its nodes changed.
class TreeModel : public QAbstractItemModel {
  Q_OBJECT

public:
  TreeModel(Tree& tree, QObject* parent);

  // Where a node stands, by its key; invalid if there is none.
  QModelIndex indexOf(const QString& key) const;
  QString keyOf(const QModelIndex& index) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& = {}) const override { return 1; }
  QVariant data(const QModelIndex& index, int role) const override;

private:
  struct Entry {
    Tree::Node node;
    int parent = -1; // place in m_entries; -1 for a top node
    int row = 0;     // among its siblings
    std::vector<int> children;
  };

  void rebuild();
  const std::vector<int>& childrenOf(const QModelIndex& parent) const;
  QModelIndex indexAt(int place) const;

  Tree& m_tree;
  const QIcon m_parentPic;
  const QIcon m_childPic;
  std::vector<Entry> m_entries;
  std::vector<int> m_top;
  QHash<QString, int> m_places;
};
