// The function by which a lexical rule completes an item from the entry of its root.
#include "lex/chart/lex_analyzer.h"
#include "lex/patterns/match.h"
#include "lexp/form.h"
#include "parser/forms/offers.h"
#include "parser/grammar/syntax_atts.h"

namespace torvane {
namespace {

/// Fills in what the root's own entry says of a sense of the item's category that refers to
/// another.
LexItem* ref_entry(Match*, LexItem* item) {
  if (!item || !item->root || !item->analyzer || !item->vec()) return item;
  const LexEntry* entry = item->analyzer->lexicon()->get_entry(item->root);
  if (!entry) return item;
  AttVec& vec = *item->vec();
  for (const Meaning* meaning : entry->meanings()) {
    const AVMeaning* sense = as_avm(meaning);
    if (!sense) continue;
    const SyntaxAtts& syn = syntax_atts(*sense->vec);
    if (!has_att(*sense->vec, syn.ref)) continue;
    if (value_of(*sense->vec, syn.cat) == value_of(vec, syn.cat))
      vec.unify(*sense->vec, nullptr, 1);
  }
  return item;
}

constexpr Prototype kRefEntryForms[] = {
    function<ref_entry>("ref-entry",
                        "`(ref-entry item)` copies the meanings of the root's entry into the item"),
};

}  // namespace

constinit const Offer offers::ref_entry{kRefEntryForms};

}  // namespace torvane
