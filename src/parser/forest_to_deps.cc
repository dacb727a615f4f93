// From the forest to the tree that is the result: the best decompositions become nodes, heads above
// their modifiers.
#include <algorithm>
#include <cstring>
#include <string>
#include <unordered_map>
#include <vector>

#include "deps/deps_modifier.h"
#include "deps/tree_walk.h"
#include "lexp/form.h"
#include "parser/cover.h"
#include "parser/parse_forest.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"
#include "support/depth.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {
namespace {

thread_local DepthLimit tree_depth{"The dependency tree is too deep"};
constexpr int kMostTrees = 4 * TorvaneParser::kPoolLimit;

/// Used again for each sentence, with the room that it has.
class TreeBuilder {
 public:
  void build(const Slist<TNode*>& roots, Deps& deps) {
    deps_ = &deps;
    trees_ = 0;
    gaps_.clear();
    words_.clear();
    DepTree* top = nullptr;
    if (!roots.empty() && roots.head() != roots.tail()) top = deps.new_node();
    for (TNode* root : roots) {
      DepTree* tree = make_tree(*root);
      if (top && tree) top->add_child(tree);
      if (!top) top = tree;
    }
    deps.set_root(top);
    if (!gaps_.empty()) add_traces();
  }

 private:
  /// A modifier, and which argument of its head it is.
  struct Part {
    DepTree* node;
    int argument;
    const PItem* merged;
  };
  /// A node that fills a gap: the item has the record of where the gap is.
  struct Gap {
    DepTree* filler;
    const PItem* item;
  };

  DepTree* make_tree(TNode& tnode) {
    DepthGuard guard(tree_depth);
    if (!guard || tnode.best().empty() || !has_room()) return nullptr;
    const std::size_t base = parts_.size();
    DepTree* head = nullptr;
    for (Derivation* entry : tnode.best()) {
      DepTree* node = entry->_child ? make_subtree(*entry) : make_word(*entry->_item);
      if (!node) continue;
      if (entry->_is_head) {
        head = node;
      } else {
        parts_.push_back({node, entry->_link ? entry->_link->_position - 1 : -1, entry->merged});
      }
    }
    if (!head) head = make_empty(*tnode._item);
    for (std::size_t i = base; i < parts_.size(); ++i) take_part(*head, parts_[i], *tnode._item);
    parts_.resize(base);
    unite(*head, *tnode._item->_atts);
    return head;
  }

  // Empty items and the components of lexical items can be shared over and over; a tree of them may
  // be far larger than what it is made from.
  bool has_room() {
    if (++trees_ == kMostTrees) messages() << "The dependency tree is too large\n";
    return trees_ < kMostTrees;
  }

  DepTree* make_subtree(const Derivation& entry) {
    DepTree* node = make_tree(*entry._child);
    if (!node) return nullptr;
    if (entry._link && entry._link->_type) node->set_rel(entry._link->_type);
    node->_weight += entry._local_cost;
    return node;
  }

  void take_part(DepTree& head, const Part& part, const PItem& item) {
    const SyntaxAtts& syn = syntax_atts(*item._atts);
    const AttVecList* args = list_of(*item._atts, syn.args);
    const AttVec* arg = args ? args->at(part.argument) : nullptr;
    if (const char* role = arg ? text_of(*arg, syn.role) : nullptr) part.node->set_rel(role);
    note_gap(head, part);
    head.add_child(part.node);
  }

  // An item hands its trace on to what is merged from it; the gap was filled where the trace is
  // new.
  void note_gap(DepTree& head, const Part& part) {
    const PItem& merged = *part.merged;
    const SyntaxAtts& syn = syntax_atts(*merged._atts);
    const TraceChain* trace = trace_of(*merged._atts, syn.trace);
    if (!trace || trace == trace_of(*merged._head_child->_atts, syn.trace)) return;
    bool filled_by_head = list_of(*merged._modifier->_atts, syn.move) != nullptr;
    gaps_.push_back({filled_by_head ? &head : part.node, &merged});
  }

