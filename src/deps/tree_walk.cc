#include "deps/tree_walk.h"

#include "support/messages.h"

namespace torvane {
namespace {

// An action that moves visited nodes ahead of the walk must not keep it going for ever.
constexpr std::int64_t kResultsPerNode = 16;
constexpr std::int64_t kSpareResults = 64;

std::int64_t count_nodes(RSTree* tree) {
  std::int64_t n = 0;
  for (PreIterator walk(tree); walk.next();) ++n;
  return n;
}

RSTree* sibling_behind(const RSTree* parent, const RSTree::Cell* cell) {
  return cell && cell != parent->tail() ? RSTree::value_of(cell->next) : nullptr;
}

}  // namespace

void RSlistIterator::push(RSTree* node, RSTree::Cell* cell) {
  path_.push_back({node, cell, path_.empty() ? nullptr : sibling_behind(top(), cell)});
}

void RSlistIterator::push_first_child() {
  push(top()->first_child(), top()->head());
}

bool RSlistIterator::step_aside() {
  if (path_.size() < 2) return false;
  Step& step = path_.back();
  const RSTree* parent = path_[path_.size() - 2].node;
  if (!step.cell || step.cell == parent->tail()) return false;
  RSTree::Cell* cell = step.cell->next;
  step = {RSTree::value_of(cell), cell, sibling_behind(parent, cell)};
  return true;
}

void RSlistIterator::stand(Stage stage) {
  stage_ = stage;
  _moved = stage != Stage::visited;
}

RSTree* RSlistIterator::give(Stage stage) {
  if (budget_ >= 0 && budget_-- == 0) {
    messages() << "The tree is edited without end\n";
    end_walk();
    return nullptr;
  }
  stand(stage);
  return top();
}

void RSlistIterator::reset() {
  path_.clear();
  seen_edits_ = RSTree::edits();
  budget_ = -1;
  if (_tree) push(_tree, nullptr);
  stand(Stage::enter);
}

RSTree* RSlistIterator::next() {
  follow_edits();
  if (done()) return nullptr;
  if (path_.size() == 1) {
    if (stage_ == Stage::enter && !top()->empty()) {
      push_first_child();
      return give(Stage::visited);
    }
  } else if (stage_ == Stage::enter || step_aside()) {
    return give(Stage::visited);
  }
  end_walk();
  return nullptr;
}

void RSlistIterator::remove() {
  follow_edits();
  if (done() || stage_ != Stage::visited) return;
  RSTree* node = top();
  if (path_.size() == 1) {
    if (!node->_parent) return;
    node->detach();
    end_walk();
    return;
  }
  // A node that stands twice goes from both places.
  bool more = step_aside();
  while (more && top() == node) more = step_aside();
  RSTree::Cell* cell = path_.back().cell;
  RSTree* behind = more ? top() : nullptr;
  pop();
  node->detach();
  if (behind) push(behind, cell);
  stand(behind ? Stage::enter : Stage::leave);
  seen_edits_ = RSTree::edits();
}

bool RSlistIterator::in_tree(const RSTree* node) const {
  while (node && node != _tree) node = node->_parent;
  return node != nullptr;
}

void RSlistIterator::rebuild_path(RSTree* node) {
  std::vector<RSTree*> up;
  for (RSTree* p = node; p != _tree; p = p->_parent) up.push_back(p);
  path_.resize(1);
  while (!up.empty()) {
    push(up.back(), top()->cell_of(up.back()));
    up.pop_back();
  }
}

void RSlistIterator::skip_lost_nodes() {
  RSTree* behind = nullptr;
  while (!in_tree(top())) {
    behind = path_.back().following;
    pop();
  }
  RSTree* parent = top();
  rebuild_path(parent);
  RSTree::Cell* cell = behind && behind->_parent == parent ? parent->cell_of(behind) : nullptr;
  if (cell) push(behind, cell);
  stand(cell ? Stage::enter : Stage::leave);
}

void RSlistIterator::follow_edits() {
  if (seen_edits_ == RSTree::edits() || done()) return;
  seen_edits_ = RSTree::edits();
  if (budget_ < 0) budget_ = kResultsPerNode * count_nodes(_tree) + kSpareResults;
  if (in_tree(top())) {
    rebuild_path(top());
  } else {
    skip_lost_nodes();
  }
}

void PreIterator::reset() {
  RSlistIterator::reset();
}

RSTree* PreIterator::next() {
  follow_edits();
  if (done()) return nullptr;
  if (stage_ == Stage::enter) return give(Stage::visited);
  if (stage_ == Stage::visited && !top()->empty()) {
    push_first_child();
    return give(Stage::visited);
  }
  while (depth() > 1) {
    if (step_aside()) return give(Stage::visited);
    pop();
  }
  end_walk();
  return nullptr;
}

void PreIterator::skip() {
  follow_edits();
  if (!done() && stage_ == Stage::visited) stand(Stage::leave);
}

void PostIterator::reset() {
  RSlistIterator::reset();
}

RSTree* PostIterator::descend() {
  while (!top()->empty()) push_first_child();
  return give(Stage::visited);
}

RSTree* PostIterator::next() {
  follow_edits();
  if (done()) return nullptr;
  if (stage_ == Stage::enter) return descend();
  if (stage_ == Stage::visited) {
    if (step_aside()) return descend();
    pop();
    if (done()) return nullptr;
  }
  return give(Stage::visited);
}

// Kept: shallow-up-skips-siblings
void PostIterator::skip() {
  follow_edits();
  if (done() || stage_ != Stage::visited) return;
  pop();
  stand(Stage::leave);
}

}  // namespace torvane
