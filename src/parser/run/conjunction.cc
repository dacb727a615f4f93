// Coordination: an item that has become complete looks to its left for the conjuncts before it.
#include "parser/grammar/contract.h"
#include "parser/run/parse_run.h"
#include "support/depth.h"

namespace torvane {
namespace {

thread_local DepthLimit conjunct_depth{"The parser finds too many conjuncts in a row"};

bool starts_with_comma(const char* word) {
  return word && *word == *contract::kComma;
}

int moves(const PItem& item) {
  const AttVecList* list = list_of(*item._atts, syntax_atts(*item._atts).move);
  return list ? list->length() : -1;
}

/// Only which of the `same` attributes are present is compared, not their values.
// Kept: conjuncts-by-presence
bool match(const GCate& node, const PItem& a, const PItem& b) {
  if (!((a._atts->defined & node._conj_same) == (b._atts->defined & node._conj_same))) return false;
  if (!a._atts->unifiable(*b._atts, &node._conj_consistent)) return false;
  return moves(a) < 0 || moves(b) < 0 || moves(a) == moves(b);
}

}  // namespace

/// Where a conjunct before the item ends: before a conjunction, or before a comma if one stands
/// further on. Below 1 for nowhere.
int ParseRun::conjunct_end(const GCate& node, const PItem& item, int position) const {
  const LexAnalyzer& lex = *grammar_._lex;
  int k = item._low - 1;
  if (k <= 0 || lex.first_conjunctions.test(k + 1)) return 0;
  const bool marked = lex.last_conjunctions.test(k);
  if (marked) --k;
  bool goes_on = marked || is_true(*item._atts, syntax_atts(*item._atts).last_conj);
  if (k > 0 && goes_on && starts_with_comma(grammar_.word(k)) &&
      chart_.bucket(node, position, k).empty())
    return k - 1;
  return marked ? k : 0;
}

void ParseRun::try_conjunction(const GCate& node, PItem* item, int position) {
  if (!grammar_._lex || !node._conj_link) return;
  const int end = conjunct_end(node, *item, position);
  if (end < 1) return;
  DepthGuard guard(conjunct_depth);
  if (!guard) return;
  for (int p = node.n_positions() - 1; p >= 0 && !node.required(p + 1); --p)
    for (int q = end; q > 0; --q) {
      for (PItem* left : chart_.bucket(node, p, q)) join_conjuncts(node, left, item, position);
      bool skips = grammar_.skipped(q) && chart_.bucket(node, p, q).empty();
      if (!skips && !starts_with_comma(grammar_.word(q))) break;
    }
}

void ParseRun::join_conjuncts(const GCate& node, const PItem* left, PItem* item, int position) {
  const SyntaxAtts& syn = syntax_atts(*item->_atts);
  if (is_true(*left->_atts, syn.last_conj) || !match(node, *left, *item)) return;
  PItem* joined = chart_.copy_item(left, nullptr);
  if (!joined) return;
  joined->_high = item->_high;
  joined->_modifier = item;
  joined->_weight += item->_weight;
  joined->_atts->unify(*item->_atts, &node._conj_consistent, 1);
  if (!passes(node._conj_link->_merged_cond, joined)) return;
  joined->_link = node._conj_link;
  store_att(*joined->_atts, syn.last_conj, AttWord{1});
  if (joined->_low > 0 && grammar_._lex->first_conjunctions.test(joined->_low - 1)) --joined->_low;
  add_item(node, joined, position);
}

}  // namespace torvane
