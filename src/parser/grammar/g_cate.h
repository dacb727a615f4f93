// The grammar as a network. Each category is a node with an ordered row of positions; at each
// position stand the links by which items of other nodes arrive as modifiers, and one position is
// the head's. An item that is complete in a node travels along the node's outgoing links to the
// nodes that can use it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "lexp/lexp.h"
#include "parser/grammar/link.h"

namespace torvane {

class AttVecList;
class Grammar;

/// What a grammar can say of a position. A new one must be filled, once.
enum class PositionMark { repeat, optional, minimal, skip_adjunct };

/// One category: a node of the network. What every item that is offered to it asks stands in
/// front, in one line of the cache.
class alignas(64) GCate {
 public:
  GCate(Grammar& grammar, const char* name, int number);
  GCate(const GCate&) = delete;
  GCate& operator=(const GCate&) = delete;

  Grammar& _grammar;
  const int _number;  ///< among the nodes of the grammar
  bool _is_subcat = false;

 private:
  int n_positions_ = 1;
  int head_ = 0;
  int first_column_;
  int columns_;
  std::uint32_t repeat_ = 0, required_ = 0, minimal_ = 0, skip_adjunct_ = 0;
  std::vector<Condition> skip_conds_;
  std::vector<std::vector<Link*>> positions_;
  std::vector<Link*> out_links_;

 public:
  ExpPtr _full_cond;
  ExpPtr _minimal_cond;
  AttSet _visible;
  AttSet _subcat_atts;
  AttSet _conj_same;
  AttSet _conj_consistent;
  Link* _conj_link = nullptr;
  Link* _guest_link;
  const std::string _name;        ///< such as V_N_P
  const std::string _short_name;  ///< up to the first "_"

  int n_positions() const { return n_positions_; }
  /// -1 when no position was marked.
  int head() const { return head_; }
  /// The links that arrive at a position; behind the last one those of subclasses.
  const std::vector<Link*>& links_at(int position) const { return positions_[position]; }
  /// The links by which items leave, ascending by weight, then in order of definition (those to
  /// frames also by name).
  const std::vector<Link*>& out_links() const { return out_links_; }
  /// The column of the chart for items that have filled the positions up to this one.
  int column(int position) const { return first_column_ + position; }

  /// The position may be filled more than once.
  bool repeats(int position) const { return bit(repeat_, position); }
  bool minimal(int position) const { return bit(minimal_, position); }
  bool skips_adjunct(int position) const { return bit(skip_adjunct_, position); }
  /// A position that must be filled. Positions off the row (the head of a node without one) never
  /// must.
  bool required(int position) const {
    return position >= 0 && position < n_positions_ && bit(required_, position);
  }
  /// One of from..to-1 must be filled.
  bool any_required(int from, int to) const { return required_ != 0 && requires_between(from, to); }
  /// The skip-word condition of a position, or null.
  const Condition* skip_cond(int position) const {
    bool present = static_cast<std::size_t>(position) < skip_conds_.size() && skip_conds_[position];
    return present ? &skip_conds_[position] : nullptr;
  }

  /// A fresh row of positions, none of which must be filled, without links. Gives the old links
  /// that go on to the new row: those of subcategories and subclasses.
  std::vector<Link*> start_positions(int n);
  /// Puts such links to their places in it.
  void keep_links(const std::vector<Link*>& links);
  void require(int position) { set_bit(required_, position); }
  void mark(int position, PositionMark mark);
  void set_head(int position) { head_ = position; }
  void add_skip_cond(ExpPtr cond) { skip_conds_.push_back(std::move(cond)); }
  /// Builds the positions of a frame node from its argument vectors (null: none).
  void build_frame(const AttVecList* args, bool head_final);

  /// Adds an incoming link at a position; on the head position it percolates all that the child
  /// shows.
  void add_link(Link* link, int position);
  /// Adds an outgoing link at its place by weight; `reinsert` moves one whose weight changed.
  void add_out_link(Link* link);
  void reinsert_out_link(Link* link);
  void remove_out_link(Link* link);

 private:
  static bool bit(std::uint32_t mask, int position) { return (mask >> (position & 31)) & 1; }
  static void set_bit(std::uint32_t& mask, int position) {
    // Kept: positions-wrap-at-32
    mask |= 1u << (position & 31);
  }
  static void clear_bit(std::uint32_t& mask, int position) { mask &= ~(1u << (position & 31)); }
  bool requires_between(int from, int to) const;
  void put_link(Link* link, int position);
};

}  // namespace torvane