  DepTree* make_empty(const PItem& item) {
    DepTree* node = deps_->new_node();
    node->_low = item._low;
    node->_high = static_cast<std::int16_t>(item._low - 1);
    node->label();
    return node;
  }

  void unite(DepTree& node, const AttVec& atts) {
    if (!node._atts) node._atts = make_ref<AttVec>(atts.interpreters);
    node._atts->force_unify(atts, nullptr);
  }

  DepTree* make_word(const PItem& item) {
    if (const LexItem* lexitem = lexitem_of(item)) return make_lexical(*lexitem, item);
    DepTree* node = deps_->new_node();
    node->_low = item._low;
    node->_high = item._high;
    if (item._low <= item._high) node->_pos = item._low;
    node->set_cat(node_name(item));
    node->set_root_word("~");
    unite(*node, *item._atts);
    return node;
  }

  static const char* node_name(const PItem& item) {
    const GCate* node = node_of(item);
    return node ? node->_name.c_str() : nullptr;
  }

  const char* category(const LexItem& lexitem, const PItem& item) const {
    return lexitem.category && *lexitem.category ? lexitem.category : node_name(item);
  }

  /// The node of a lexical item, its components below it.
  DepTree* make_lexical(const LexItem& lexitem, const PItem& item) {
    DepthGuard guard(tree_depth);
    if (!guard || !has_room()) return nullptr;
    int low = lexitem.low;
    int high = lexitem.high;
    while (high > low && is_comma(high)) --high;
    if (lexitem.components.empty() && low == high && lexitem.head == low)
      return make_head(lexitem, item, low, high);

    std::vector<DepTree*> parts;
    std::vector<bool> covered(static_cast<std::size_t>(std::max(high - low + 1, 0)));
    auto cover = [&](int from, int to) {
      for (int i = std::max(from, low); i <= std::min(to, high); ++i)
        covered[static_cast<std::size_t>(i - low)] = true;
    };
    DepTree* head = nullptr;
    for (const LexItem* component : lexitem.components) {
      if (component->low < low || component->high > high) break;
      DepTree* node = make_lexical(*component, item);
      if (!node) continue;
      node->set_rel(component->role ? component->role : "lex-dep");
      cover(node->_low, node->_high);
      if (!head && component->head == lexitem.head) {
        head = node;
      } else {
        parts.push_back(node);
      }
    }
    if (head) {
      words_.push_back({head, &lexitem});
    } else {
      head = make_head(lexitem, item, low, high);
    }
    cover(head->_pos, head->_pos);
    for (DepTree* part : parts) head->add_child(part);
    for (int i = low; i <= high; ++i)
      if (!covered[static_cast<std::size_t>(i - low)]) head->add_child(make_leaf(i));
    return head;
  }

  DepTree* make_head(const LexItem& lexitem, const PItem& item, int low, int high) {
    DepTree* node = deps_->new_node();
    node->_low = static_cast<std::int16_t>(low);
    node->_high = static_cast<std::int16_t>(high);
    node->_pos = lexitem.head;
    node->set_cat(category(lexitem, item));
    if (item._high < item._low) {
      node->set_root_word("~");
    } else if (low == item._low && high == item._high) {
      node->set_root_word(lexitem.root);
    } else {
      node->set_root_word(words_joined(low, high).c_str());
    }
    if (const AttVec* vec = lexitem.vec()) unite(*node, *vec);
    words_.push_back({node, &lexitem});
    return node;
  }

  DepTree* make_leaf(int word) {
    DepTree* node = deps_->new_node();
    node->_low = node->_high = node->_pos = static_cast<std::int16_t>(word);
    node->set_rel("lex-mod");
    return node;
  }

  std::string words_joined(int low, int high) const {
    std::string text;
    for (int i = low; i <= high; ++i) {
      if (i > low) text += ' ';
      text += or_empty(deps_->word(i));
    }
    return text;
  }

  bool is_comma(int i) const {
    const char* word = deps_->word(i);
    return word && std::strcmp(word, ",") == 0;
  }

