#include "deps/rs_tree.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "deps/tree_walk.h"
#include "support/test_support.h"

namespace torvane {
namespace {

struct Named : RSTree {
  explicit Named(char c) : name(c) {}
  char name;
};

/// A tree written as "a(b c(d))".
class TreeTest : public testing::Test {
 protected:
  Named* make(const char* text) { return read(text); }
  void forget_all() { nodes_.clear(); }
  Named* node(char name) {
    for (auto n = nodes_.rbegin(); n != nodes_.rend(); ++n)
      if ((*n)->name == name) return n->get();
    return nullptr;
  }
  static std::string show(const RSTree* tree) {
    std::string out(1, static_cast<const Named*>(tree)->name);
    if (tree->empty()) return out;
    out += '(';
    for (const RSTree* child : *tree) out += (out.back() == '(' ? "" : " ") + show(child);
    return out + ')';
  }
  /// The names in the order of a walk, with an action at each node.
  template <class Walk>
  static std::string walk(RSTree* tree, const std::function<void(Walk&, char)>& action = nullptr) {
    std::string out;
    Walk it(tree);
    while (RSTree* found = it.next()) {
      out += static_cast<Named*>(found)->name;
      if (action) action(it, out.back());
    }
    return out;
  }

 private:
  Named* read(const char*& text) {
    nodes_.push_back(std::make_unique<Named>(*text++));
    Named* tree = nodes_.back().get();
    if (*text == '(') {
      do tree->append(read(++text));
      while (*text == ' ');
      ++text;
    }
    return tree;
  }

  std::vector<std::unique_ptr<Named>> nodes_;
};

TEST_F(TreeTest, NoLinkClosesToARing) {
  Named* tree = make("a(b(c))");
  EXPECT_EQ(messages_of([&] { node('c')->append(tree); }), "RSTree::append error.\n");
  EXPECT_EQ(messages_of([&] { tree->insert(tree); }), "RSTree::insert error.\n");
  EXPECT_EQ(messages_of([&] { EXPECT_EQ(tree->detach(), nullptr); }),
            "cannot delete the root node of a RSTree\n");
  EXPECT_EQ(node('c')->insert_after(tree), nullptr);
  EXPECT_EQ(node('c')->insert_before(node('b')), nullptr);
  EXPECT_EQ(node('c')->insert_before(node('c')), nullptr);
  EXPECT_EQ(show(tree), "a(b(c))");
}

TEST_F(TreeTest, AChildAppendedAgainStandsTwiceAndLeavesWhole) {
  Named* tree = make("a(b c)");
  tree->append(node('b'));
  EXPECT_EQ(show(tree), "a(b c b)");
  EXPECT_EQ(tree->pop_child(), node('b'));
  EXPECT_EQ(node('b')->_parent, tree);
  tree->insert(node('b'));
  EXPECT_EQ(node('b')->detach(), node('b'));
  EXPECT_EQ(show(tree), "a(c)");
  EXPECT_EQ(node('b')->_parent, nullptr);
}

TEST_F(TreeTest, WalksVisitTheStartNodeToo) {
  Named* tree = make("a(b(c d) e(f))");
  EXPECT_EQ(walk<PreIterator>(tree), "abcdef");
  EXPECT_EQ(walk<PostIterator>(tree), "cdbfea");
  EXPECT_EQ(walk<RSlistIterator>(tree), "be");
  EXPECT_EQ(walk<PreIterator>(node('b')), "bcd");
  EXPECT_EQ(walk<PostIterator>(node('b')), "cdb");
  EXPECT_EQ(walk<PreIterator>(nullptr), "");
  PreIterator again(tree);
  again.next();
  again.next();
  again.reset();
  EXPECT_EQ(again.next(), tree);
}

TEST_F(TreeTest, RemovalGoesOnBehindTheRemoved) {
  auto remove_b_and_f = [](auto& it, char c) {
    if (c == 'b' || c == 'f') it.remove();
  };
  EXPECT_EQ(walk<PreIterator>(make("a(b(c d) e(f))"), remove_b_and_f), "abef");
  EXPECT_EQ(show(node('a')), "a(e)");
  EXPECT_EQ(walk<PostIterator>(make("g(b(c d) e(f))"), remove_b_and_f), "cdbfeg");
  EXPECT_EQ(show(node('g')), "g(e)");
  EXPECT_EQ(walk<RSlistIterator>(make("h(b f i)"), remove_b_and_f), "bfi");
  EXPECT_EQ(show(node('h')), "h(i)");
}

TEST_F(TreeTest, WalksFollowEditsOfOthers) {
  auto detach = [this](char at, char what) {
    return [this, at, what](auto&, char c) {
      if (c == at && node(what)->_parent) node(what)->detach();
    };
  };
  struct Case {
    char at, what;
    const char* pre;
    const char* post;
  };
  for (Case c : {Case{'b', 'b', "abef", "cdbfea"}, Case{'c', 'b', "abcef", "cfea"},
                 Case{'b', 'e', "abcd", "cdba"}, Case{'d', 'e', "abcd", "cdba"},
                 Case{'c', 'd', "abcef", "cbfea"}, Case{'f', 'e', "abcdef", "cdbfa"}}) {
    EXPECT_EQ(walk<PreIterator>(make("a(b(c d) e(f))"), detach(c.at, c.what)), c.pre) << c.what;
    forget_all();
    EXPECT_EQ(walk<PostIterator>(make("a(b(c d) e(f))"), detach(c.at, c.what)), c.post) << c.what;
    forget_all();
  }
}

TEST_F(TreeTest, DeepTreesAreWalkedWithoutRecursion) {
  std::vector<std::unique_ptr<Named>> chain;
  for (int i = 0; i < 200000; ++i) {
    chain.push_back(std::make_unique<Named>('x'));
    if (i > 0) chain[static_cast<std::size_t>(i) - 1]->append(chain.back().get());
  }
  EXPECT_EQ(walk<PostIterator>(chain[0].get()).size(), chain.size());
}

}  // namespace
}  // namespace torvane
