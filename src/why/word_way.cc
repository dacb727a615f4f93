#include "why/word_way.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "lexp/refusal.h"
#include "parser/grammar/syntax_atts.h"
#include "parser/run/parse_run.h"
#include "why/quotes.h"

namespace torvane {
namespace {

/// The argument of a frame that fills a position.
int argument_at(const GCate& node, int position) {
  return node.head() == 0 ? position - 1 : position;
}

}  // namespace

bool has_head(const PItem& item, int word) {
  for (const PItem* one = &item; one; one = one->_next)
    if (head_position(*one) == word) return true;
  return false;
}

WordWay::WordWay(TorvaneParser& parser, int word) : parser_(parser), word_(word) {
  const Grammar& grammar = parser.grammar;
  grammar._lex->for_each_item([&](LexItem* lexitem) {
    const AttVec* vec = lexitem->vec();
    if (lexitem->head != word || !vec || vec->interpreters != grammar._att_type) return;
    const GCate* node = parser.grammar.node_of_vec(*vec);
    PItem* item = node ? parser.chart.make_lexical_item(*node, lexitem) : nullptr;
    if (!item) return;
    stamp_roles(*item);
    starts_.push_back({node, item});
    reach(*node);
  });
  for (std::size_t i = 0; i < nodes_.size(); ++i)
    for (const Link* link : nodes_[i]->out_links())
      if (is_head_link(*link)) reach(*link->_parent);
}

void WordWay::reach(const GCate& node) {
  if (reached_.test(node._number)) return;
  reached_.set(node._number);
  nodes_.push_back(&node);
}

const std::vector<Placed>& WordWay::stored(const GCate& node) const {
  const auto [place, is_new] = stored_.try_emplace(&node);
  std::vector<Placed>& found = place->second;
  if (!is_new || !leads_to(node)) return found;
  for (int end = 0; end < parser_.chart.row_count(); ++end)
    for (int position = 0; position <= node.n_positions(); ++position)
      for (PItem* item : parser_.chart.bucket(node, position, end))
        if (has_head(*item, word_)) found.push_back({item, position});
  return found;
}

const std::vector<Placed>& WordWay::complete(const GCate& node) const {
  const auto [place, is_new] = complete_.try_emplace(&node);
  if (!is_new) return place->second;
  std::vector<Placed> found = stored(node);
  std::erase_if(found, [&](const Placed& placed) {
    if (placed.position == node.n_positions()) return false;  // a subclass's
    return !is_complete(node, *ScratchItem(*placed.item), placed.position);
  });
  return place->second = std::move(found);
}

std::vector<ScratchItem> WordWay::beginnings(const GCate& node) const {
  std::vector<ScratchItem> found;
  for (const Start& start : starts_)
    if (start.node == &node) found.emplace_back(*start.item);
  if (node.head() < 0) return found;
  for (const Link* link : node.links_at(node.head())) {
    if (!link->_child || !leads_to(*link->_child)) continue;
    for (const Placed& placed : complete(*link->_child)) {
      if (!passes(link->_modifier_cond, &*ScratchItem(*placed.item))) continue;
      ScratchItem made(*placed.item);
      made->_atts->clear_all();
      made->_atts->unify(*placed.item->_atts, &link->_percolate, true);
      made->_head_child = placed.item;
      made->_modifier = nullptr;
      made->_link = link;
      made->_node = nullptr;
      made->head_word = nullptr;
      if (passes(link->_head_cond, &*made)) found.push_back(std::move(made));
    }
  }
  return found;
}

WhyReason WordWay::lacking(const GCate& node, const PItem& item, int position) const {
  WhyReason reason;
  reason.kind = WhyKind::incomplete;
  const std::string whose = node._name + " " + quoted(parser_.grammar, item);
  const SyntaxAtts& syn = syntax_atts(*item._atts);
  const int reached =
      item._link && item._link->_parent == &node ? item._link->position() : node.head();
  for (int p = reached - 1; p >= 0 && reached <= node.head(); --p)
    if (node.required(p)) {
      reason.kind = WhyKind::required_empty;
      reason.text = whose + " must have before it: " + fillers(node, p);
      return reason;
    }
  if (node._is_subcat && has_att(*item._atts, syn.args)) {
    for (int p = position; p < node.n_positions(); ++p) {
      const AttVec* arg = argument_of(*item._atts, syn.args, argument_at(node, p + 1));
      if (!arg || is_true(*arg, syn.opt)) continue;
      reason.kind = WhyKind::frame;
      reason.text = whose + " has a frame that still asks for " + fillers(node, p + 1);
      return reason;
    }
  }
  for (int p = std::max(position, 0) + 1; p < node.n_positions(); ++p)
    if (node.required(p)) {
      reason.kind = WhyKind::required_empty;
      reason.text = whose + " must have behind it: " + fillers(node, p);
      return reason;
    }
  if (node._full_cond) {
    ScratchItem scratch(item);
    Refusal refusal;
    if (!node._full_cond->watch(Value::of(&*scratch), p_item_type(), refusal))
      return condition_reason(parser_._world, "the condition on a whole " + whose, refusal,
                              node._full_cond);
  }
  reason.text = whose + " is not whole";
  return reason;
}

bool WordWay::explain_projection(const Link& link, const Placed& placed, WhyReason& reason) const {
  const GCate& node = *link._parent;
  const std::string whose = quoted(parser_.grammar, *placed.item);
  const std::string step = link._child->_name + " " + whose + " to become " + node._name;
  if (link._modifier_cond) {
    Refusal refusal;
    ScratchItem scratch(*placed.item);
    if (!link._modifier_cond->watch(Value::of(&*scratch), p_item_type(), refusal)) {
      reason = condition_reason(parser_._world, "the condition for " + step, refusal,
                                link._modifier_cond);
      return true;
    }
  }
  if (link._is_subclass || node.head() != link.position()) return false;
  ScratchItem made(*placed.item);
  made->_atts->clear_all();
  made->_atts->unify(*placed.item->_atts, &link._percolate, true);
  made->_head_child = placed.item;
  made->_modifier = nullptr;
  made->_link = &link;
  made->_node = nullptr;
  made->head_word = nullptr;
  if (link._head_cond) {
    Refusal refusal;
    if (!link._head_cond->watch(Value::of(&*made), p_item_type(), refusal)) {
      reason =
          condition_reason(parser_._world, "the condition for " + step, refusal, link._head_cond);
      return true;
    }
  }
  reason = lacking(node, *made, node.head());
  return true;
}

bool WordWay::explain(const GCate& node, WhyReason& reason) const {
  const std::vector<Placed> here = stored(node);
  if (!here.empty()) {
    reason = lacking(node, *here.front().item, here.front().position);
    return true;
  }
  for (const Start& start : starts_)
    if (start.node == &node) {
      reason = lacking(node, *start.item, node.head());
      return true;
    }
  for (int position : {node.head(), node.n_positions()}) {
    if (position < 0) continue;
    for (const Link* link : node.links_at(position)) {
      if (!link->_child || !leads_to(*link->_child)) continue;
      for (const Placed& placed : complete(*link->_child))
        if (explain_projection(*link, placed, reason)) return true;
    }
  }
  return false;
}

WhyReason WordWay::wrapped(const GCate& node, WhyReason inner, const char* what) const {
  WhyReason reason;
  reason.kind = WhyKind::no_item;
  reason.text = quoted(parser_.grammar, word_, word_) + what + node._name;
  reason.place = inner.place;
  if (!inner.text.empty()) reason.details.push_back(std::move(inner.text));
  for (std::string& detail : inner.details) reason.details.push_back(std::move(detail));
  return reason;
}

WhyReason WordWay::missing(const GCate& node) const {
  LBitSet seen;
  std::deque<const GCate*> waiting{&node};
  WhyReason inner;
  while (!waiting.empty()) {
    const GCate& one = *waiting.front();
    waiting.pop_front();
    if (seen.test(one._number)) continue;
    seen.set(one._number);
    if (explain(one, inner)) break;
    for (int position : {one.head(), one.n_positions()})
      if (position >= 0)
        for (const Link* link : one.links_at(position))
          if (link->_child && leads_to(*link->_child)) waiting.push_back(link->_child);
  }
  return wrapped(node, std::move(inner), " never became the head of a complete ");
}

WhyReason WordWay::no_beginning(const GCate& node) const {
  WhyReason inner = missing(node);
  inner.text = quoted(parser_.grammar, word_, word_) + " never became the head of " + node._name;
  return inner;
}

}  // namespace torvane
