#include "parser/forest/word_trees.h"

#include <algorithm>
#include <vector>

#include "parser/grammar/contract.h"
#include "support/text.h"

namespace torvane {
namespace {

const char* node_name(const PItem& item) {
  const GCate* node = node_of(item);
  return node ? node->_name.c_str() : nullptr;
}

const char* category(const LexItem& lexitem, const PItem& item) {
  return lexitem.category && *lexitem.category ? lexitem.category : node_name(item);
}

}  // namespace

void WordTrees::unite(DepTree& node, const AttVec& atts) {
  if (!node._atts) node._atts = make_ref<AttVec>(atts.interpreters);
  node._atts->force_unify(atts, nullptr);
}

DepTree* WordTrees::make_empty(const PItem& item) {
  DepTree* node = deps_.new_node();
  node->_low = item._low;
  node->_high = static_cast<std::int16_t>(item._low - 1);
  node->label();
  return node;
}

DepTree* WordTrees::make_word(const PItem& item) {
  if (const LexItem* lexitem = lexitem_of(item)) return make_lexical(*lexitem, item);
  DepTree* node = deps_.new_node();
  node->_low = item._low;
  node->_high = item._high;
  if (item._low <= item._high) node->_pos = item._low;
  node->set_cat(node_name(item));
  node->set_root_word(contract::kNoWord);
  unite(*node, *item._atts);
  return node;
}

/// The components of a lexical item, and which of its words they cover.
struct WordTrees::Parts {
  Parts(int first, int last)
      : low(first), high(last), covered(static_cast<std::size_t>(std::max(last - first + 1, 0))) {}

  void cover(int from, int to) {
    for (int i = std::max(from, low); i <= std::min(to, high); ++i)
      covered[static_cast<std::size_t>(i - low)] = true;
  }
  bool is_covered(int i) const { return covered[static_cast<std::size_t>(i - low)]; }

  int low, high;
  DepTree* head = nullptr;
  std::vector<DepTree*> modifiers;
  std::vector<bool> covered;
};

/// The node of a lexical item, its components below it.
DepTree* WordTrees::make_lexical(const LexItem& lexitem, const PItem& item) {
  DepthGuard guard(tree_depth);
  if (!guard || !budget_.take()) return nullptr;
  const int low = lexitem.low;
  int high = lexitem.high;
  while (high > low && is_comma(deps_.word(high))) --high;
  if (lexitem.components.empty() && low == high && lexitem.head == low)
    return make_head(lexitem, item, low, high);

  Parts parts(low, high);
  make_components(lexitem, item, parts);
  if (parts.head) {
    traces_.note_word(*parts.head, lexitem);
  } else {
    parts.head = make_head(lexitem, item, low, high);
  }
  parts.cover(parts.head->_pos, parts.head->_pos);
  for (DepTree* modifier : parts.modifiers) parts.head->add_child(modifier);
  for (int i = low; i <= high; ++i)
    if (!parts.is_covered(i)) parts.head->add_child(make_leaf(i));
  return parts.head;
}

void WordTrees::make_components(const LexItem& lexitem, const PItem& item, Parts& parts) {
  for (const LexItem* component : lexitem.components) {
    if (component->low < parts.low || component->high > parts.high) break;
    DepTree* node = make_lexical(*component, item);
    if (!node) continue;
    node->set_rel(component->role ? component->role : contract::kLexicalPart);
    parts.cover(node->_low, node->_high);
    if (!parts.head && component->head == lexitem.head) {
      parts.head = node;
    } else {
      parts.modifiers.push_back(node);
    }
  }
}

DepTree* WordTrees::make_head(const LexItem& lexitem, const PItem& item, int low, int high) {
  DepTree* node = deps_.new_node();
  node->_low = static_cast<std::int16_t>(low);
  node->_high = static_cast<std::int16_t>(high);
  node->_pos = lexitem.head;
  node->set_cat(category(lexitem, item));
  if (item._high < item._low) {
    node->set_root_word(contract::kNoWord);
  } else if (low == item._low && high == item._high) {
    node->set_root_word(lexitem.root);
  } else {
    node->set_root_word(words_joined(low, high).c_str());
  }
  if (const AttVec* vec = lexitem.vec()) unite(*node, *vec);
  traces_.note_word(*node, lexitem);
  return node;
}

DepTree* WordTrees::make_leaf(int word) {
  DepTree* node = deps_.new_node();
  node->_low = node->_high = node->_pos = static_cast<std::int16_t>(word);
  node->set_rel(contract::kLexicalWord);
  return node;
}

std::string WordTrees::words_joined(int low, int high) const {
  std::string text;
  for (int i = low; i <= high; ++i) {
    if (i > low) text += ' ';
    text += or_empty(deps_.word(i));
  }
  return text;
}

}  // namespace torvane
