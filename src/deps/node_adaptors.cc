// What a node has: its fields, the words it covers, and how it stands to its parent.
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "deps/dep_forms.h"
#include "deps/node_extent.h"
#include "deps/offers.h"
#include "deps/props.h"

namespace torvane {

namespace {

using Text = const char*;

// An empty node stands where its span would.
int place_of(const DepTree& node) {
  return node._pos < 0 ? node._low : node._pos;
}

struct DepTree2Deps : DepTreeComponent<DepTree2Deps, Deps> {
  static constexpr const char* kName = "deps";
  static constexpr const char* kUsage =
      "`(deps [sub])` the tree that the node belongs to, with its words";
  Deps* component(DepTree& node) const { return node._deps; }
};

struct DepTree2Rel : DepTreeComponent<DepTree2Rel, Text> {
  static constexpr const char* kName = "rel";
  static constexpr const char* kUsage = "`(rel [sub])` the relation to the parent";
  Value component(DepTree& node) const { return node._deps->text_value(node._rel); }
};

struct DepTree2Cat : DepTreeComponent<DepTree2Cat, Text> {
  static constexpr const char* kName = "cat";
  static constexpr const char* kUsage = "`(cat [sub])` the category";
  Value component(DepTree& node) const { return node._deps->text_value(node._cat); }
};

struct DepTree2Root : DepTreeComponent<DepTree2Root, Text> {
  static constexpr const char* kName = "node2root";
  static constexpr const char* kUsage =
      "`(node2root [sub])` the root form, or the word if there is none";
  Value component(DepTree& node) const { return node._deps->text_value(node.root_word()); }
};

struct DepTree2MinP : DepTreeComponent<DepTree2MinP, Text> {
  static constexpr const char* kName = "node2minp";
  static constexpr const char* kUsage =
      "`(node2minp [sub])` the text of the node's words, empty for an empty node";
  Value component(DepTree& node) const {
    return node._deps->text_value(node._deps->span_text(node._low, node._high));
  }
};

struct DepTree2Word : DepTreeComponent<DepTree2Word, Text> {
  static constexpr const char* kName = "node2word";
  static constexpr const char* kUsage =
      "`(node2word [sub])` the text of the node's words, 0 for an empty node";
  Value component(DepTree& node) const {
    if (node._low <= 0 || node._high < node._low) return Value();  // null for an empty node
    return node._deps->text_value(node._deps->span_text(node._low, node._high));
  }
};

struct DepTree2MaxP : DepTreeComponent<DepTree2MaxP, Text> {
  static constexpr const char* kName = "node2maxp";
  static constexpr const char* kUsage =
      "`(node2maxp [sub])` the text from the first to the last word of the whole subtree";
  Value component(DepTree& node) const {
    Extent extent = extent_of(node);
    return node._deps->text_value(node._deps->span_text(extent.low, extent.high));
  }
};

struct DepTree2AttVec : DepTreeComponent<DepTree2AttVec, AttVec> {
  static constexpr const char* kName = "node2attvec";
  static constexpr const char* kUsage = "`(node2attvec [sub])` the attribute vector";
  AttVec* component(DepTree& node) const { return node._atts.get(); }
};

struct DepTree2Ante : DepTreeComponent<DepTree2Ante, DepTree> {
  static constexpr const char* kName = "node2ante";
  static constexpr const char* kUsage =
      "`(node2ante [sub])` the node that the property `ante` names";
  DepTree* component(DepTree& node) const { return ante_of(node); }
};

struct DepTree2Antecedent : DepTreeComponent<DepTree2Antecedent, DepTree> {
  static constexpr const char* kName = "node2antecedent";
  static constexpr const char* kUsage = "`(node2antecedent [sub])` the same";
  DepTree* component(DepTree& node) const { return ante_of(node); }
};

struct DepTree2Low : DepTreeComponent<DepTree2Low, int> {
  static constexpr const char* kName = "depnode-low";
  static constexpr const char* kUsage = "`(depnode-low [sub])` the index of the first word";
  int component(DepTree& node) const { return node._low; }
};

struct DepTree2High : DepTreeComponent<DepTree2High, int> {
  static constexpr const char* kName = "depnode-high";
  static constexpr const char* kUsage = "`(depnode-high [sub])` the index of the last word";
  int component(DepTree& node) const { return node._high; }
};

struct DepTree2Pos : DepTreeComponent<DepTree2Pos, int> {
  static constexpr const char* kName = "depnode-pos";
  static constexpr const char* kUsage =
      "`(depnode-pos [sub])` the index of the head word, or of the place of an empty node";
  int component(DepTree& node) const { return place_of(node); }
};

struct DistToParent : DepTreeComponent<DistToParent, int> {
  static constexpr const char* kName = "dist-to-parent";
  static constexpr const char* kUsage =
      "`(dist-to-parent [sub])` how many words apart the node and its parent are";
  int component(DepTree& node) const {
    const DepTree* parent = node.parent();
    return parent ? std::abs(place_of(node) - place_of(*parent)) : 0;
  }
};

struct WordBefore : DepTreeComponent<WordBefore, Text> {
  static constexpr const char* kName = "word-before";
  static constexpr const char* kUsage = "`(word-before [sub])` the word before the node";
  Value component(DepTree& node) const {
    return node._deps->text_value(node._low > 1 ? node._deps->word(node._low - 1) : nullptr);
  }
};

struct WordAfter : DepTreeComponent<WordAfter, Text> {
  static constexpr const char* kName = "word-after";
  static constexpr const char* kUsage = "`(word-after [sub])` the word behind the node";
  Value component(DepTree& node) const {
    return node._deps->text_value(node._deps->word(node._high + 1));
  }
};

struct BeforeParent : DepTreeComponent<BeforeParent, DepTree> {
  static constexpr const char* kName = "before-parent";
  static constexpr const char* kUsage =
      "`(before-parent [sub])` the node, if it stands before its parent";
  DepTree* component(DepTree& node) const {
    const DepTree* parent = node.parent();
    return parent && node._pos >= 0 && node._pos < parent->_pos ? &node : nullptr;
  }
};

// The part of a category that stands in the names of dependencies.
std::string_view name_part(const char* cat) {
  if (!cat) return "";
  if (cat[0] == '_' || std::strcmp(cat, "NN") == 0) return "N";
  return {cat, std::strcspn(cat, "_")};
}

template <class D>
struct NameOfDependency : DepTreeComponent<D, Text> {
  Value component(DepTree& node) const {
    const DepTree* parent = node.parent();
    if (!parent || !node._rel) return Value();
    std::string text(name_part(parent->_cat));
    text += D::kJoin;
    text += node._rel;
    text += ':';
    text += name_part(node._cat);
    return Value::made_text(text);
  }
};

struct DepName : NameOfDependency<DepName> {
  static constexpr const char* kName = "dep-name";
  static constexpr const char* kUsage =
      "`(dep-name [sub])` category of the parent, relation and category, with colons between them";
  static constexpr std::string_view kJoin = ":";
};

struct RDepName : NameOfDependency<RDepName> {
  static constexpr const char* kName = "r-dep-name";
  static constexpr const char* kUsage =
      "`(r-dep-name [sub])` as `dep-name`, with `:r_` for the first colon";
  static constexpr std::string_view kJoin = ":r_";
};

constexpr Prototype kNodeAdaptorsForms[] = {
    form<DepTree2Deps>(),       form<DepTree2Rel>(),  form<DepTree2Cat>(),
    form<DepTree2Root>(),       form<DepTree2Word>(), form<DepTree2AttVec>(),
    form<DepTree2MinP>(),       form<DepTree2MaxP>(), form<DepTree2Ante>(),
    form<DepTree2Antecedent>(), form<DepTree2Low>(),  form<DepTree2High>(),
    form<DepTree2Pos>(),        form<DistToParent>(), form<WordBefore>(),
    form<WordAfter>(),          form<BeforeParent>(), form<DepName>(),
    form<RDepName>(),
};

}  // namespace

constinit const Offer offers::node_adaptors{kNodeAdaptorsForms};

}  // namespace torvane
