#include "deps/deps.h"

#include <algorithm>
#include <cstring>

#include "deps/tree_walk.h"
#include "deps/trees.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

const TypeTag tags::deps = counted_tag<Deps>("Deps*");

Deps::Deps(World& world) : world_(world) {
  take_number();
}

Deps::~Deps() {
  drop_nodes();
  while (DepTree* node = spare_nodes_) {
    spare_nodes_ = node->_chain;
    delete node;
  }
}

void Deps::drop_nodes() {
  while (DepTree* node = _nodes) {
    _nodes = node->_chain;
    node->reuse(nullptr);
    node->_chain = spare_nodes_;
    spare_nodes_ = node;
  }
  _root = nullptr;
  _labelled.clear();
  _next_empty = 0;
}

void Deps::take_number() {
  number_ = ++trees(world_).made;
  _id = std::to_string(number_);
}

void Deps::clear() {
  if (is_clear() && _assertions.empty() && _id == std::to_string(number_)) return;
  eras.renew();
  drop_nodes();
  _words.clear();
  _gaps.clear();
  _assertions.clear();
  _separators.reset();
  _lists.clear();
  _strings.reset();
  take_number();
}

DepTree* Deps::new_node() {
  DepTree* node = spare_nodes_;
  if (node) {
    spare_nodes_ = node->_chain;
  } else {
    node = new DepTree;
  }
  node->_deps = this;
  node->_chain = _nodes;
  return _nodes = node;
}

bool Deps::add_word(const char* text, const char* gap_text) {
  if (_words.empty()) {
    _words.append(nullptr);
    _gaps.append(nullptr);
  }
  int i = _words.count();
  if (i > kMostWords) return false;
  _words.append(_strings.copy(or_empty(text)));
  // Nearly all gaps are one blank or nothing at all.
  bool usual = gap_text[0] == '\0' || std::strcmp(gap_text, " ") == 0;
  _gaps.append(!usual ? _strings.copy(gap_text) : gap_text[0] ? " " : "");
  if (gap_text[0] == '\0' && i > 1) _separators.set(i - 1);
  return true;
}

void Deps::set_words(const LexAnalyzer& lex) {
  for (int i = 1; i < lex.word_count(); ++i)
    if (!add_word(lex.word(i), lex.gap(i))) return;
}

const char* Deps::span_text(int lo, int hi) {
  lo = std::max(lo, 1);
  hi = std::min(hi, _words.count() - 1);
  if (lo > hi) return "";
  if (lo == hi) return or_empty(word(lo));
  for (int i = lo; i <= hi; ++i) {
    if (i > lo && gap(i)[0]) _strings.add_char(' ');
    _strings.add_string(word(i));
  }
  return _strings.finish();
}

DepTree* Deps::find_label(const char* text) const {
  if (!text) return nullptr;
  for (DepTree* node : _labelled)
    if (std::strcmp(node->_label, text) == 0) return node;
  return nullptr;
}

int Deps::find_word(int from, const char* direction, const char* wanted, bool from_empty) const {
  if (!direction || !wanted) return 0;
  // An empty node stands before the word of its index, so that a walk to the right begins with that
  // word.
  int i = from_empty && *direction != '>' ? from - 1 : from;
  for (const char* c = direction; *c; ++c) {
    if (*c != '<' && *c != '>' && *c != '*') {
      messages() << direction << " is not a valid direction\n";
      return 0;
    }
    // Kept: directions-point-back
    int step = *c == '>' ? -1 : 1;
    const char* found;
    do {
      found = word(i += step);
    } while (found && (found[0] != wanted[0] || std::strcmp(found, wanted) != 0));
    if (!found) return 0;
  }
  return *direction ? i : 0;
}

void Deps::assign_labels() {
  for (TPreIterator<DepTree> walk(_root); DepTree* node = walk.next();)
    if (!node->is_holder()) node->label();
}

const Properties& Deps::properties() const {
  return trees(world_).properties;
}

}  // namespace torvane
