// Forms that write a tree or a part of it, or give its words. The node or tree comes as the input;
// what else they take are expressions. They give their input back, null if they wrote nothing.
#include <vector>

#include "deps/dep_forms.h"
#include "deps/node_extent.h"
#include "deps/offers.h"
#include "deps/print_text.h"

namespace torvane {

namespace {

Deps* print_deps(World& world, Deps* deps, LBitSet* show, Stream* stream) {
  std::ostream* out = output_of(world, stream);
  if (!deps || !out) return nullptr;
  deps->print(*out, show);
  return deps;
}

DepTree* print_dep_tree(World& world, RSTree* tree, LBitSet* show, Stream* stream) {
  DepTree* node = dep_tree_of(tree);
  return node && print_deps(world, node->_deps, show, stream) ? node : nullptr;
}

/// Of a tree, or of the one that a node belongs to.
Value save_deps(World& world, Value input, LBitSet* show, Stream* stream) {
  DepTree* node = dep_tree_of(input);
  Deps* deps = node ? node->_deps : input.as<Deps>();
  return print_deps(world, deps, show, stream) ? input : Value();
}

DepTree* print_sub_deps(World& world, RSTree* tree, LBitSet* show, Stream* stream) {
  DepTree* node = dep_tree_of(tree);
  std::ostream* out = output_of(world, stream);
  if (!node || !out) return nullptr;
  Extent extent = extent_of(*node);
  node->_deps->print_word_lines(*out, extent.low, extent.high, show);
  return node;
}

void write_dependency(std::ostream& out, const DepTree& node, const DepTree* parent) {
  out << relation_text(&node) << '(' << root_text(parent) << ", ";
  out << root_text(&node) << ")\n";
}

DepTree* print_context(World& world, RSTree* tree, Stream* stream) {
  DepTree* node = dep_tree_of(tree);
  std::ostream* out = output_of(world, stream);
  if (!node || !out) return nullptr;
  *out << "-----";
  write_dependency(*out, *node, node->parent());
  node->for_each_child([&](const DepTree* child) { write_dependency(*out, *child, node); });
  return node;
}

/// The words from the first of one node to the last of another; null for nodes of two trees.
const char* words_between(RSTree* from, RSTree* to) {
  const DepTree* first = dep_tree_of(from);
  const DepTree* last = dep_tree_of(to);
  if (!first || !last || first->_deps != last->_deps) return nullptr;
  return first->_deps->span_text(first->_low, last->_high);
}

RSTree* print_words(World& world, RSTree* from, RSTree* to, Stream* stream) {
  const char* words = words_between(from, to);
  std::ostream* out = output_of(world, stream);
  if (!words || !out) return nullptr;
  *out << words << '\n';
  return from;
}

RSTree* print_leaf(World& world, RSTree* tree, Stream* stream) {
  return print_words(world, tree, tree, stream);
}

struct LeafStr : DepTreeComponent<LeafStr, const char*> {
  static constexpr const char* kName = "leaf-str";
  static constexpr const char* kUsage = "`(leaf-str [sub])` the words of the node";
  Value component(DepTree& node) const { return node._deps->text_value(span_text(node)); }
};

class GetWords : public Form<GetWords> {
 public:
  static constexpr const char* kName = "get-words";
  static constexpr const char* kUsage =
      "`(get-words node)` the words from the input's first to the other node's last";
  GetWords() {
    in_type = type_id_of<DepTree>();
    out_type = type_id_of<const char*>();
  }
  void init(World& world, IRSlist* args) override { last_ = get_exp(world, args->nth(0)); }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    RSTree* last = last_.eval(input, type).as<RSTree>();
    const char* words = words_between(input.as<RSTree>(), last);
    return words ? dep_tree_of(last)->_deps->text_value(words) : Value();
  }

 private:
  ExpPtr last_;
};

void write_atts(std::ostream& out, const DepTree& node, const LBitSet* show) {
  out << '\t';
  if (node._atts) node._atts->print(out, show);
}

DepTree* print_rel(World& world, RSTree* tree, LBitSet* show, Stream* stream) {
  DepTree* node = dep_tree_of(tree);
  const DepTree* parent = node ? node->parent() : nullptr;
  std::ostream* out = output_of(world, stream);
  if (!parent || !out) return nullptr;
  *out << or_empty(node->_rel) << '\t' << or_empty(parent->_root_word);
  *out << '\t' << or_empty(node->_root_word);
  if (show) {
    write_atts(*out, *parent, show);
    write_atts(*out, *node, show);
  }
  *out << '\n';
  return node;
}

// `(minimal-across exp)`: the next word that no other dependency holds, on the side of the parent,
// passes. An expression that gives an expression stands for that one.
class MinimalAcross : public Form<MinimalAcross> {
 public:
  static constexpr const char* kName = "minimal-across";
  static constexpr const char* kUsage =
      "`(minimal-across exp)` 1 if a word beside the node, on the side of its parent, passes "
      "before one that is attached";
  MinimalAcross() {
    in_type = type_id_of<DepTree>();
    out_type = type_id_of<int>();
  }

  void init(World& world, IRSlist* args) override { exp_ = get_exp(world, args->nth(0)); }

  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    DepTree* node = dep_tree_of(input);
    if (!node || !node->_parent) return Value();
    LExp* test = exp_.get();
    if (test && test->out_type == type_id_of<LExp>()) test = test->eval(input, type).as<LExp>();
    return Value::truth(test && finds(*node, *test));
  }

 private:
  static bool finds(DepTree& node, LExp& test) {
    Deps& deps = *node._deps;
    std::vector<DepTree*> nodes = nodes_by_word(node.root(), deps);
    int parent_at = node.parent()->_pos;
    int step = parent_at < 0 || parent_at <= node._pos ? -1 : 1;
    for (int i = (step < 0 ? node._low : node._high) + step; const char* word = deps.word(i);
         i += step) {
      const DepTree* there = nodes[static_cast<std::size_t>(i)];
      if (there && there->_parent) return false;
      if (holds(test, node._deps->text_value(word), type_id_of<const char*>())) return true;
    }
    return false;
  }

  ExpPtr exp_;
};

constexpr Prototype kDepPrintForms[] = {
    function<print_dep_tree>("print-dep-tree",
                             "`(print-dep-tree [atts [stream]])` prints the whole tree of the "
                             "node, with the attributes of the set"),
    function<print_deps>(
        "print-deps",
        "`(print-deps [atts [stream]])` prints a tree, with the attributes of the set"),
    function<save_deps>(
        "save-deps",
        "`(save-deps [atts [stream]])` as `print-deps`; the input may also be a node of the tree"),
    function<print_sub_deps>(
        "print-sub-deps",
        "`(print-sub-deps [atts [stream]])` the lines of the words that the subtree reaches over"),
    function<print_context>("print-context",
                            "`(print-context [stream])` the relation of the node to its parent, "
                            "and of each child to it"),
    function<print_words>("print-words",
                          "`(print-words node [stream])` the words from the input's first to the "
                          "other node's last, on a line"),
    form<GetWords>(),
    function<print_rel>("print-rel",
                        "`(print-rel [atts [stream]])` relation, root form of the parent and of "
                        "the node, with tabs between them; with a set also their attributes"),
    function<print_leaf>("print-leaf", "`(print-leaf [stream])` the words of the node on a line"),
    form<LeafStr>(),
    form<MinimalAcross>(),
};

}  // namespace

constinit const Offer offers::dep_print_forms{kDepPrintForms};

}  // namespace torvane
