// An edge of the grammar network: its child's complete items travel along it to its parent.
#pragma once

#include <cstdint>

#include "lexp/lexp.h"
#include "support/bit_set.h"
#include "support/name.h"

namespace torvane {

class GCate;

using AttSet = LBitSet;

/// What a relation's name means to the parser. Any name that it does not know is plain.
enum class LinkKind : std::uint8_t { plain, guest, subcat, complement };

/// `_child` sends items, `_parent` receives them at a position. Owned by the network for the whole
/// run. Every item is offered to every link of its node, and most are refused: what is asked then
/// stands in front, and in one line of the cache.
struct alignas(64) Link {
  Link(GCate* parent, GCate* child) : _parent(parent), _child(child) {}

  GCate* const _parent;

 private:
  std::int16_t position_ = -1;
  LinkKind kind_ = LinkKind::plain;

 public:
  bool _no_guest = true;
  bool _is_subclass = false;
  Condition _modifier_cond;
  Condition _head_cond;
  AttSet _percolate;  ///< attributes copied into the merged item
  Condition _modifiee_cond;
  Condition _merged_cond;
  GCate* const _child;       ///< may be null: a frame's argument whose category has no node
  std::uint32_t _check = 0;  ///< mask built by check-slash
  int _check_arg = -1;
  int _max_dist = 64;

  /// The relation; no name if none was given.
  Name type() const { return type_; }
  LinkKind kind() const { return kind_; }
  void set_type(const char* type);

  /// Added to every item that the link merges.
  float weight() const { return weight_; }
  /// Gives the link its new place among those that leave the child.
  void set_weight(float weight);

  /// The parent's position, -1 before there is one.
  int position() const { return position_; }
  /// The column of the chart where items wait for a head to their right.
  int column() const { return column_; }
  void place(int position, int column) {
    position_ = static_cast<std::int16_t>(position);
    column_ = column;
  }

 private:
  Name type_;
  float weight_ = 1.0f;
  int column_ = -1;
};

namespace tags {
inline constexpr TypeTag link{"DepRel*"};
}  // namespace tags
template <>
struct ValueTraits<Link> : TagOf<Link, tags::link> {};

}  // namespace torvane
