#pragma once

#include "platform/RunTimeError.h"
#include "screen/Control.h"

#include <QHash>
#include <QList>
#include <QModelIndex>
#include <memory>
#include <optional>

// A tree of nodes, each with a key. The text of a node is its code and its name: "1001{库存现金}". What is typed selects the
// first node whose code or name begins with it, or else whose name contains it, in closed branches too. A node follows the siblings
// that were added before it, until the children of its parent are sorted.
//
// Invariant: keys are unique; all branches above the current node, if there is one, are open.
class Tree : public Control {
  Q_OBJECT

public:
  enum class Image { ParentPic, ChildPic };

  // Roles of the model beside the text: the key, and the image as a number.
  enum Role { KeyRole = Qt::UserRole, ImageRole };

  Tree(QObject* parent, QAnyStringView name);
  ~Tree() override;

  // The model for views; a fill and a sort reset it.
  QAbstractItemModel& model() const;
  // The index of a node in the model; invalid if there is no such key.
  QModelIndex indexOf(const QString& key) const;

  // Empties the tree and lets `load` add its nodes. Returns the error of addTop or addChild that stopped the
  // load, if any; nodes added before it stay.
  std::optional<RunTimeError> fill(const std::function<void()>& load);
  // Called by the load. Adds a top node, or the last child of a node. Throws RunTimeError with the node's
  // text if there is no such parent, or if its key is taken.
  void addTop(const QString& key, const QString& text, Image image);
  void addChild(const QString& parentKey, const QString& key, const QString& text, Image image);

  bool isEmpty() const { return m_nodes.isEmpty(); }
  bool contains(const QString& key) const { return m_places.contains(key); }
  // The node that was added first; empty if the tree is.
  QString firstKey() const { return isEmpty() ? QString() : m_nodes.first().key; }
  // Sorts the children of a node by their texts: symbols, digits, letters, case-insensitively. Their own
  // children stay as they are.
  void sortChildren(const QString& key);
  bool isExpanded(const QString& key) const;
  // Opens or closes a branch. If it closes around the current node, its own node becomes the current one.
  void setExpanded(const QString& key, bool expanded);

  // Key of the current node; empty if there is none.
  QString current() const { return m_current < 0 ? QString() : m_nodes[m_current].key; }
  // Makes a node the current one and opens the branches above it; runs no handler.
  void setCurrent(const QString& key);

  bool takesFocus() const override { return true; }
  bool takesText() const override { return true; }
  // What has been typed to find the current node; empty after any other move.
  QString typed() const { return m_typed; }

  // Runs when the user makes a node the current one, by the mouse or by an arrow key.
  std::function<void(const QString& key)> onNodeClick;
  // Runs for a double click, and for Enter on the current node.
  std::function<void(const QString& key)> onNodeDoubleClick;

  // Events of the user. The branches above a clicked node open. False if there is no such node.
  bool clickNode(const QString& key);
  bool doubleClickNode(const QString& key);

signals:
  void expandedChanged(const QString& key);
  void currentChanged();

protected:
  void edit(const Key& key) override;

private:
  class Model;
  struct Node {
    QString key;
    QString text;
    Image image = Image::ParentPic;
    int parent = -1;
    bool isExpanded = false;
    QList<int> children;
  };

  int place(const QString& key) const { return m_places.value(key, -1); }
  const QList<int>& children(int of) const { return of < 0 ? m_top : m_nodes[of].children; }
  void add(int parent, const QString& key, const QString& text, Image image);
  bool isBelow(int at, int root) const;
  void makeCurrent(int at);
  // All nodes from top to bottom, or those that no closed branch hides.
  enum class Of { All, Shown };
  QList<int> nodes(Of which) const;
  void find(const QString& typed);
  void moveBy(int step);
  void moveLeft();
  void moveRight();
  void clickAt(int at);

  std::unique_ptr<Model> m_model;
  QList<Node> m_nodes; // in the order in which they were added
  QList<int> m_top;
  QHash<QString, int> m_places;
  int m_current = -1;
  QString m_typed;
};
