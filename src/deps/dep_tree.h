// One node of a dependency tree: a word (or an empty place) of the sentence under its head.
#pragma once

#include <cstdint>

#include "att/att_vec.h"
#include "deps/props.h"
#include "deps/rs_tree.h"
#include "support/array.h"

namespace torvane {

class Deps;

/// Made and owned by its Deps, with all its strings; it may be used anew when the Deps is cleared.
class DepTree : public RSTree {
 public:
  Deps* _deps = nullptr;
  std::int16_t _low = -1;   ///< first word
  std::int16_t _high = -1;  ///< last word
  std::int16_t _pos = -1;   ///< head word; -1 for a node with no word
  const char* _cat = nullptr;
  const char* _rel = nullptr;        ///< relation to the parent
  const char* _root_word = nullptr;  ///< root form; "~" stands for the text of the span
  const char* _label = nullptr;
  Ref<AttVec> _atts;  ///< may be null
  float _weight = 0;  ///< local
  Array<DepProp> _props;
  DepTree* _chain = nullptr;      ///< next in Deps::_nodes
  DepTree* antecedent = nullptr;  ///< of an empty node: the node it stands for; may be null

  /// Null once its Deps was cleared.
  DepTree* as_dep_tree() override { return _deps ? this : nullptr; }
  Era* era() const override;
  DepTree* parent() const { return static_cast<DepTree*>(_parent); }
  bool spans_words() const { return _low >= 0 && _high >= _low; }
  /// Neither first nor last word. The root of several trees is such a node: it only holds them.
  bool has_no_span() const { return _low < 0 && _high < 0; }
  bool is_holder() const { return !_parent && has_no_span(); }

  /// Takes a node (off its old parent) and keeps the children in sentence order. One that this node
  /// is or lies below is reported and left alone.
  void add_child(DepTree* child);
  /// Copies of the texts go into the tree's strings.
  void set_rel(const char* text);
  void set_cat(const char* text);
  void set_root_word(const char* text);
  void set_label(const char* text);
  /// The root form, or the word if there is none; the text of the span for "~". May be null.
  const char* root_word() const;
  /// The label, assigned if there is none yet.
  const char* label();
  /// The word at the node's position, or null.
  const char* word() const;
  /// A child with the given relation.
  DepTree* child_by_rel(const char* rel) const;
  /// Where the node stands in the sentence, for comparison: an empty node stands before its word.
  int order() const { return _pos >= 0 ? 2 * _pos : 2 * _low - 1; }

  /// Calls `visit(child)` in order.
  template <class Visit>
  void for_each_child(Visit visit) const {
    for (RSTree* child : *this) visit(static_cast<DepTree*>(child));
  }

 private:
  friend class Deps;
  void reuse(Deps* owner);
};

namespace tags {
inline constexpr TypeTag dep_tree{
    .name = "RSTree*", .base = &rs_tree, .life = Life::sentence, .era_of = rs_tree.era_of};
}
template <>
struct ValueTraits<DepTree> {
  using Base = RSTree;
  static const TypeTag& tag() { return tags::dep_tree; }
};

/// The node that a value holds, or that a tree is; null for anything else, and for a node whose
/// Deps was cleared.
inline DepTree* dep_tree_of(RSTree* tree) {
  return tree ? tree->as_dep_tree() : nullptr;
}
inline DepTree* dep_tree_of(Value value) {
  return dep_tree_of(value.as<RSTree>());
}

}  // namespace torvane
