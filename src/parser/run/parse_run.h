// How items travel: bottom-up, by recursion through the network, one word after the other. Since
// the words come in the order of their starts, whatever ends before a modifier has been made when
// it arrives, and nothing is ever retried.
#pragma once

#include "parser/chart/chart.h"

namespace torvane {

/// An item of a node that has filled the positions up to this one needs no more to be sent on.
bool is_complete(const GCate& node, const PItem& item, int position);

/// One sentence on its way through the network.
class ParseRun {
 public:
  ParseRun(const Grammar& grammar, Chart& chart) : grammar_(grammar), chart_(chart) {
    chart.start();
  }

  /// A node takes an item in: as head, as modifier, or (no link) as a word. What becomes complete
  /// is sent on.
  void receive(const GCate& node, PItem* item, const Link* link);
  /// A node takes a subclass's item as one of its own.
  void accept(const GCate& node, PItem* item, const Link& link);
  /// Offers an item to an outgoing link.
  void send(PItem* item, const Link& link);
  /// Stores an item that has filled the positions up to `position`, unless it is an alternative to
  /// one that is stored, or can never be complete. False if it is of no use to anybody.
  bool add_item(const GCate& node, PItem* item, int position);
  /// Looks for a left conjunct of an item that has become complete.
  void try_conjunction(const GCate& node, PItem* item, int position);

 private:
  friend class RunReplay;  // goes its ways again, to tell where they end

  struct Positions {
    int first, last;
  };

  void drain_ready(const GCate& node);
  void send_head(PItem* item, const Link& link);
  void send_right(PItem* item, const Link& link);
  bool is_useless(const PItem& item, const Link& link) const;
  bool has_head_before(const GCate& node, int position, const PItem& item) const;

  // Filling positions, in attach.cc.
  /// Fills the positions left of the head, nearest first. False if the item is in nothing that is
  /// stored.
  bool extend_left(const GCate& node, PItem* item, int position);
  void attach_right(const GCate& node, PItem* modifier, const Link& link);
  struct Taken {
    bool any = false;      // something is stored that has the item in it
    bool minimal = false;  // one was a minimal modifier
  };
  bool lacks_modifier(const GCate& node, const PItem& item) const;
  Taken take_waiting(const GCate& node, PItem* item, PItem* adjunct, int position, int end);
  bool take_heads(const GCate& node, PItem* modifier, const Link& link, PItem* adjunct,
                  int position, int end);
  template <class Visit>
  void for_each_place(const GCate& node, const PItem& item, Positions positions,
                      int skipping_position, Visit visit) const;
  /// Where a neighbour of the item may end when it does not end at q; below 0 for nowhere. An
  /// adjunct that lies between comes back in `adjunct`.
  int next_left(const GCate& node, int position, int q, const PItem& item, PItem*& adjunct) const;
  int before_adjunct(const GCate& adjuncts, int q, const PItem& item, PItem*& adjunct) const;
  /// The position lets a modifier stand on the other side of the word.
  bool skips_word(const GCate& node, int position, int i) const;

  // Storing, in add_item.cc.
  bool join_alternative(const GCate& node, PItem* item, Positions positions);

  // Coordination, in conjunction.cc.
  int conjunct_end(const GCate& node, const PItem& item, int position) const;
  void join_conjuncts(const GCate& node, const PItem* left, PItem* item, int position);

  const Grammar& grammar_;
  Chart& chart_;
};

}  // namespace torvane
