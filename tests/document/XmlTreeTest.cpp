#include "document/XmlTree.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace zav {
namespace {

using NodeId = XmlTree::NodeId;

// What the tree has to find, found by looking everywhere.
NodeId FirstNamed(const XmlTree& tree, NodeId top, std::string_view name) {
  for (NodeId node = top; node != XmlTree::kNone; node = tree.NextBelow(top, node)) {
    if (tree.At(node).isElement && tree.At(node).content == name) return node;
  }
  return XmlTree::kNone;
}

std::vector<NodeId> ElementsIn(const XmlTree& tree, NodeId parent) {
  std::vector<NodeId> elements;
  for (NodeId child = tree.At(parent).firstChild; child != XmlTree::kNone;
       child = tree.At(child).next) {
    if (tree.At(child).isElement) elements.push_back(child);
  }
  return elements;
}

// A tree that grows and shrinks at random, with names that come once, often, or again.
class RestlessTree {
 public:
  explicit RestlessTree(unsigned seed) : random_(seed) {}

  void Change() {
    const NodeId at = nodes_[Below(nodes_.size())];
    switch (Below(4)) {
      case 0:
        if (at != top_) tree_.Remove(at);
        break;
      case 1:
        tree_.AppendText(at, "text");
        break;
      default:
        tree_.AppendChild(at, tree_.AddElement(Name()));
    }
    nodes_.clear();
    for (NodeId node = top_; node != XmlTree::kNone; node = tree_.NextBelow(top_, node)) {
      if (tree_.At(node).isElement) nodes_.push_back(node);
    }
  }

  void Check() {
    const NodeId scope = nodes_[Below(nodes_.size())];
    const std::string name = Name();
    ASSERT_EQ(tree_.FindElement(scope, name), FirstNamed(tree_, scope, name)) << name;
    const std::vector<NodeId> elements = ElementsIn(tree_, scope);
    const int count = static_cast<int>(elements.size());
    for (int asked = 0; asked < 4; ++asked) {
      const int index = static_cast<int>(Below(elements.size() + 2)) - 1;
      const NodeId want =
          index < 0 || index >= count ? XmlTree::kNone : elements[static_cast<std::size_t>(index)];
      ASSERT_EQ(tree_.ChildElement(scope, index), want) << index << " of " << count;
    }
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }
  std::string Name() { return "n" + std::to_string(Below(Below(2) == 0 ? 3 : 30)); }

  std::mt19937 random_;
  XmlTree tree_;
  NodeId top_ = tree_.AddElement("top");
  std::vector<NodeId> nodes_ = {top_};
};

TEST(XmlTree, FindsWhatIsThereHoweverItChanged) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    RestlessTree tree(seed);
    for (int step = 0; step < 300; ++step) {
      tree.Change();
      ASSERT_NO_FATAL_FAILURE(tree.Check()) << "seed " << seed << ", step " << step;
    }
  }
}

}  // namespace
}  // namespace zav
