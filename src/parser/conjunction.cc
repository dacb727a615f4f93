// Coordination: an item that has become complete looks to its left for the conjuncts before it.
#include "parser/grammar.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"
#include "support/depth.h"

namespace torvane {
namespace {

thread_local DepthLimit conjunct_depth{"The parser finds too many conjuncts in a row"};

bool starts_with_comma(const char* word) {
  return word && *word == ',';
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

void GCate::try_conjunction(PItem* item, int position) {
  const LexAnalyzer* lex = _parser->_lex;
  int k = item->_low - 1;
  if (!lex || !_conj_link || k <= 0 || lex->first_conjunctions.test(k + 1)) return;
  bool marked = lex->last_conjunctions.test(k);
  if (marked) --k;
  bool goes_on = is_true(*item->_atts, syntax_atts(*item->_atts).last_conj) || k < item->_low - 1;
  if (k > 0 && goes_on && starts_with_comma(_parser->word(k)) && bucket(position, k).empty()) {
    --k;
  } else if (!marked) {
    return;
  }
  if (k < 1) return;

  DepthGuard guard(conjunct_depth);
  if (!guard) return;
  for (int p = _n_positions - 1; p >= 0 && !required(p + 1); --p)
    for (int q = k; q > 0; --q) {
      for (PItem* left : bucket(p, q)) join_conjuncts(left, item, position);
      bool skips = _parser->skipped(q) && bucket(p, q).empty();
      if (!skips && !starts_with_comma(_parser->word(q))) break;
    }
}

void GCate::join_conjuncts(PItem* left, PItem* item, int position) {
  const SyntaxAtts& syn = syntax_atts(*item->_atts);
  if (is_true(*left->_atts, syn.last_conj) || !match(*this, *left, *item)) return;
  PItem* joined = copy_item(left, nullptr);
  if (!joined) return;
  joined->_high = item->_high;
  joined->_modifier = item;
  joined->_weight += item->_weight;
  joined->_atts->unify(*item->_atts, &_conj_consistent, 1);
  if (!passes(_conj_link->_merged_cond, joined)) return;
  joined->_link = _conj_link;
  store_att(*joined->_atts, syn.last_conj, AttWord{1});
  if (joined->_low > 0 && _parser->_lex->first_conjunctions.test(joined->_low - 1)) --joined->_low;
  add_item(joined, position);
}

}  // namespace torvane
