// A parse item: a span of the sentence that can be analysed as a partly or wholly filled node of
// the grammar network, with an attribute vector and a weight. Low weight is better. Items are
// shared: a merged item points at its head child and its modifier, and alternatives with one
// signature hang on one chain.
#pragma once

#include <cstdint>

#include "att/att_vec.h"
#include "lex/chart/lex_item.h"
#include "lexp/lexp.h"
#include "parser/grammar/g_cate.h"
#include "support/step_counts.h"

namespace torvane {

class Chart;
struct ForestChain;

/// Owned by the chart's pool; it lives until the reset of the next sentence, and is then reused.
/// What a forest reads stands in one line of the cache.
struct alignas(64) PItem {
  std::int16_t _low = 0;   ///< first word
  std::int16_t _high = 0;  ///< last word; an empty item has _high = _low - 1
  float _weight = 0;       ///< accumulated
  Ref<AttVec> _atts;       ///< never null, of the parser's type, of this item alone
  PItem* _next = nullptr;  ///< next alternative with the same signature
  /// What this one was projected or extended from; null for a lexical item.
  PItem* _head_child = nullptr;
  /// Merged at this step; null for a pure projection and a lexical item.
  PItem* _modifier = nullptr;
  const Link* _link = nullptr;  ///< made the item; null for a lexical item
  /// What a forest knows of the chain that begins here, while it is at this sentence.
  mutable ForestChain* chain = nullptr;
  mutable std::uint64_t forest = 0;
  /// The next one of the same span in the cell where this one stands.
  PItem* same_span = nullptr;
  /// Where it stands in a cell; null if it does not.
  Chart* stored_in = nullptr;
  /// The node of a lexical (or empty) item, null for any other: a field of its own, so that a node
  /// is never taken for a modifier.
  const GCate* _node = nullptr;
  /// Of those below on the head children, the first with a lexical item, else the last; found when
  /// it is first asked for, so that a long row of empty modifiers is not walked for each of them.
  mutable const PItem* head_word = nullptr;
  int order = 0;  ///< among the items of the sentence, as they were made
};

namespace tags {
inline constexpr TypeTag p_item{.name = "PItem*", .life = Life::sentence, .era_of = [](Word word) {
                                  return reinterpret_cast<const PItem*>(word)->_atts->era.get();
                                }};
}  // namespace tags
template <>
struct ValueTraits<PItem> : TagOf<PItem, tags::p_item> {};

/// The node of any item: its link's parent, else that of its head child, else its own.
const GCate* node_of(const PItem& item);
/// The lexical item of the head word, or null. A lexical item of another sentence reads as empty.
LexItem* lexitem_of(const PItem& item);
/// The position of the head word: down the head children to a lexical item's head, else the start
/// of the last one visited.
int head_position(const PItem& item);
/// Follows the head children while the item has both head child and modifier; the first that lacks
/// one.
PItem* head_child(PItem* item);
/// The head child if the item has both head child and modifier, else the item.
PItem* modifiee(PItem* item);

/// The number of the type "PItem*", for the evaluation of conditions.
int p_item_type();
/// A condition on an item: passes when there is none.
inline bool passes(const ExpPtr& cond, const PItem* item) {
  if (cond) count(Step::condition);
  return !cond || holds(*cond.get(), Value::of(item), p_item_type());
}

/// Two items of one node are alternatives: of one span, and equal in the attributes that the node
/// shows.
bool equivalent(const PItem& a, const PItem& b, const LBitSet& visible);
/// Lets each displaced constituent that a word brings along remember the word it belongs to.
void stamp_roles(PItem& item);
/// Takes element i off the item's `move`: its trace becomes the item's.
void discharge(PItem& item, int i);

}  // namespace torvane
