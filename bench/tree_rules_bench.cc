// Tree rules: a long list on a sentence's tree, patterns by fan-out and depth, and how the work
// grows with the nodes.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/allocations.h"
#include "bench/session.h"
#include "deps/deps.h"
#include "shell/named_objects.h"
#include "treerules/tree_modifier.h"

namespace torvane {
namespace {

/// A tree of `n` nodes, each with up to `fan_out` children, in the order of their making.
Ref<Deps> make_tree(int n, int fan_out) {
  Ref<Deps> deps = make_ref<Deps>(session());
  std::vector<DepTree*> nodes;
  for (int i = 1; i <= n; ++i) {
    deps->add_word("word", " ");
    DepTree* node = deps->new_node();
    node->_low = node->_high = node->_pos = static_cast<std::int16_t>(i);
    node->set_cat(i % 3 == 0 ? "V" : i % 3 == 1 ? "NN" : "Det");
    node->set_rel(i % 2 == 0 ? "even" : "odd");
    if (i > 1) nodes[static_cast<std::size_t>((i - 2) / fan_out)]->append(node);
    nodes.push_back(node);
  }
  deps->set_root(nodes.front());
  return deps;
}

TreeModifier* define(const std::string& name, const std::string& rules) {
  run_forms(
      ("(clear-tree-rules " + name + ") (def-tree-rules " + name + ' ' + rules + ')').c_str());
  return session().objects.find_as<TreeModifier>(name.c_str(), "TreeModifier", true);
}

void apply(benchmark::State& state, TreeModifier* rules, Deps& deps) {
  apply_rules(rules, deps._root);
  std::uint64_t before = allocation_count();
  for (auto _ : state) apply_rules(rules, deps._root);
  state.counters["allocations"] =
      static_cast<double>(allocation_count() - before) / static_cast<double>(state.iterations());
  state.SetItemsProcessed(state.iterations() * (deps.word_count() - 1));
}

/// 100 rules of the usual kinds, of which a few match; none of them edits.
std::string rule_list() {
  std::string text;
  for (int i = 0; i < 20; ++i) {
    std::string n = std::to_string(i);
    text += " (up (node (cat (str= C" + n + "))) (detach-node (match)))";
    text +=
        " (up (tree (cat (str= V)) (node x (rel (str= r" + n + ")))) (set-rel (match 1) (str a)))";
    text += " (down (path (node (cat (str= V))) (node (cat (str= NN))) (node (rel (str= r" + n +
            ")))) (append-node (match 1 1) (match)))";
    text +=
        " (down shallow (node (exist-child (cat (in (x" + n + " y z))))) (detach-node (match)))";
    text += " (flat ((node (rel (str= r" + n + "))) (node (cat (str= V)))) (nil))";
  }
  return text;
}

void tree_rule_list(benchmark::State& state) {
  Ref<Deps> deps = make_tree(static_cast<int>(state.range(0)), 3);
  apply(state, define("bench-list", rule_list()), *deps);
}
BENCHMARK(tree_rule_list)->ArgName("nodes")->Arg(10)->Arg(40)->Arg(160)->Arg(640)->Arg(2560);

void tree_pattern(benchmark::State& state, const char* rule) {
  Ref<Deps> deps = make_tree(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  apply(state, define("bench-pattern", rule), *deps);
}
#define PATTERN(kind, text)                   \
  BENCHMARK_CAPTURE(tree_pattern, kind, text) \
      ->ArgNames({"nodes", "fan_out"})        \
      ->Args({1000, 1})                       \
      ->Args({1000, 3})                       \
      ->Args({1000, 30})                      \
      ->Args({1000, 1000})
PATTERN(node, "(up (node (cat (str= V))) (nil))");
PATTERN(tree, "(up (tree (t) (node (cat (str= V))) (node (cat (str= NN)))) (nil))");
PATTERN(treeq, "(up (treeq (t) (node (cat (str= V))) (node (cat (str= NN)))) (nil))");
PATTERN(path, "(up (path (node (t)) (node (cat (str= V))) (node (cat (str= NN)))) (nil))");
PATTERN(flat, "(flat ((node (cat (str= V))) ? (node (cat (str= NN))) :max (node (t))) (nil))");
PATTERN(exist_child, "(up (node (exist-child (cat (str= X)))) (nil))");
#undef PATTERN

/// Each rule moves the last child of every node to its front.
void tree_edits(benchmark::State& state) {
  Ref<Deps> deps = make_tree(static_cast<int>(state.range(0)), 3);
  apply(
      state,
      define("bench-edit", "(down (tree (t) (node (last-child))) (insert-node (match 1) (match)))"),
      *deps);
}
BENCHMARK(tree_edits)->ArgName("nodes")->Arg(40)->Arg(160)->Arg(640)->Arg(2560);

}  // namespace
}  // namespace torvane
