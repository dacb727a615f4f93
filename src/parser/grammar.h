// The grammar as a network. Each category is a node with an ordered row of positions; at each
// position stand the links by which items of other nodes arrive as modifiers, and one position is
// the head's. An item that is complete in a node travels along the node's outgoing links to the
// nodes that can use it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "lexp/lexp.h"
#include "parser/p_item.h"
#include "support/bit_set.h"
#include "support/slist.h"

namespace torvane {

class TorvaneParser;
class GCate;

using AttSet = LBitSet;

/// What a chart cell that was never made holds.
inline const Slist<PItem*> kNoItems{};

/// An edge: `_child` sends items, `_parent` receives them at `_position`. Owned by the network for
/// the whole run.
struct Link {
  Link(GCate* parent, GCate* child) : _parent(parent), _child(child) {}

  GCate* _parent;
  GCate* _child;  ///< may be null: a frame's argument whose category has no node
  ExpPtr _modifier_cond;
  ExpPtr _modifiee_cond;
  ExpPtr _merged_cond;
  ExpPtr _head_cond;
  std::uint32_t _check = 0;  ///< mask built by check-slash
  float _weight = 1.0f;      ///< added to every item that the link merges
  std::int16_t _position = -1;
  std::int16_t _is_subclass = 0;
  const char* _type = nullptr;          ///< relation name, lives for ever
  std::vector<Slist<PItem*>> _waiting;  ///< by the item's high: who waits for a head to the right
  AttSet _percolate;                    ///< attributes copied into the merged item
  int _no_guest = 1;
  int _check_arg = -1;
  std::string _key;  ///< PARENT:TYPE:CHILD, empty until a type is set
  int _max_dist = 64;

  /// Sets `_type` and `_key`; null clears the type only.
  void set_type(const char* type);
  /// Parks an item, growing the row.
  void park(PItem* item);
  /// What is parked at a word index; empty outside the row.
  const Slist<PItem*>& waiting_at(int high) const {
    return static_cast<std::size_t>(high) < _waiting.size() ? _waiting[high] : kNoItems;
  }
  /// Drops what this sentence parked.
  void reset_sentence();

 private:
  std::vector<std::int16_t> parked_at_;  // the cells in use
};

/// One category: a node of the network.
class GCate {
 public:
  GCate(TorvaneParser* parser, const char* name);
  GCate(const GCate&) = delete;
  GCate& operator=(const GCate&) = delete;

  TorvaneParser* _parser;
  std::string _name;              ///< such as V_N_P
  std::string _short_name;        ///< up to the first "_"
  Slist<PItem*> _ready;           ///< items waiting to be sent upward
  std::vector<Link*> _out_links;  ///< as child, ascending by weight, then order of definition
  /// Incoming links, by position; the extra last row holds those of subclasses.
  std::vector<std::vector<Link*>> _positions;
  int _n_positions = 1;
  /// The chart: [word index][position]; the row of a word index is empty until it is first used.
  std::vector<std::vector<Slist<PItem*>>> _items;
  int _head = 0;  ///< -1 when no position was marked
  int _is_subcat = 0;
  std::uint32_t _repeat = 0;    ///< positions that may be filled more than once
  std::uint32_t _required = 0;  ///< positions that must be filled
  ExpPtr _full_cond;
  ExpPtr _minimal_cond;
  Link* _conj_link = nullptr;
  Link* _guest_link;
  std::uint32_t _minimal = 0;
  std::vector<ExpPtr> _skip_conds;  ///< by position; a missing entry is null
  std::uint32_t _skip_adjunct = 0;
  AttSet _visible;
  LBitSet _ends;  ///< every high at which an item was stored during this sentence
  AttSet _conj_same;
  AttSet _conj_consistent;
  AttSet _subcat_atts;