  // From the last node to the first: where a word lacks what the node stands for, an empty node
  // below that word refers to it.
  void add_traces() {
    std::unordered_map<const DepTree*, const LexItem*> lexitems(words_.begin(), words_.end());
    std::vector<DepTree*> nodes = preorder(deps_->_root);
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node)
      for (const Gap& gap : gaps_)
        if (gap.filler == *node) add_traces_of(gap, lexitems);
  }

  void add_traces_of(const Gap& gap,
                     const std::unordered_map<const DepTree*, const LexItem*>& lexitems) {
    DepTree* scope = gap.filler->_parent ? gap.filler->parent() : gap.filler;
    const TraceChain* trace = trace_of(*gap.item->_atts, syntax_atts(*gap.item->_atts).trace);
    for (DepTree* node : preorder(scope)) {
      auto found = lexitems.find(node);
      if (!node->spans_words() || found == lexitems.end()) continue;
      for (const TraceRecord& record : trace->records) {
        auto* item = static_cast<const PItem*>(record.item);
        bool names_it = item && lexitem_of(*item) == found->second;
        if (names_it && record.role && !node->child_by_rel(record.role))
          add_trace(*node, record.role, *gap.filler);
      }
    }
  }

  void add_trace(DepTree& node, const char* role, DepTree& antecedent) {
    DepTree* trace = deps_->new_node();
    trace->_low = static_cast<std::int16_t>(node._high + 1);
    trace->_high = node._high;
    trace->set_rel(role);
    const char* root = antecedent.root_word();
    trace->set_root_word(root && *root ? root : "~");
    trace->antecedent = &antecedent;
    antecedent.label();
    trace->label();
    if (int ante = deps_->properties().id("ante"))
      trace->_props.append({ante, Value::of(&antecedent), 1.0f});
    node.add_child(trace);
  }

  static std::vector<DepTree*> preorder(DepTree* root) {
    std::vector<DepTree*> nodes;
    for (TPreIterator<DepTree> walk(root); DepTree* node = walk.next();) nodes.push_back(node);
    return nodes;
  }

  Deps* deps_ = nullptr;
  int trees_ = 0;
  std::vector<Part> parts_;
  std::vector<Gap> gaps_;
  std::vector<std::pair<const DepTree*, const LexItem*>> words_;
};

void choose_roots(TorvaneParser& parser, ParseForest& forest, Cover& cover) {
  const int n = parser._lex->word_count();
  std::vector<CoverWord>& words = cover.start(n);
  const int text_type = type_id_of<const char*>();
  for (int i = 1; i < n; ++i) {
    const char* text = or_empty(parser.word(i));
    CoverWord& word = words[static_cast<std::size_t>(i)];
    word.starts_punctuation = is_punct(text[0]);
    word.is_punctuation = word.starts_punctuation && text[1] == '\0';
    Value cost = parser._word_weight.eval(parser._lex->text_value(parser.word(i)), text_type);
    word.cost = static_cast<float>(static_cast<int>(cost.number()));
  }
  for (TNode* root : forest._roots) {
    root->is_root = false;
    cover.offer(root, root->_item->_low, root->_item->_high,
                static_cast<float>(root->_root_penalty) + root->_weight);
  }
  for (TNode* chosen : cover.choose()) chosen->is_root = true;
  Slist<TNode*> roots;
  for (TNode* root : forest._roots)
    if (root->is_root) roots.append(root);
  forest._roots = std::move(roots);
}

}  // namespace

void TorvaneParser::parse_to_deps() {
  if (!_lex) return;
  static thread_local Cover cover;
  static thread_local TreeBuilder builder;
  _forest.clear();
  _forest.collect_roots();
  choose_roots(*this, _forest, cover);
  if (!_deps || _deps->shared()) _deps = make_ref<Deps>(_world);
  if (!_deps->is_clear()) _deps->clear();
  _deps->_att_type = _att_type;
  _deps->set_words(*_lex);
  builder.build(_forest._roots, *_deps);
  if (_deps_modifier && _deps->_root) _deps_modifier->modify(_deps->_root);
}

}  // namespace torvane
