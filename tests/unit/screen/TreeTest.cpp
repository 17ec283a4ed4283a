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
    tree.fill([this] {
      tree.addTop("1", "1{root}", Tree::Image::ParentPic);
      tree.addChild("1", "51", "51{b}", Tree::Image::ChildPic);
      tree.addChild("51", "512", "512{c}", Tree::Image::ChildPic);
      tree.addChild("51", "511", "511{d}", Tree::Image::ChildPic);
      tree.addChild("1", "5", "5{a}", Tree::Image::ChildPic);
      tree.addTop("2", "2{last}", Tree::Image::ParentPic);
    });
    form.opened();
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

TEST_F(TreeTest, ArrowsWalkOverWhatIsOpenAndClickWhatTheyReach)
{
  using enum Key::Code;
  EXPECT_EQ(press({Enter, Down, Down}), "1 2") << "the first key selects, a closed branch is skipped";
  EXPECT_EQ(press({Down, Up, Right, Right, Right, Down, End, Home}), "1 51 512 2 1");
  EXPECT_EQ(press({Left, Right, Down, Enter}), "51 51 51!") << "left and right close and open, Enter takes what is marked";
  EXPECT_EQ(press({Down, Left, Left}), "512 51") << "left in a leaf goes to its parent, and there closes";
  EXPECT_FALSE(tree.isExpanded("51"));
}

TEST_F(TreeTest, AClickOpensTheBranchesAboveAndAClosingBranchTakesTheCurrentNode)
{
  EXPECT_TRUE(tree.doubleClickNode("511"));
  EXPECT_EQ(clicks.join(u' '), "511 511!");
  EXPECT_TRUE(tree.isExpanded("1") && tree.isExpanded("51"));
  tree.setExpanded("1", false);
  EXPECT_EQ(tree.current(), "1");
  EXPECT_FALSE(tree.clickNode("7"));
}

} // namespace
