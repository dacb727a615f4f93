#include "parser/chart/p_item.h"

#include "lexp/form.h"
#include "parser/grammar/syntax_atts.h"

namespace torvane {
namespace {

const PItem& head_word_below(const PItem& item) {
  if (!item.head_word) {
    const PItem* p = item._head_child;
    while (p->_head_child && !lexitem_of(*p)) p = p->head_word ? p->head_word : p->_head_child;
    item.head_word = p;
  }
  return *item.head_word;
}

}  // namespace

const GCate* node_of(const PItem& item) {
  for (const PItem* p = &item;; p = p->_head_child) {
    if (p->_link) return p->_link->_parent;
    if (!p->_head_child) return p->_node;
  }
}

LexItem* lexitem_of(const PItem& item) {
  return reinterpret_cast<LexItem*>(value_of(*item._atts, syntax_atts(*item._atts).lexitem));
}

int head_position(const PItem& item) {
  const LexItem* lexitem = lexitem_of(item);
  if (lexitem) return lexitem->head;
  if (!item._head_child) return item._low;
  const PItem& word = head_word_below(item);
  lexitem = lexitem_of(word);
  return lexitem ? lexitem->head : word._low;
}

PItem* head_child(PItem* item) {
  while (item->_head_child && item->_modifier) item = item->_head_child;
  return item;
}

PItem* modifiee(PItem* item) {
  return item->_head_child && item->_modifier ? item->_head_child : item;
}

int p_item_type() {
  return type_id_of<PItem>();
}

bool equivalent(const PItem& a, const PItem& b, const LBitSet& visible) {
  return a._low == b._low && a._high == b._high && a._atts->equals(*b._atts, visible);
}

void stamp_roles(PItem& item) {
  const SyntaxAtts& syn = syntax_atts(*item._atts);
  AttVecList* move = own_list(*item._atts, syn.move);
  if (!move) return;
  for (int i = 0; i < move->length(); ++i) {
    AttVec* element = move->own(i);
    if (!element || !readable(*element, syn.trace)) continue;
    Ref<TraceChain> trace = TraceChain::make();
    trace->records.append({text_of(*element, syn.role), &item});
    store_att(*element, syn.trace, trace.get());
    remove_att(*element, syn.role);
  }
}

void discharge(PItem& item, int i) {
  const SyntaxAtts& syn = syntax_atts(*item._atts);
  AttVecList* move = own_list(*item._atts, syn.move);
  if (!move) return;
  if (i < 0 || i >= move->length()) {
    report_bounds(i, move->length());
    return;
  }
  if (const AttVec* element = move->at(i); element && has_att(*element, syn.trace)) {
    store_att(*item._atts, syn.trace, trace_of(*element, syn.trace));
  } else {
    remove_att(*item._atts, syn.trace);
  }
  move->vecs.remove_at(i);
  if (move->length() == 0) remove_att(*item._atts, syn.move);
}

}  // namespace torvane
