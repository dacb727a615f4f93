// How far a word came on its way through the network: which categories it can be the head of, the
// phrases that it heads, and why it heads none of some category.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "parser/torvane_parser.h"
#include "why/reasons.h"
#include "why/scratch_item.h"

namespace torvane {

/// A stored item, or one like it, with the position that it has filled the others up to.
struct Placed {
  PItem* item;
  int position;
};

/// The item, or one that it stands for, has that word as its head.
bool has_head(const PItem& item, int word);
/// The position belongs to the head, or the link hands on what its child has as it is.
inline bool is_head_link(const Link& link) {
  return link._is_subclass || link.position() == link._parent->head() ||
         link.position() == link._parent->n_positions();
}

class WordWay {
 public:
  /// Of a parser with a sentence that was parsed.
  WordWay(TorvaneParser& parser, int word);

  int word() const { return word_; }
  /// Some reading of the word leads to the category.
  bool leads_to(const GCate& node) const { return reached_.test(node._number); }
  /// All such categories, those of readings first.
  const std::vector<const GCate*>& nodes() const { return nodes_; }
  /// The stored phrases of a category that have the word as head; those that are complete.
  const std::vector<Placed>& stored(const GCate& node) const;
  const std::vector<Placed>& complete(const GCate& node) const;
  /// What the category's phrases with that head begin from, before any modifier.
  std::vector<ScratchItem> beginnings(const GCate& node) const;
  /// Why no such phrase is complete (there is none); or, with `begins`, why none begins.
  WhyReason missing(const GCate& node) const;
  WhyReason no_beginning(const GCate& node) const;

 private:
  struct Start {
    const GCate* node;
    PItem* item;
  };
  void reach(const GCate& node);
  /// Why nothing begins, or what begins does not become complete; nothing known: false.
  bool explain(const GCate& node, WhyReason& reason) const;
  bool explain_projection(const Link& link, const Placed& placed, WhyReason& reason) const;
  WhyReason lacking(const GCate& node, const PItem& item, int position) const;
  WhyReason wrapped(const GCate& node, WhyReason inner, const char* what) const;

  TorvaneParser& parser_;
  int word_;
  std::vector<Start> starts_;
  std::vector<const GCate*> nodes_;
  LBitSet reached_;
  mutable std::unordered_map<const GCate*, std::vector<Placed>> stored_, complete_;  // found so far
};

}  // namespace torvane
