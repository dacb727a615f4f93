// The grammar as a network. Each category is a node with an ordered row of positions; at each position
// stand the links by which items of other nodes arrive as modifiers, and one position is the head's. An
// item that is complete in a node travels along the node's outgoing links to the nodes that can use it.
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

/// An edge: `_child` sends items, `_parent` receives them at `_position`. Owned by the network for the
/// whole run.
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
  const char* _type = nullptr;  ///< relation name, lives for ever
  std::vector<Slist<PItem*>> _waiting;  ///< by the item's high: items that wait for a head to their right
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
  const Slist<PItem*>& waiting_at(int high) const;
};

/// One category: a node of the network.
class GCate {
 public:
  GCate(TorvaneParser* parser, const char* name);
  GCate(const GCate&) = delete;
  GCate& operator=(const GCate&) = delete;

  TorvaneParser* _parser;
  std::string _name;        ///< such as V_N_P
  std::string _short_name;  ///< up to the first "_"
  Slist<PItem*> _ready;     ///< items waiting to be sent upward
  std::vector<Link*> _out_links;               ///< as child, ascending by weight, then order of definition
  std::vector<std::vector<Link*>> _positions;  ///< incoming links; the extra last row holds subclass links
  int _n_positions = 1;
  std::vector<std::vector<Slist<PItem*>>> _items;  ///< the chart: [word index][position]
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

  bool bit(std::uint32_t mask, int position) const { return (mask >> (position & 31)) & 1; }
  /// The skip-word condition of a position, or null.
  const ExpPtr* skip_cond(int position) const;

  /// Adds an incoming link at a position; on the head position it percolates all that the child shows.
  void add_link(Link* link, int position);
  /// Adds an outgoing link at its place by weight; `reinsert` moves one whose weight changed.
  void add_out_link(Link* link);
  void reinsert_out_link(Link* link);
  /// The chart cell, made if need be.
  Slist<PItem*>& get_bucket(int position, int word_index);
  /// The chart cell, or an empty list.
  const Slist<PItem*>& bucket(int position, int word_index) const;
  /// A bit of `_required` is set in from..to-1.
  bool any_required(int from, int to) const;

  /// Builds the positions from POSITION lists.
  void build_positions(IRSlist* positions);
  /// Builds the positions of a frame node from its argument vectors.
  void build_frame(const AttVecList& args, bool head_final);
  /// Empties the charts that this sentence used.
  void reset_sentence();

  // Message passing; see parsing_loop and merge.
  void receive(PItem* item, Link* link);
  void accept(PItem* item, Link* link);
  int add_item(PItem* item, int position);
  int extend_left(PItem* item, int position);
  void attach_right(PItem* modifier, Link* link);
  int next_left(int position, int q, PItem* item, PItem*& adjunct);
  void drain_ready();
  void send(PItem* item, Link* link);
  PItem* merge(PItem* modifier, PItem* head, PItem* adjunct, int position, Link* link);
  PItem* merge_items(PItem* modifier, PItem* head, PItem* adjunct);
  void try_conjunction(PItem* item, int position);
  PItem* copy_item(const PItem* source, const AttSet* atts);
  PItem* make_lexical_item(LexItem* lexitem);
};

/// The category letter's node name: "n" gives "N", "d" gives "Det"; "" for any other.
const char* category_node_name(const AttVec& vec);
/// The name of the node of a lexical vector; empty for none.
std::string node_name_of(const AttVec& vec);

}  // namespace torvane
