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

TEST_F(TreeTest, WhatIsTypedFindsCodesThenNamesInClosedBranchesToo)
{
  const auto typing = [this](const QStringList& keys) {
    clicks.clear();
    for (const QString& key : keys)
      tree.press(key == "Back" ? Key{Key::Backspace, {}} : Key::character(key));
    return QString(clicks.join(u' ') + u'/' + tree.typed());
  };
  EXPECT_EQ(typing({"5", "1", "1"}), "51 51 511/511");
  EXPECT_TRUE(tree.isExpanded("51"));
  EXPECT_EQ(typing({"9"}), "/511");
  EXPECT_EQ(desk.beeps, 1);
  EXPECT_EQ(typing({"Back", "2"}), "51 512/512");
  press({Key::Up});
  EXPECT_EQ(typing({"L", "a", "s"}), "2 2 2/Las") << "of the name";
  tree.clickNode("1");
  EXPECT_EQ(typing({"o", "o", "Back", "Back", "d"}), "1 1 1 511/d") << "first anywhere in a name";
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
