#include "screen/Tree.h"

#include "screen/Form.h"
#include "support/FakeDesk.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

namespace {

struct TreeTest : testing::Test {
  FakeDesk desk;
  Form form{desk, "frm"};
  Tree tree{&form, "TreeView"};
  QStringList clicks;

  TreeTest()
  {
    tree.onNodeClick = [this](const QString& key) { clicks.append(key); };
    tree.onNodeDoubleClick = [this](const QString& key) { clicks.append(key + "!"); };
    tree.addTop("1", "1{root}", Tree::Image::ParentPic);
    tree.addChild("1", "51", "51{b}", Tree::Image::ChildPic);
    tree.addChild("51", "512", "512{c}", Tree::Image::ChildPic);
    tree.addChild("51", "511", "511{d}", Tree::Image::ChildPic);
    tree.addChild("1", "5", "5{a}", Tree::Image::ChildPic);
    tree.addTop("2", "2{last}", Tree::Image::ParentPic);
    form.opened();
  }

  QString shown() const
  {
    QStringList lines;
    for (const Tree::Node& node : tree.nodes())
      lines.append(QString(node.level, u'>') + node.key);
    return lines.join(u' ');
  }

  // The clicks that the keys brought about.
  QString press(const QList<Key::Code>& keys)
  {
    clicks.clear();
    for (const Key::Code key : keys)
      tree.press(Key{key, {}});
    return clicks.join(u' ');
  }
};

TEST_F(TreeTest, SortsTheChildrenOfOneNodeAndTakesTheirBranchesAlong)
{
  EXPECT_EQ(shown(), "1 >51 >>512 >>511 >5 2");
  tree.sortChildren("1");
  EXPECT_EQ(shown(), "1 >5 >51 >>512 >>511 2");
}

TEST_F(TreeTest, ALoadThatFailsKeepsWhatWasAddedAndTellsTheWindowOnce)
{
  int told = 0;
  QObject::connect(&tree, &Tree::nodesChanged, [&] { ++told; });
  const auto error = tree.fill([this] {
    tree.addTop("9_", "9{x}", Tree::Image::ParentPic);
    tree.addChild("8_", "81_", "81{y}", Tree::Image::ChildPic);
    ADD_FAILURE() << "the load went on";
  });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), RunTimeError::NoSuchNode);
  EXPECT_TRUE(error->text().contains("81{y}")) << shown().toStdString();
  EXPECT_EQ(shown(), "9_");
  EXPECT_EQ(told, 1);
  EXPECT_THROW(tree.addTop("9_", "again", Tree::Image::ParentPic), RunTimeError);
}

TEST_F(TreeTest, ArrowsWalkOverWhatIsOpenAndClickWhatTheyReach)
{
  using enum Key::Code;
  EXPECT_EQ(press({Enter, Down, Down}), "1 2") << "the first key takes hold, a closed branch is passed over";
  EXPECT_EQ(press({Down, Up, Right, Right, Right, Down, End, Home}), "1 51 512 2 1");
  EXPECT_EQ(press({Left, Right, Down, Enter}), "51 51!") << "left and right close and open";
  EXPECT_EQ(press({Down, Left, Left}), "512 51") << "left in a leaf leads to its parent, and there closes";
  EXPECT_FALSE(tree.node("51").isExpanded);
}

TEST_F(TreeTest, AClickOpensTheBranchesAboveAndAClosingBranchTakesTheCurrentNode)
{
  EXPECT_TRUE(tree.doubleClickNode("511"));
  EXPECT_EQ(clicks.join(u' '), "511 511!");
  EXPECT_TRUE(tree.node("1").isExpanded && tree.node("51").isExpanded);
  tree.setExpanded("1", false);
  EXPECT_EQ(tree.current(), "1");
  EXPECT_FALSE(tree.clickNode("7"));
}

} // namespace
