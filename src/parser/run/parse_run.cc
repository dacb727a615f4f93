#include "parser/run/parse_run.h"

#include "parser/run/delivery_depth.h"
#include "support/step_counts.h"

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
  const int position = link.position();
  if (!guard || position < 0) return;
  count(Step::offer);
  const GCate& parent = *link._parent;
  const bool is_plain = !link._is_subclass && position != parent.n_positions();
  if (is_plain && position > parent.head() && item->_low > 0) return send_right(item, link);
  if (!tested(passes(link._modifier_cond, item), Step::refused_modifier)) return;
  if (!is_plain) {
    accept(parent, item, link);
  } else if (position == parent.head()) {
    send_head(item, link);
  } else {
    chart_.park(link, item);
  }
}

/// As the head of a new item.
void ParseRun::send_head(PItem* item, const Link& link) {
  if (chart_.is_exhausted()) return;
  if (!tested(!is_useless(*item, link), Step::foreseen)) return chart_.pass_over_item();
  PItem* copy = chart_.copy_item(item, &link._percolate);
  copy->_link = &link;
  if (tested(passes(link._head_cond, copy), Step::refused_head))
    receive(*link._parent, copy, &link);
  else
    chart_.give_back(copy);
}

/// As a modifier of what stands to the left. Of two conditions that only read, the cheaper one is
/// asked first; else each is asked in its turn.
void ParseRun::send_right(PItem* item, const Link& link) {
  const GCate& parent = *link._parent;
  const Condition* skip = parent.skip_cond(link.position());
  const bool read_only =
      link._modifier_cond.reach() == Reach::input && (!skip || skip->reach() == Reach::input);
  const auto refuses = [&] {
    return !tested(passes(link._modifier_cond, item), Step::refused_modifier);
  };
  if (!read_only && refuses()) return;
  if (!has_head_before(parent, link.position(), *item) && link._no_guest) return;
  if (read_only && refuses()) return;
  receive(parent, item, &link);
}

/// Whether it can be seen beforehand that nothing comes of the item as a head. Most are of this
/// kind. (A node that receives an item also sends on what it has ready.)
bool ParseRun::is_useless(const PItem& item, const Link& link) const {
  const GCate& node = *link._parent;
  const Reach reach = link._head_cond.reach();
  const bool is_quiet = reach == Reach::input || reach == Reach::change;
  if (is_quiet && chart_.ready(node).empty() && lacks_modifier(node, item)) return true;
  return link._head_cond && chart_.foresee(link._head_cond, item, link) == Outlook::null;
}

/// A head may end right before the item.
bool ParseRun::has_head_before(const GCate& node, int position, const PItem& item) const {
  int end = item._low - 1;
  if (skips_word(node, position, end) && !chart_.ends_at(node, end)) --end;
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
