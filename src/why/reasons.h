// What there is to say of why a word stands where it does in a tree, as plain data.
#pragma once

#include <string>
#include <vector>

namespace torvane {

/// What stood in the way of a link, roughly in the order in which the parser comes to it.
enum class WhyKind {
  // Of the words.
  no_reading,    ///< no reading of a word leads to the category that the link takes
  lost_reading,  ///< a reading that does was dropped before the parse, as by a rule
  wrong_side,    ///< the link takes modifiers from the other side
  // Of the phrases that would have to meet.
  no_item,         ///< the word never became the head of a complete phrase of the category
  not_neighbours,  ///< phrases are there, but no two of them meet: something lies between
  passed,          ///< the position was passed: the head had filled one beyond it
  required_empty,  ///< a position nearer to the head must be filled first, and is empty
  too_far,         ///< farther than the link (or any link) allows
  isolated,        ///< a rule forbids dependencies across an edge that lies between
  // Of the tests of the link.
  condition,  ///< one of the grammar's conditions was false
  attribute,  ///< values that do not unify
  frame,      ///< what the frame of the head asks of its argument, or of those passed over
  moved,      ///< displaced constituents that do not fit
  case_mark,  ///< a noun phrase that has no case
  // Of what came of it.
  incomplete,  ///< it was made, but as a whole could never be complete
  cut,         ///< the sentence had used up all items that it may have
  equal_item,  ///< it was made, and an equal phrase was there before, which went on in its place
  no_result,   ///< it was made, but is in no tree that could be chosen
  elsewhere,   ///< it is in a tree over other words than the trees that were chosen
  dearer,      ///< it is in a tree that was dearer
  chosen,      ///< it is in the tree that was chosen
};
/// Such as `not-neighbours`: for who reads it by program.
const char* name_of(WhyKind kind);

/// Where something stands in a grammar; line 0 if that is not known.
struct WhyPlace {
  std::string file;
  int line = 0;
  std::string form;  ///< what it stands in, such as `(def-modifiers N ...)`; may be empty
};

struct WhyReason {
  WhyKind kind = WhyKind::no_item;
  std::string text;                  ///< a sentence without a full stop
  std::vector<std::string> details;  ///< further ones, from the general to the particular
  WhyPlace place;                    ///< of the condition or link that it is about
};

/// A link of the grammar by which a word of the one category could depend on one of the other.
struct WhyLink {
  std::string relation;  ///< may be empty
  std::string child, parent;
  bool before = false;  ///< its modifiers stand before the head
  int position = 0;     ///< of the head's positions, from 1
  WhyPlace place;
  WhyReason reason;  ///< the first thing that stood in the way where it came furthest
};

/// A reading of a word, as the parser got it or did not get it.
struct WhyReading {
  int first = 0, last = 0;  ///< words that it spans
  std::string root;
  std::string category;    ///< the node of the grammar that it belongs to; empty: none
  std::string attributes;  ///< as `(vform fin) +agr`
  bool lost = false;
  std::string lost_by;  ///< the rule that dropped it; empty: not by a rule
  WhyPlace place;       ///< of that rule
};

/// A row of a table of costs.
struct WhyCost {
  int word = 0;  ///< 0: of the sentence as a whole
  int head = 0;  ///< 0: none, as of a root, or of what a word costs by itself
  std::string relation;
  float cost = 0;
};
struct WhyCosts {
  std::vector<WhyCost> rows;  ///< by word
  float total = 0;
};

}  // namespace torvane
