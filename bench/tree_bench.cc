// Dependency trees: their text read and written, their bytes packed and unpacked, expressions on
// their nodes and the printing of chunks; by size, for what it costs a node.
#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

#include "bench/session.h"
#include "deps/chunks.h"
#include "deps/deps.h"
#include "lexp/form.h"

namespace torvane {
namespace {

/// A tree of `words` nodes in which every fifth word heads four, and the heads hang on each other.
std::string tree_text(int words) {
  std::string text = "(:id bench\n";
  for (int i = 1; i <= words; ++i) {
    int head = i % 5 == 3 ? i + 5 : (i - 1) / 5 * 5 + 3;
    std::string n = std::to_string(i);
    text += n + "\t(word" + std::to_string(i % 100) + "\t~ N\t";
    text += head > words ? "*" : std::to_string(head);
    text += "\tmod (w 0.5))\n";
  }
  return text + ")\n";
}

Ref<Deps> tree_of(int words) {
  Ref<Deps> deps = make_ref<Deps>(session());
  IRSlistReader reader(false);
  deps->read(*reader.start_string(tree_text(words).c_str()));
  return deps;
}

void count_nodes(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
#define BY_SIZE(name) BENCHMARK(name)->Arg(20)->Arg(200)->Arg(2000)->Arg(20000)

void read_tree(benchmark::State& state) {
  std::string text = tree_text(static_cast<int>(state.range(0)));
  IRSlistReader reader(false);
  Deps deps(session());
  for (auto _ : state) deps.read(*reader.start_string(text.c_str()));
  count_nodes(state);
}
BY_SIZE(read_tree);

void write_tree(benchmark::State& state) {
  Ref<Deps> deps = tree_of(static_cast<int>(state.range(0)));
  std::ostringstream out;
  for (auto _ : state) {
    out.seekp(0);
    deps->print(out);
  }
  count_nodes(state);
}
BY_SIZE(write_tree);

void pack_tree(benchmark::State& state) {
  Ref<Deps> deps = tree_of(static_cast<int>(state.range(0)));
  StrBufs bytes(4096);
  for (auto _ : state) {
    bytes.reset();
    deps->pack(bytes);
    bytes.finish();
  }
  count_nodes(state);
}
BY_SIZE(pack_tree);

void unpack_tree(benchmark::State& state) {
  Ref<Deps> deps = tree_of(static_cast<int>(state.range(0)));
  StrBufs bytes(4096);
  deps->pack(bytes);
  Deps copy(session());
  for (auto _ : state) {
    const char* p = bytes.object();
    benchmark::DoNotOptimize(copy.unpack(p, bytes.object() + bytes.object_size()));
  }
  count_nodes(state);
}
BY_SIZE(unpack_tree);

/// An expression that looks at every node.
void visit_nodes(benchmark::State& state, const char* condition) {
  Ref<Deps> deps = tree_of(static_cast<int>(state.range(0)));
  std::string text = std::string("(find-first-node ") + condition + ")";
  auto exp = LExp::get_exp_from_text(session(), text.c_str());
  int type = type_id_of<DepTree>();
  for (auto _ : state) benchmark::DoNotOptimize(exp->eval(Value::of(deps->_root), type));
  count_nodes(state);
}
BENCHMARK_CAPTURE(visit_nodes, cat, "(comp (cat) (str= V))")->Arg(20)->Arg(20000);
BENCHMARK_CAPTURE(visit_nodes, word, "(comp (node2word) (str= none))")->Arg(20)->Arg(20000);
BENCHMARK_CAPTURE(visit_nodes, dep_name, "(comp (dep-name) (str= none))")->Arg(20)->Arg(20000);

void chunks(benchmark::State& state) {
  Ref<Deps> deps = tree_of(static_cast<int>(state.range(0)));
  std::ostringstream out;
  for (auto _ : state) {
    out.seekp(0);
    print_chunks(out, *deps->_root);
  }
  count_nodes(state);
}
BY_SIZE(chunks);

}  // namespace
}  // namespace torvane
