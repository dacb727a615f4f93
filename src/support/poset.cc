#include "support/poset.h"

#include <cstring>

#include "support/messages.h"

namespace torvane {

int Poset::compare_texts(Value a, Value b) {
  int order = std::strcmp(static_cast<const char*>(a), static_cast<const char*>(b));
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

PosetNode* Poset::find_or_add(Value value, bool add) {
  for (auto& node : nodes_)
    if (compare_(value, key_of_ ? key_of_(*node) : node->value) == 0) return node.get();
  if (!add) return nullptr;
  auto& node = nodes_.append(std::make_unique<PosetNode>());
  node->index = nodes_.count() - 1;
  node->reach.set(node->index);
  node->poset = this;
  node->value = value;
  if (compare_ == compare_texts) {
    node->text = static_cast<const char*>(value);
    node->value = node->text.c_str();
  }
  return node.get();
}

bool Poset::related(Value value, const PosetNode& node) const {
  int order = compare_(value, key_of_ ? key_of_(node) : node.value);
  return order == 1 || order == -1;
}

PosetNode* Poset::insert(Value value, Relation relation) {
  if (PosetNode* node = find_or_add(value, false)) return node;
  auto stands_below = [&](const PosetNode* other) {
    return related(value, *other) && relation(value, other->value) == -1;
  };
  auto stands_above = [&](const PosetNode* other) {
    return related(value, *other) && relation(value, other->value) != -1;
  };
  // The closest ones are those whose own neighbour on this side is not also beyond the new node.
  Slist<PosetNode*> upper;
  Slist<PosetNode*> lower;
  for (PosetIterator it(*this); it.current(); it.next()) {
    PosetNode* other = it.current();
    bool closest = true;
    if (stands_below(other)) {
      for (PosetNode* between : other->below) closest = closest && !stands_below(between);
      if (closest) upper.append(other);
    } else if (stands_above(other)) {
      for (PosetNode* between : other->above) closest = closest && !stands_above(between);
      if (closest) lower.append(other);
    }
  }
  PosetNode* node = find_or_add(value, true);
  for (PosetNode* other : lower) add_edge(node, other);
  for (PosetNode* other : upper) add_edge(other, node);
  return node;
}

void Poset::add_edge(PosetNode* a, PosetNode* b) {
  if (a->reach.test(b->index)) return;
  reach_more(a, b->reach);
  a->below.append(b);
  b->above.append(a);
}

// A node that reaches it all already has nodes above that do so too.
void Poset::reach_more(PosetNode* node, const LBitSet& more) {
  if (more.subset_of(node->reach)) return;
  node->reach |= more;
  for (PosetNode* upper : node->above) reach_more(upper, more);
}

PosetIterator::PosetIterator(Poset& poset) : pending_(static_cast<std::size_t>(poset.count())) {
  for (int i = 0; i < poset.count(); ++i) {
    int below = poset.node(i)->below.length();
    pending_[static_cast<std::size_t>(i)] = below;
    if (below == 0) ready_.append(poset.node(i));
  }
  current_ = ready_.front();
}

bool PosetIterator::pop(const char* operation) {
  if (!current_) return false;
  if (ready_.pop_front() != current_)
    // Kept: logic-error-ocurred
    messages() << "PosetIterator::" << operation << "(): a logic error ocurred\n";
  return true;
}

void PosetIterator::next() {
  PosetNode* visited = current_;
  if (!pop("next")) return;
  skipped_ = false;
  for (PosetNode* upper : visited->above)
    if (--pending_[static_cast<std::size_t>(upper->index)] == 0) ready_.append(upper);
  current_ = ready_.front();
}

void PosetIterator::skip() {
  if (!pop("skip")) return;
  skipped_ = true;
  current_ = ready_.front();
}

}  // namespace torvane
