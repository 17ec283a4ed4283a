#include "screen/Tree.h"

#include "screen/Form.h"

#include <QAbstractItemModel>
#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

// An adapter without data of its own. An index holds the position of its node in m_nodes.
class Tree::Model : public QAbstractItemModel {
public:
  explicit Model(const Tree& ofTree) : m_tree(ofTree) {}

  void reset(const std::function<void()>& change)
  {
    beginResetModel();
    change();
    endResetModel();
  }

  QModelIndex indexAt(int place) const
  {
    return place < 0 ? QModelIndex() : createIndex(int(m_tree.children(m_tree.m_nodes[place].parent).indexOf(place)), 0, quintptr(place));
  }

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override
  {
    const int at = m_tree.children(placeOf(parent)).value(row, -1);
    return at < 0 || column != 0 ? QModelIndex() : createIndex(row, 0, quintptr(at));
  }

  QModelIndex parent(const QModelIndex& index) const override
  {
    return index.isValid() ? indexAt(m_tree.m_nodes[placeOf(index)].parent) : QModelIndex();
  }

  int rowCount(const QModelIndex& parent = {}) const override { return int(m_tree.children(placeOf(parent)).size()); }
  int columnCount(const QModelIndex& = {}) const override { return 1; }

  QVariant data(const QModelIndex& index, int role) const override
  {
    const Node& node = m_tree.m_nodes[placeOf(index)];
    switch (role) {
    case Qt::DisplayRole: return node.text;
    case KeyRole: return node.key;
    case ImageRole: return int(node.image);
    default: return {};
    }
  }

private:
  static int placeOf(const QModelIndex& index) { return index.isValid() ? int(index.internalId()) : -1; }

  const Tree& m_tree;
};

namespace {

// Order: symbols, digits, letters, so that "5{" comes before "51{".
int rank(QChar character)
{
  if (character.isLetter())
    return 2;
  return character.isDigit() ? 1 : 0;
}

bool comesBefore(const QString& left, const QString& right)
{
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(), [](QChar a, QChar b) {
    return rank(a) != rank(b) ? rank(a) < rank(b) : a.toCaseFolded() < b.toCaseFolded();
  });
}

} // namespace

Tree::Tree(QObject* parent, QAnyStringView name) : Control(parent, name), m_model(std::make_unique<Model>(*this)) {}

Tree::~Tree() = default;

QAbstractItemModel& Tree::model() const
{
  return *m_model;
}

QModelIndex Tree::indexOf(const QString& key) const
{
  return m_model->indexAt(place(key));
}

std::optional<RunTimeError> Tree::fill(const std::function<void()>& load)
{
  // A box during the load repaints the views: they must not keep indexes of removed nodes.
  m_model->reset([this] {
    m_nodes.clear();
    m_top.clear();
    m_places.clear();
    m_current = -1;
    m_typed.clear();
  });
  const auto showNodes = qScopeGuard([this] { m_model->reset([] {}); });
  try {
    load();
  } catch (const RunTimeError& error) {
    if (error.number() != RunTimeError::NoSuchNode && error.number() != RunTimeError::NodeNotUnique)
      throw;
    return error;
  }
  return std::nullopt;
}

void Tree::addTop(const QString& key, const QString& text, Image image)
{
  add(-1, key, text, image);
}

void Tree::addChild(const QString& parentKey, const QString& key, const QString& text, Image image)
{
  const int parent = place(parentKey);
  if (parent < 0)
    throw RunTimeError(RunTimeError::NoSuchNode, u"元素未找到：%1 的上级 %2 不在列表中"_s.arg(text, parentKey));
  add(parent, key, text, image);
}

void Tree::add(int parent, const QString& key, const QString& text, Image image)
{
  if (contains(key))
    throw RunTimeError(RunTimeError::NodeNotUnique, u"集合中的关键字不唯一：%1"_s.arg(text));
  const int at = int(m_nodes.size());
  m_nodes.append({key, text, image, parent, false, {}});
  m_places.insert(key, at);
  (parent < 0 ? m_top : m_nodes[parent].children).append(at);
}

QList<int> Tree::nodes(Of which) const
{
  QList<int> found;
  QList<int> waiting(m_top.rbegin(), m_top.rend());
  while (!waiting.isEmpty()) {
    const Node& node = m_nodes[waiting.last()];
    found.append(waiting.takeLast());
    if (which == Of::All || node.isExpanded)
      std::copy(node.children.rbegin(), node.children.rend(), std::back_inserter(waiting));
  }
  return found;
}

