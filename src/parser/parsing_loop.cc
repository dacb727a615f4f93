// How items travel: bottom-up, by recursion through the network, one word after the other. Since
// the words come in the order of their starts, whatever ends before a modifier has been made when
// it arrives, and nothing is ever retried.
#include <algorithm>
#include <cstring>

#include "lexp/form.h"
#include "parser/grammar.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"
#include "support/depth.h"

namespace torvane {
namespace {

// Items that a node takes from a subclass as they are cost nothing, so a circle of subclasses has
// no other end than this.
thread_local DepthLimit delivery_depth{"The sentence is too deep for the parser", 100000};

bool passes_on_word(const ExpPtr* cond, const TorvaneParser& parser, int i) {
  const char* word = cond ? parser.word(i) : nullptr;
  return word && holds(*cond->get(), parser._lex->text_value(word), type_id_of<const char*>());
}

bool is_comma(const char* word) {
  return word && std::strcmp(word, ",") == 0;
}

}  // namespace

void GCate::receive(PItem* item, Link* link) {
  if (!link || link->_position == _head) {
    if (_head >= 0) extend_left(item, _head);
  } else if (link->_position > _head) {
    attach_right(item, link);
  }
  drain_ready();
}

void GCate::drain_ready() {
  while (!_ready.empty()) {
    PItem* item = _ready.pop_front();
    for (Link* link : _out_links) send(item, link);
  }
}

void GCate::send(PItem* item, Link* link) {
  DepthGuard guard(delivery_depth);
  if (!guard || link->_position < 0) return;
  if (!passes(link->_modifier_cond, item)) return;
  GCate* parent = link->_parent;
  int position = link->_position;
  if (link->_is_subclass) {
    parent->accept(item, link);
  } else if (position == parent->_head) {
    PItem* copy = parent->copy_item(item, &link->_percolate);
    if (!copy) return;
    copy->_link = link;
    if (passes(link->_head_cond, copy)) parent->receive(copy, link);
  } else if (position == parent->_n_positions) {
    parent->accept(item, link);
  } else if (position > parent->_head && item->_low > 0) {
    TorvaneParser& parser = *parent->_parser;
    int end = item->_low - 1;
    if (passes_on_word(parent->skip_cond(position), parser, end) && !parent->_ends.test(end)) --end;
    if (link->_no_guest && !parser.skipped(end) && !parent->_ends.test(end)) return;
    parent->receive(item, link);
  } else {
    link->park(item);
  }
}

void GCate::accept(PItem* item, Link* link) {
  // Kept: light-subclass-is-free
  if (link->_weight > 1.0f) {
    item = copy_item(item, nullptr);
    if (!item) return;
    item->_link = link;
    item->_weight += link->_weight;
  }
  Slist<PItem*>* cell = get_bucket(_n_positions, item->_high);
  if (!cell) return;
  Slist<PItem*>::Cell* before;
  cell->find_sorted(
      item->_low, [](const PItem* other, int low) { return low - other->_low; }, before);
  cell->insert_after(before, item);
  _ready.append(item);
  drain_ready();
}

int GCate::extend_left(PItem* item, int position) {
  DepthGuard guard(delivery_depth);
  if (!guard) return 0;
  bool merged = false;
  bool minimal = false;
  int p = bit(_repeat, position) ? position : position - 1;
  for (; p >= 0; --p) {
    PItem* adjunct = nullptr;
    for (int q = item->_low - 1; q >= 0; q = next_left(p, q, item, adjunct)) {
      for (Link* link : _positions[p]) {
        if (item->_high - q > link->_max_dist) continue;
        const Slist<PItem*>& waiting = link->waiting_at(q);
        if (waiting.empty() || !passes(link->_modifiee_cond, item)) continue;
        for (PItem* modifier : waiting) {
          PItem* larger = merge(modifier, item, adjunct, p, link);
          if (!larger) continue;
          if (bit(_minimal, p) && passes(_minimal_cond, modifier)) minimal = true;
          merged = true;
          extend_left(larger, p);
        }
      }
    }
    if (required(p)) break;
  }
  // What could have been a modifier here had to be one.
  if (minimal) return merged;
  if (!any_required(0, position)) add_item(item, _head);
  return merged;
}

int GCate::next_left(int position, int q, PItem* item, PItem*& adjunct) {
  adjunct = nullptr;
  if (q <= 0) return -1;
  TorvaneParser& parser = *_parser;
  if (passes_on_word(skip_cond(position), parser, q)) return q - 1;
  if (parser.skipped(q)) return q - 1;
  if (!bit(_skip_adjunct, position)) return -1;
  GCate* node = parser.adjunct_node();
  if (!node) return -1;

  int end = item->_low - 1;
  bool comma = false;
  for (; end > 1; --end) {
    if (parser.skipped(end)) continue;
    if (!is_comma(parser.word(end))) break;
    comma = true;
  }
  for (PItem* found : node->bucket(node->_n_positions, end)) {
    if (found->_low > q || is_false(*found->_atts, syntax_atts(*found->_atts).guest)) continue;
    int length = found->_high - found->_low;
    // Kept: long-adjunct-ends-search
    if (length >= item->_high - item->_low || length > 4) return -1;
    int before = found->_low - 1;
    if (comma && !is_comma(parser.word(before))) continue;
    adjunct = found;
    return comma ? before - 1 : before;
  }
  return -1;
}

void GCate::attach_right(PItem* modifier, Link* link) {
  const int last = link->_position;
  bool attached = false;
  for (int p = bit(_repeat, last) ? last : last - 1; p >= std::max(_head, 0); --p) {
    PItem* adjunct = nullptr;
    for (int q = modifier->_low - 1; q >= 0; q = next_left(last, q, modifier, adjunct)) {
      for (PItem* head : bucket(p, q)) {
        if (modifier->_low - head->_low > link->_max_dist) continue;
        if (!passes(link->_modifiee_cond, head)) continue;
        PItem* larger = merge(modifier, head, adjunct, p, link);
        if (!larger) continue;
        attached = true;
        add_item(larger, last);
      }
    }
    if (required(p)) break;
  }
  // Kept: headless-start-one-short
  if (attached || _head >= 0 || any_required(0, last - 1)) return;
  // A node without a head starts a new item from a modifier of its first positions.
  if (PItem* first = copy_item(modifier, nullptr)) add_item(first, last);
}

int GCate::add_item(PItem* item, int position) {
  if (position < 0 || item->_high < 0) return 0;
  const SyntaxAtts& syn = syntax_atts(*item->_atts);
  bool ready = true;
  int lower = position;
  int upper = position;
  if (_is_subcat && has_att(*item->_atts, syn.args)) {
    const AttVecList* args = list_of(*item->_atts, syn.args);
    for (int i = position; ready && i <= _n_positions - 2; ++i) {
      const AttVec* arg = args ? args->at(i) : nullptr;
      ready = !arg || is_true(*arg, syn.opt);
    }
  } else {
    ready = !any_required(position + 1, _n_positions) && passes(_full_cond, item);
    while (lower > 0 && !required(lower)) --lower;
    while (upper < _n_positions - 1 && !required(upper + 1)) ++upper;
  }

  for (int p = upper; p >= lower; --p)
    for (PItem* other : bucket(p, item->_high)) {
      if (other == item) return 0;
      if (!equivalent(*other, *item, _visible)) continue;
      if (other->_next) item->_next = other->_next;
      other->_next = item;
      return 0;
    }

  if (ready) {
    _ready.append(item);
    if (!_conj_consistent.is_empty()) try_conjunction(item, position);
  } else if (!_is_subcat && !any_required(position + 1, _n_positions)) {
    // The full condition refused an item that no further position can change.
    return 0;
  }
  Slist<PItem*>* cell = get_bucket(position, item->_high);
  if (!cell) return 0;
  cell->append(item);
  _ends.set(item->_high);
  return 1;
}

}  // namespace torvane