  static bool bit(std::uint32_t mask, int position) { return (mask >> (position & 31)) & 1; }
  /// The skip-word condition of a position, or null.
  const ExpPtr* skip_cond(int position) const {
    bool present = static_cast<std::size_t>(position) < _skip_conds.size() && _skip_conds[position];
    return present ? &_skip_conds[position] : nullptr;
  }
  /// A position that must be filled. Positions off the row (the head of a node without one) never
  /// must.
  bool required(int position) const {
    return position >= 0 && position < _n_positions && bit(_required, position);
  }

  /// Adds an incoming link at a position; on the head position it percolates all that the child
  /// shows.
  void add_link(Link* link, int position);
  /// Adds an outgoing link at its place by weight; `reinsert` moves one whose weight changed.
  void add_out_link(Link* link);
  void reinsert_out_link(Link* link);
  void remove_out_link(Link* link);
  /// The chart cell, made if need be and noted for the next reset; null off the chart.
  Slist<PItem*>* get_bucket(int position, int word_index);
  /// The chart cell, or an empty list.
  const Slist<PItem*>& bucket(int position, int word_index) const {
    if (static_cast<std::size_t>(word_index) >= _items.size()) return kNoItems;
    const auto& row = _items[word_index];
    return static_cast<std::size_t>(position) < row.size() ? row[position] : kNoItems;
  }
  /// A bit of `_required` is set in from..to-1.
  bool any_required(int from, int to) const;

  /// Builds the positions from POSITION lists (consumed). A node that had positions keeps its links
  /// to subcategories and subclasses.
  void build_positions(IRSlist* positions);
  /// Builds the positions of a frame node from its argument vectors (null: none).
  void build_frame(const AttVecList* args, bool head_final);
  /// Empties the charts that this sentence used.
  void reset_sentence();

  // Message passing, in parsing_loop.cc.
  /// Takes an item in: as head, as modifier, or (no link) as a word. What becomes complete is sent
  /// on.
  void receive(PItem* item, Link* link);
  /// Takes a subclass's item as one of this node's own.
  void accept(PItem* item, Link* link);
  /// Offers an item to one of this node's outgoing links.
  static void send(PItem* item, Link* link);
  /// Stores an item that has filled the positions up to `position`: 1 if stored, 0 if dropped or
  /// chained.
  int add_item(PItem* item, int position);
  /// Fills the positions left of the head, nearest first; non-zero if a merge took place.
  int extend_left(PItem* item, int position);
  void attach_right(PItem* modifier, Link* link);
  /// Where a modifier of the item may end when it does not end at q; below 0 for nowhere. An
  /// adjunct that lies between comes back in `adjunct`.
  int next_left(int position, int q, PItem* item, PItem*& adjunct);
  void drain_ready();

  // Tying items together, in merge.cc and conjunction.cc.
  /// `modifier` under `head` by a link of this node; null if anything speaks against it.
  PItem* merge(PItem* modifier, PItem* head, PItem* adjunct, int position, Link* link);
  PItem* merge_items(PItem* modifier, PItem* head, PItem* adjunct);
  /// Looks for a left conjunct of the item.
  void try_conjunction(PItem* item, int position);
  /// A projection of `source` with the attributes in the set (null: all); null when the pool is
  /// exhausted.
  PItem* copy_item(const PItem* source, const AttSet* atts);
  PItem* make_lexical_item(LexItem* lexitem);

 private:
  struct CellIndex {
    std::int32_t word;
    std::int32_t position;
  };
  /// Fresh rows and masks; gives the links that outlive the old rows.
  std::vector<Link*> start_positions(int n);
  void read_position(IRSlist* form, int position);
  void read_link(IRSlist* form, int position);
  void join_conjuncts(PItem* left, PItem* item, int position);

  std::vector<CellIndex> used_cells_;
};

/// The category letter's node name: "n" gives "N", "d" gives "Det"; "" for any other.
const char* category_node_name(const AttVec& vec);
/// The name of the node of a lexical vector; empty for none.
std::string node_name_of(const AttVec& vec);
void append_node_name(const AttVec& vec, std::string& out);

/// The commands that build the network.
void register_grammar_commands(World& world);

}  // namespace torvane
