#include "parser/forest/traces.h"

#include <unordered_map>

#include "deps/tree_walk.h"
#include "parser/grammar/contract.h"

namespace torvane {
namespace {

const TraceChain* trace_of(const PItem& item) {
  return trace_of(*item._atts, syntax_atts(*item._atts).trace);
}

std::vector<DepTree*> preorder(DepTree* root) {
  std::vector<DepTree*> nodes;
  for (TPreIterator<DepTree> walk(root); DepTree* node = walk.next();) nodes.push_back(node);
  return nodes;
}

void add_trace(Deps& deps, DepTree& node, const char* role, DepTree& antecedent) {
  DepTree* trace = deps.new_node();
  trace->_low = static_cast<std::int16_t>(node._high + 1);
  trace->_high = node._high;
  trace->set_rel(role);
  const char* root = antecedent.root_word();
  trace->set_root_word(root && *root ? root : contract::kNoWord);
  trace->antecedent = &antecedent;
  antecedent.label();
  trace->label();
  if (int ante = deps.properties().id(contract::kAntecedent))
    trace->_props.append({ante, Value::of(&antecedent), 1.0f});
  node.add_child(trace);
}

/// The traces of a filler below one word, as far as the record names the word.
void add_traces_of_word(Deps& deps, DepTree& node, const LexItem& lexitem, const TraceChain& trace,
                        DepTree& filler) {
  for (const TraceRecord& record : trace.records) {
    auto* item = static_cast<const PItem*>(record.item);
    bool names_it = item && lexitem_of(*item) == &lexitem;
    if (names_it && record.role && !node.child_by_rel(record.role.c_str()))
      add_trace(deps, node, record.role.c_str(), filler);
  }
}

}  // namespace

void Traces::clear() {
  gaps_.clear();
  words_.clear();
}

// An item hands its trace on to what is merged from it; the gap was filled where the trace is new.
void Traces::note_merge(DepTree& head, DepTree& modifier, const PItem& merged) {
  const TraceChain* trace = trace_of(merged);
  if (!trace || trace == trace_of(*merged._head_child)) return;
  int move = syntax_atts(*merged._atts).move;
  bool filled_by_head = list_of(*merged._modifier->_atts, move) != nullptr;
  gaps_.push_back({filled_by_head ? &head : &modifier, &merged});
}

// From the last node to the first.
void Traces::add_to(Deps& deps) const {
  if (gaps_.empty()) return;
  const std::unordered_map<const DepTree*, const LexItem*> lexitems(words_.begin(), words_.end());
  std::vector<DepTree*> nodes = preorder(deps._root);
  for (auto node = nodes.rbegin(); node != nodes.rend(); ++node)
    for (const Gap& gap : gaps_) {
      if (gap.filler != *node) continue;
      DepTree* scope = gap.filler->_parent ? gap.filler->parent() : gap.filler;
      for (DepTree* word : preorder(scope)) {
        auto found = lexitems.find(word);
        if (word->spans_words() && found != lexitems.end())
          add_traces_of_word(deps, *word, *found->second, *trace_of(*gap.item), *gap.filler);
      }
    }
}

}  // namespace torvane
