#include "parser/run/parse_run.h"

#include "parser/run/delivery_depth.h"

namespace torvane {

void ParseRun::receive(const GCate& node, PItem* item, const Link* link) {
  if (!link || link->position() == node.head()) {
    if (node.head() >= 0 && !extend_left(node, item, node.head()) && link) chart_.give_back(item);
  } else if (link->position() > node.head()) {
    attach_right(node, item, *link);
  }
  drain_ready(node);
}

void ParseRun::drain_ready(const GCate& node) {
  Chart::Items& ready = chart_.ready(node);
  while (!ready.empty()) {
    PItem* item = ready.pop_front();
    for (const Link* link : node.out_links()) send(item, *link);
  }
}

void ParseRun::send(PItem* item, const Link& link) {
  DepthGuard guard(delivery_depth);
  if (!guard || link.position() < 0) return;
  if (!passes(link._modifier_cond, item)) return;
  const GCate& parent = *link._parent;
  const int position = link.position();
  if (link._is_subclass) {
    accept(parent, item, link);
  } else if (position == parent.head()) {
    PItem* copy = chart_.copy_item(item, &link._percolate);
    if (!copy) return;
    copy->_link = &link;
    if (passes(link._head_cond, copy))
      receive(parent, copy, &link);
    else
      chart_.give_back(copy);
  } else if (position == parent.n_positions()) {
    accept(parent, item, link);
  } else if (position > parent.head() && item->_low > 0) {
    // Asked in any case: a condition on the word before may do something of its own.
    const bool has_head = has_head_before(parent, position, *item);
    if (has_head || !link._no_guest) receive(parent, item, &link);
  } else {
    chart_.park(link, item);
  }
}

/// A head may end right before the item.
bool ParseRun::has_head_before(const GCate& node, int position, const PItem& item) const {
  int end = item._low - 1;
  if (passes_on_word(node.skip_cond(position), end) && !chart_.ends_at(node, end)) --end;
  return grammar_.skipped(end) || chart_.ends_at(node, end);
}

void ParseRun::accept(const GCate& node, PItem* item, const Link& link) {
  // Kept: light-subclass-is-free
  if (link.weight() > 1.0f) {
    item = chart_.copy_item(item, nullptr);
    if (!item) return;
    item->_link = &link;
    item->_weight += link.weight();
  }
  if (!chart_.store_by_start(node, item)) return;
  chart_.ready(node).append(item);
  drain_ready(node);
}

}  // namespace torvane
