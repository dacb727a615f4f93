// Parsing with the shipped grammar by sentence length, the allocations that it makes once warm, the
// reading of a full pool, and the reset of a parser that was not used.
#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

#include "bench/allocations.h"
#include "bench/session.h"
#include "parser/parsing.h"
#include "parser/torvane_parser.h"

namespace torvane {
namespace {

struct Sentence {
  int words;
  const char* text;
};
constexpr Sentence kSentences[] = {
    {5, "The cat chased the dog"},
    {10, "The old man gave his friend a book about the war"},
    {20,
     "The teacher who lives near the river said that the children have played in the garden with a "
     "small dog"},
    {40,
     "The teacher who lives near the river said that the children have played in the garden with a "
     "small dog "
     "and the man who bought the old house told his friends that they could visit the city in the "
     "summer"},
};

void parse(benchmark::State& state, const Sentence& sentence) {
  TorvaneParser* parser = current_parser(english());
  for (int i = 0; i < 3; ++i) parser->parse(sentence.text, nullptr);
  for (auto _ : state) parser->parse(sentence.text, nullptr);
  state.SetItemsProcessed(state.iterations());
}

/// The loop alone: the analyser's work and the conversion to a tree are outside.
void loop_allocations(benchmark::State& state, const Sentence& sentence) {
  TorvaneParser* parser = current_parser(english());
  parser->_constituency = true;
  std::uint64_t allocations = 0;
  for (int i = 0; i < 3; ++i) parser->parse(sentence.text, nullptr);
  for (auto _ : state) {
    state.PauseTiming();
    parser->reset();
    parser->feed(sentence.text, nullptr);
    state.ResumeTiming();
    std::uint64_t before = allocation_count();
    parser->parse_items();
    allocations += allocation_count() - before;
  }
  parser->_constituency = false;
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(allocations), benchmark::Counter::kAvgIterations);
}

const bool registered = [] {
  for (const Sentence& s : kSentences) {
    std::string length = std::to_string(s.words);
    benchmark::RegisterBenchmark(("parse/" + length).c_str(), [&s](benchmark::State& state) {
      parse(state, s);
    })->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(("parsing_loop/" + length).c_str(), [&s](benchmark::State& state) {
      loop_allocations(state, s);
    })->Unit(benchmark::kMicrosecond);
  }
  return true;
}();

/// A full pool of items, in the shapes that empty modifiers give it.
enum Shape { kSameHead, kEachOnTheLast, kNested, kShortChains };

std::vector<PItem> full_pool(Shape shape, const Link& link) {
  std::vector<PItem> items(ItemPool::kPoolLimit);
  const int last = static_cast<int>(items.size()) - 1;
  for (int i = 0; i <= last; ++i) {
    PItem& item = items[i];
    item.order = i;
    item._node = link._parent;
    if (i < 2) continue;
    item._link = &link;
    item._head_child = shape == kSameHead ? &items[0] : &items[i - 1];
    item._modifier = &items[1];
    if (shape == kNested) std::swap(item._head_child, item._modifier);
  }
  // The newest stands right behind the first; made from the inside out, the last one is the first.
  std::vector<int> chain{shape == kEachOnTheLast ? last : 0};
  if (shape == kEachOnTheLast) chain.push_back(0);
  for (int i = 2; i < last; ++i) chain.push_back(shape == kSameHead ? last + 2 - i : i);
  if (shape == kSameHead || shape == kEachOnTheLast)
    for (std::size_t i = 1; i < chain.size(); ++i) items[chain[i - 1]]._next = &items[chain[i]];
  if (shape == kShortChains)
    for (int i = 4; i + 2 <= last; i += 4) items[i]._next = &items[i + 2];
  return items;
}

void forest_full_pool(benchmark::State& state) {
  const TorvaneParser* parser = current_parser(english());
  auto shape = static_cast<Shape>(state.range(0));
  std::vector<PItem> items = full_pool(shape, parser->grammar.empty_link());
  PItem* top = shape == kSameHead ? &items.front() : &items.back();
  ParseForest forest(nullptr);
  for (auto _ : state) {
    forest.clear();
    benchmark::DoNotOptimize(forest.get_tnode(top)->best().empty());
  }
}
BENCHMARK(forest_full_pool)->DenseRange(kSameHead, kShortChains)->Unit(benchmark::kMillisecond);

void reset_idle(benchmark::State& state) {
  const TorvaneParser* loaded = current_parser(english());
  TorvaneParser parser(session(), 1997);
  parser.grammar._lex = loaded->grammar._lex;
  parser.grammar._att_type = loaded->grammar._att_type;
  for (int i = 0; i < state.range(0); ++i)
    parser.grammar.get_node(("N" + std::to_string(i)).c_str(), true);
  for (auto _ : state) parser.reset();
}
BENCHMARK(reset_idle)->Arg(10)->Arg(100)->Arg(1000);

}  // namespace
}  // namespace torvane
