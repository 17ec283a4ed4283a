#include "screen/Tree.h"

#include "screen/Form.h"

#include <algorithm>

namespace {

// Signs ahead of digits ahead of letters, so that "5{" stands ahead of "51{".
int rank(QChar character)
{
  if (character.isLetter())
    return 2;
  return character.isDigit() ? 1 : 0;
}

bool standsAhead(const QString& left, const QString& right)
{
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(), [](QChar a, QChar b) {
    return rank(a) != rank(b) ? rank(a) < rank(b) : a.toCaseFolded() < b.toCaseFolded();
  });
}

} // namespace

std::optional<RunTimeError> Tree::fill(const std::function<void()>& load)
{
  struct Filling {
    Tree& tree;
    explicit Filling(Tree& ofTree) : tree(ofTree) { tree.m_isFilling = true; }
    ~Filling()
    {
      tree.m_isFilling = false;
      tree.tellNodesChanged();
    }
  };
  const Filling guard(*this);
  clear();
  try {
    load();
  } catch (const RunTimeError& error) {
    if (error.number() != RunTimeError::NoSuchNode && error.number() != RunTimeError::NodeNotUnique)
      throw;
    return error;
  }
  return std::nullopt;
}

void Tree::clear()
{
  m_nodes.clear();
  m_top.clear();
  m_places.clear();
  m_current = -1;
  tellNodesChanged();
}

void Tree::addTop(const QString& key, const QString& text, Image image)
{
  add(-1, key, text, image);
}

void Tree::addChild(const QString& parentKey, const QString& key, const QString& text, Image image)
{
  const int parent = place(parentKey);
  if (parent < 0)
    throw RunTimeError(RunTimeError::NoSuchNode, QStringLiteral("元素未找到：%1 的上级 %2 不在列表中").arg(text, parentKey));
  add(parent, key, text, image);
}

void Tree::add(int parent, const QString& key, const QString& text, Image image)
{
  if (contains(key))
    throw RunTimeError(RunTimeError::NodeNotUnique, QStringLiteral("集合中的关键字不唯一：%1").arg(text));
  const int at = int(m_nodes.size());
  m_nodes.append({key, text, image, parent, parent < 0 ? 0 : m_nodes[parent].level + 1, false, {}});
  m_places.insert(key, at);
  (parent < 0 ? m_top : m_nodes[parent].children).append(at);
  tellNodesChanged();
}

Tree::Node Tree::node(const QString& key) const
{
  const int at = place(key);
  return at < 0 ? Node() : describe(at);
}

Tree::Node Tree::describe(int at) const
{
  const Place& place = m_nodes[at];
  const QString parentKey = place.parent < 0 ? QString() : m_nodes[place.parent].key;
  return {place.key, place.text, place.image, parentKey, place.level, place.isExpanded, !place.children.isEmpty()};
}

QStringList Tree::children(const QString& key) const
{
  const int at = place(key);
  QStringList keys;
  for (const int child : key.isEmpty() ? m_top : (at < 0 ? QList<int>() : m_nodes[at].children))
    keys.append(m_nodes[child].key);
  return keys;
}

QList<Tree::Node> Tree::nodes() const
{
  QList<Node> all;
  for (const int at : walk(true))
    all.append(describe(at));
  return all;
}

QList<int> Tree::walk(bool closedToo) const
{
  QList<int> found;
  found.reserve(m_nodes.size());
  QList<int> waiting(m_top.rbegin(), m_top.rend());
  while (!waiting.isEmpty()) {
    const int at = waiting.takeLast();
    found.append(at);
    const Place& place = m_nodes[at];
    if (closedToo || place.isExpanded)
      std::copy(place.children.rbegin(), place.children.rend(), std::back_inserter(waiting));
  }
  return found;
}

void Tree::sortChildren(const QString& key)
{
  const int at = place(key);
  if (at < 0)
    return;
  QList<int>& children = m_nodes[at].children;
  std::stable_sort(children.begin(), children.end(), [this](int a, int b) { return standsAhead(m_nodes[a].text, m_nodes[b].text); });
  tellNodesChanged();
}

void Tree::setExpanded(const QString& key, bool expanded)
{
  const int at = place(key);
  if (at < 0 || m_nodes[at].isExpanded == expanded)
    return;
  m_nodes[at].isExpanded = expanded;
  if (!m_isFilling)
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
  if (!m_isFilling)
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

void Tree::moveBy(int step)
{
  const QList<int> shown = walk(false);
  if (shown.isEmpty())
    return;
  // Without a current node the first key only takes hold of the first one.
  const int to = m_current < 0 ? 0 : int(qBound<qsizetype>(0, shown.indexOf(m_current) + step, shown.size() - 1));
  if (shown[to] != m_current)
    clickAt(shown[to]);
}

void Tree::moveLeft()
{
  if (m_current < 0)
    return;
  const Place& place = m_nodes[m_current];
  if (place.isExpanded && !place.children.isEmpty())
    setExpanded(place.key, false);
  else if (place.parent >= 0)
    clickAt(place.parent);
}

void Tree::moveRight()
{
  if (m_current < 0 || m_nodes[m_current].children.isEmpty())
    return;
  const Place& place = m_nodes[m_current];
  if (place.isExpanded)
    clickAt(place.children.first());
  else
    setExpanded(place.key, true);
}

void Tree::tellNodesChanged()
{
  if (!m_isFilling)
    emit nodesChanged();
}
