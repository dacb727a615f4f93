#include "deps/dep_tree.h"

#include <cstring>
#include <string>

#include "att/contract.h"
#include "deps/deps.h"
#include "support/messages.h"

namespace torvane {

Era* DepTree::era() const {
  return _deps ? _deps->eras.now() : nullptr;
}

void DepTree::add_child(DepTree* child) {
  if (!can_take(child)) {
    messages() << "RSTree::append error.\n";
    return;
  }
  if (child->_parent) child->detach();
  auto stands_behind = [child](const RSTree* node) {
    const auto& other = *static_cast<const DepTree*>(node);
    return child->_pos >= 0 && other._pos >= 0 ? other._pos > child->_pos
                                               : other._low > child->_high;
  };
  insert_behind(place_before(stands_behind), child);
}

void DepTree::set_rel(const char* text) {
  _rel = _deps->_strings.copy(text);
}

void DepTree::set_cat(const char* text) {
  _cat = _deps->_strings.copy(text);
}

void DepTree::set_root_word(const char* text) {
  _root_word = _deps->_strings.copy(text);
}

void DepTree::set_label(const char* text) {
  if (!_label && text) _deps->_labelled.append(this);
  if (_label && !text) _deps->_labelled.remove(this);
  _label = _deps->_strings.copy(text);
}

const char* DepTree::root_word() const {
  if (!_root_word) return _pos > 0 ? word() : nullptr;
  return std::strcmp(_root_word, contract::kNoWord) == 0 ? _deps->span_text(_low, _high)
                                                         : _root_word;
}

const char* DepTree::label() {
  if (!_label) {
    std::string text = _pos > 0 ? std::to_string(_pos)
                                : contract::kEmptyLabel + std::to_string(_deps->_next_empty++);
    set_label(text.c_str());
  }
  return _label;
}

const char* DepTree::word() const {
  return _deps->word(_pos);
}

DepTree* DepTree::child_by_rel(const char* rel) const {
  for (RSTree* child : *this) {
    auto* node = static_cast<DepTree*>(child);
    if (rel && node->_rel && std::strcmp(node->_rel, rel) == 0) return node;
  }
  return nullptr;
}

void DepTree::reuse(Deps* owner) {
  unlink_all();
  _deps = owner;
  _low = _high = _pos = -1;
  _cat = _rel = _root_word = _label = nullptr;
  _atts.reset();
  _weight = 0;
  _props.clear();
  antecedent = nullptr;
}

}  // namespace torvane
