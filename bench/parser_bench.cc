// Parsing with the shipped grammar by sentence length, the allocations that it makes once warm, and
// the reset of a parser that was not used.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/allocations.h"
#include "bench/session.h"
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
  english();
  TorvaneParser* parser = current_parser();
  for (int i = 0; i < 3; ++i) parser->parse(sentence.text, nullptr);
  for (auto _ : state) parser->parse(sentence.text, nullptr);
  state.SetItemsProcessed(state.iterations());
}

/// The loop alone: the analyser's work and the conversion to a tree are outside.
void loop_allocations(benchmark::State& state, const Sentence& sentence) {
  english();
  TorvaneParser* parser = current_parser();
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

void reset_idle(benchmark::State& state) {
  english();
  TorvaneParser parser("idle", 1997);
  parser._lex = current_parser()->_lex;
  parser._att_type = current_parser()->_att_type;
  for (int i = 0; i < state.range(0); ++i) parser.get_node(("N" + std::to_string(i)).c_str(), true);
  for (auto _ : state) parser.reset();
}
BENCHMARK(reset_idle)->Arg(10)->Arg(100)->Arg(1000);

}  // namespace
}  // namespace torvane
