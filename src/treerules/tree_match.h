// What a tree pattern found: a tree of matches, each standing for a node of the tree that was
// searched.
#pragma once

#include <cstddef>
#include <cstdint>

#include "deps/rs_tree.h"
#include "support/value.h"

namespace torvane {

/// Ends with the innermost MatchScope around its making; nobody ends one.
struct TreeMatch {
  TreeMatch* last = nullptr;     ///< the children as a ring: the first stands behind the last
  RSTree* node = nullptr;        ///< null in an empty match
  TreeMatch* next = nullptr;     ///< in the parent's ring
  TreeMatch* _parent = nullptr;  ///< null at the top
  std::uint64_t stamp = 0;       ///< grows from match to match; 0 once it is over

  static TreeMatch* make(RSTree* node);

  void append(TreeMatch* child);
  TreeMatch* first_child() const { return last ? last->next : nullptr; }
  TreeMatch* next_sibling() const { return _parent && this != _parent->last ? next : nullptr; }
  /// Child n, from 1; null if there is none.
  TreeMatch* child(long n) const;
  /// Always to the last child, down to the end.
  TreeMatch* last_descendant();
  bool has_child_on(const RSTree* tree) const;
  /// Calls `visit(match)` in pre-order.
  template <class Visit>
  void for_each(Visit visit) {
    for (TreeMatch* match = this; match;) {
      visit(*match);
      if (match->last) {
        match = match->first_child();
        continue;
      }
      while (match != this && !match->next_sibling()) match = match->_parent;
      match = match == this ? nullptr : match->next_sibling();
    }
  }
};

/// How many matches are alive.
inline constinit thread_local std::size_t matches_made = 0;
/// The stamp that the last match got.
inline constinit thread_local std::uint64_t last_match_stamp = 0;

/// Ends the matches that were made while it lived.
class MatchScope {
 public:
  ~MatchScope() {
    if (matches_made != mark_) end_matches(mark_);
  }
  MatchScope() = default;
  MatchScope(const MatchScope&) = delete;
  MatchScope& operator=(const MatchScope&) = delete;

 private:
  static void end_matches(std::size_t mark);
  std::size_t mark_ = matches_made;
};

namespace tags {
/// A holder reads null as soon as the match is over.
inline constexpr TypeTag tree_match{
    .name = "TreeMatch*", .life = Life::stamped, .stamp = [](Word w) {
      return reinterpret_cast<const TreeMatch*>(w)->stamp;
    }};
}  // namespace tags
template <>
struct ValueTraits<TreeMatch> : TagOf<TreeMatch, tags::tree_match> {};

}  // namespace torvane
