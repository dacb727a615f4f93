// What a node has: its fields, the words it covers, and how it stands to its parent.
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "deps/dep_forms.h"
#include "deps/node_extent.h"
#include "deps/props.h"
#include "lexp/scratch_text.h"

namespace torvane {

namespace {

using Text = const char*;

// An empty node stands where its span would.
int place_of(const DepTree& node) {
  return node._pos < 0 ? node._low : node._pos;
}

struct DepTree2Deps : DepTreeComponent<DepTree2Deps, Deps> {
  static constexpr const char* kName = "deps";
  Deps* component(DepTree& node) const { return node._deps; }
};

struct DepTree2Rel : DepTreeComponent<DepTree2Rel, Text> {
  static constexpr const char* kName = "rel";
  Value component(DepTree& node) const { return node._deps->text_value(node._rel); }
};

struct DepTree2Cat : DepTreeComponent<DepTree2Cat, Text> {
  static constexpr const char* kName = "cat";
  Value component(DepTree& node) const { return node._deps->text_value(node._cat); }
};

struct DepTree2Root : DepTreeComponent<DepTree2Root, Text> {
  static constexpr const char* kName = "node2root";
  Value component(DepTree& node) const { return node._deps->text_value(node.root_word()); }
};

struct DepTree2MinP : DepTreeComponent<DepTree2MinP, Text> {
  static constexpr const char* kName = "node2minp";
  Value component(DepTree& node) const {
    return node._deps->text_value(node._deps->span_text(node._low, node._high));
  }
};

struct DepTree2Word : DepTreeComponent<DepTree2Word, Text> {
  static constexpr const char* kName = "node2word";
  Value component(DepTree& node) const {
    if (node._low <= 0 || node._high < node._low) return Value();  // null for an empty node
    return node._deps->text_value(node._deps->span_text(node._low, node._high));
  }
};

struct DepTree2MaxP : DepTreeComponent<DepTree2MaxP, Text> {
  static constexpr const char* kName = "node2maxp";
  Value component(DepTree& node) const {
    Extent extent = extent_of(node);
    return node._deps->text_value(node._deps->span_text(extent.low, extent.high));
  }
};

struct DepTree2AttVec : DepTreeComponent<DepTree2AttVec, AttVec> {
  static constexpr const char* kName = "node2attvec";
  AttVec* component(DepTree& node) const { return node._atts.get(); }
};

struct DepTree2Ante : DepTreeComponent<DepTree2Ante, DepTree> {
  static constexpr const char* kName = "node2ante";
  DepTree* component(DepTree& node) const { return ante_of(node); }
};

struct DepTree2Antecedent : DepTreeComponent<DepTree2Antecedent, DepTree> {
  static constexpr const char* kName = "node2antecedent";
  DepTree* component(DepTree& node) const { return ante_of(node); }
};

struct DepTree2Low : DepTreeComponent<DepTree2Low, int> {
  static constexpr const char* kName = "depnode-low";
  int component(DepTree& node) const { return node._low; }
};

struct DepTree2High : DepTreeComponent<DepTree2High, int> {
  static constexpr const char* kName = "depnode-high";
  int component(DepTree& node) const { return node._high; }
};

struct DepTree2Pos : DepTreeComponent<DepTree2Pos, int> {
  static constexpr const char* kName = "depnode-pos";
  int component(DepTree& node) const { return place_of(node); }
};

struct DistToParent : DepTreeComponent<DistToParent, int> {
  static constexpr const char* kName = "dist-to-parent";
  int component(DepTree& node) const {
    const DepTree* parent = node.parent();
    return parent ? std::abs(place_of(node) - place_of(*parent)) : 0;
  }
};

struct WordBefore : DepTreeComponent<WordBefore, Text> {
  static constexpr const char* kName = "word-before";
  Value component(DepTree& node) const {
    return node._deps->text_value(node._low > 1 ? node._deps->word(node._low - 1) : nullptr);
  }
};

struct WordAfter : DepTreeComponent<WordAfter, Text> {
  static constexpr const char* kName = "word-after";
  Value component(DepTree& node) const {
    return node._deps->text_value(node._deps->word(node._high + 1));
  }
};

struct BeforeParent : DepTreeComponent<BeforeParent, DepTree> {
  static constexpr const char* kName = "before-parent";
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
    ScratchText text;
    text.add(name_part(parent->_cat));
    text.add(D::kJoin);
    text.add(node._rel);
    text.add(':');
    text.add(name_part(node._cat));
    return Value::made_text(text.view());
  }
};

struct DepName : NameOfDependency<DepName> {
  static constexpr const char* kName = "dep-name";
  static constexpr std::string_view kJoin = ":";
};

struct RDepName : NameOfDependency<RDepName> {
  static constexpr const char* kName = "r-dep-name";
  static constexpr std::string_view kJoin = ":r_";
};

}  // namespace

void register_node_adaptors(World& world) {
  register_form<DepTree2Deps>(world);
  register_form<DepTree2Rel>(world);
  register_form<DepTree2Cat>(world);
  register_form<DepTree2Root>(world);
  register_form<DepTree2Word>(world);
  register_form<DepTree2AttVec>(world);
  register_form<DepTree2MinP>(world);
  register_form<DepTree2MaxP>(world);
  register_form<DepTree2Ante>(world);
  register_form<DepTree2Antecedent>(world);
  register_form<DepTree2Low>(world);
  register_form<DepTree2High>(world);
  register_form<DepTree2Pos>(world);
  register_form<DistToParent>(world);
  register_form<WordBefore>(world);
  register_form<WordAfter>(world);
  register_form<BeforeParent>(world);
  register_form<DepName>(world);
  register_form<RDepName>(world);
}

}  // namespace torvane
