// One node of a dependency tree: a word (or an empty place) of the sentence under its head.
#pragma once

#include <cstdint>

#include "att/att_vec.h"
#include "deps/rs_tree.h"
#include "support/array.h"

namespace torvane {

class Deps;

/// A property hung on a node by name.
struct DepProp {
  const char* name;   ///< in the tree's strings
  const char* value;  ///< in the tree's strings
  float weight;
};

/// Owned by its Deps, with all its strings.
class DepTree : public RSTree {
 public:
  Deps* _deps = nullptr;
  std::int16_t _low = -1;   ///< first word
  std::int16_t _high = -1;  ///< last word
  std::int16_t _pos = -1;   ///< head word; -1 for a node with no word
  const char* _cat = nullptr;
  const char* _rel = nullptr;        ///< relation to the parent
  const char* _root_word = nullptr;  ///< root form
  const char* _label = nullptr;
  Ref<AttVec> _atts;  ///< may be null
  float _weight = 0;  ///< local
  Array<DepProp> _props;
  DepTree* _chain = nullptr;  ///< next in Deps::_nodes
  DepTree* antecedent = nullptr;  ///< of an empty node, may be null

  DepTree* parent() const { return static_cast<DepTree*>(_parent); }
  bool spans_words() const { return _low >= 0 && _high >= _low; }
  /// Neither first nor last word: the holder of several roots, which has no line of its own.
  bool is_holder() const { return _low < 0 && _high < 0; }
  /// Keeps the children in sentence order.
  void add_child(DepTree* child);
  void set_rel(const char* text);
  void set_cat(const char* text);
  void set_root_word(const char* text);
  void set_label(const char* text);
  /// The root form, or the word if there is none; the text of the span for "~".
  const char* root_word() const;
  /// The label, assigned if there is none yet.
  const char* label();
  /// The word at the node's position, or null.
  const char* word() const;
  /// Calls `visit(child)` in order.
  template <class Visit>
  void for_each_child(Visit visit) const {
    for (RSTree* child : *this) visit(static_cast<DepTree*>(child));
  }
};

namespace tags {
inline constexpr TypeTag dep_tree{"DepTree*", &rs_tree, Life::sentence};
}
template <>
struct ValueTraits<DepTree> {
  using Base = RSTree;
  static const TypeTag& tag() { return tags::dep_tree; }
};

}  // namespace torvane