void Tree::sortChildren(const QString& key)
{
  const int at = place(key);
  if (at < 0)
    return;
  m_model->reset([&] {
    QList<int>& children = m_nodes[at].children;
    std::stable_sort(children.begin(), children.end(), [this](int a, int b) { return comesBefore(m_nodes[a].text, m_nodes[b].text); });
  });
}

bool Tree::isExpanded(const QString& key) const
{
  return contains(key) && m_nodes[place(key)].isExpanded;
}

void Tree::setExpanded(const QString& key, bool expanded)
{
  const int at = place(key);
  if (at < 0 || m_nodes[at].isExpanded == expanded)
    return;
  m_nodes[at].isExpanded = expanded;
  emit expandedChanged(key);
  if (!expanded && isBelow(m_current, at))
    makeCurrent(at);
}

bool Tree::isBelow(int at, int root) const
{
  while (at >= 0) {
    at = m_nodes[at].parent;
    if (at == root)
      return true;
  }
  return false;
}

void Tree::setCurrent(const QString& key)
{
  if (const int at = place(key); at >= 0)
    makeCurrent(at);
}

void Tree::makeCurrent(int at)
{
  for (int above = m_nodes[at].parent; above >= 0; above = m_nodes[above].parent)
    setExpanded(m_nodes[above].key, true);
  if (m_current == at)
    return;
  m_current = at;
  emit currentChanged();
}

bool Tree::clickNode(const QString& key)
{
  const int at = place(key);
  if (at < 0)
    return false;
  if (isReachable()) {
    form().handle([&] {
      form().setFocus(*this);
      change(m_typed, {});
      clickAt(at);
    });
  }
  return true;
}

bool Tree::doubleClickNode(const QString& key)
{
  if (!clickNode(key))
    return false;
  if (isReachable() && onNodeDoubleClick && contains(key))
    form().handle([&] { onNodeDoubleClick(key); });
  return true;
}

void Tree::clickAt(int at)
{
  makeCurrent(at);
  if (onNodeClick)
    onNodeClick(current());
}

void Tree::edit(const Key& key)
{
  static constexpr int Page = 10;
  if (key.code == Key::Character)
    return find(m_typed + key.text);
  if (key.code == Key::Backspace)
    return find(m_typed.chopped(qMin<qsizetype>(1, m_typed.size())));
  change(m_typed, {});
  switch (key.code) {
  case Key::Up: return moveBy(-1);
  case Key::Down: return moveBy(1);
  case Key::PageUp: return moveBy(-Page);
  case Key::PageDown: return moveBy(Page);
  case Key::Home: return moveBy(-int(m_nodes.size()));
  case Key::End: return moveBy(int(m_nodes.size()));
  case Key::Left: return moveLeft();
  case Key::Right: return moveRight();
  case Key::Enter:
    if (m_current >= 0)
      doubleClickNode(current());
    return;
  default: return;
  }
}

// A character that no node has next is refused.
void Tree::find(const QString& typed)
{
  if (typed.trimmed().isEmpty()) {
    change(m_typed, {});
    return;
  }
  int best = -1;
  int bestPlace = 3; // 0 for a code, 1 for the beginning of a name, 2 for any place in it
  for (const int at : nodes(Of::All)) {
    const QString code = m_nodes[at].text.section(u'{', 0, 0);
    const qsizetype inName = m_nodes[at].text.section(u'{', 1).indexOf(typed, 0, Qt::CaseInsensitive);
    const int place = code.startsWith(typed, Qt::CaseInsensitive) ? 0 : inName == 0 ? 1 : inName > 0 ? 2 : 3;
    if (place < bestPlace) {
      best = at;
      bestPlace = place;
    }
  }
  if (best < 0)
    return form().desk().beep();
  change(m_typed, typed);
  clickAt(best);
}

void Tree::moveBy(int step)
{
  const QList<int> all = nodes(Of::Shown);
  if (all.isEmpty())
    return;
  // Without a current node, the first arrow key selects the first node.
  const int to = m_current < 0 ? 0 : int(qBound<qsizetype>(0, all.indexOf(m_current) + step, all.size() - 1));
  if (all[to] != m_current)
    clickAt(all[to]);
}

void Tree::moveLeft()
{
  if (m_current < 0)
    return;
  const Node& node = m_nodes[m_current];
  if (node.isExpanded && !node.children.isEmpty())
    setExpanded(node.key, false);
  else if (node.parent >= 0)
    clickAt(node.parent);
}

void Tree::moveRight()
{
  if (m_current < 0 || m_nodes[m_current].children.isEmpty())
    return;
  const Node& node = m_nodes[m_current];
  if (node.isExpanded)
    clickAt(node.children.first());
  else
    setExpanded(node.key, true);
}
