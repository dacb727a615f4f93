// Lexical rules: patterns by kind over a sentence of many readings, a long list of rules, and the
// boundaries of sentences.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench/allocations.h"
#include "bench/session.h"
#include "lex/rules/lexical_rules.h"
#include "lexp/form.h"
#include "shell/named_objects.h"
#include "support/lifetime.h"

namespace torvane {
namespace {

std::unique_ptr<LPattern> pattern(const char* text) {
  IRSlistReader reader(false);
  return make_pattern(session(), reader.start_string(text));
}

/// A chart in which every word has `readings` items and each pair of words one.
class Chart {
 public:
  Chart(int word_count, int readings) {
    for (int i = 1; i <= word_count; ++i) {
      analyzer.add_gap(" ");
      analyzer.add_word(i % 2 ? "odd" : "Even");
    }
    for (int i = 1; i <= word_count; ++i) {
      for (int r = 0; r < readings; ++r) add(i, i, "reading" + std::to_string(r));
      if (i < word_count) add(i, i + 1, "pair");
    }
  }

  Lexicon lexicon{session(), 101};
  LexAnalyzer analyzer{&lexicon, 64};

 private:
  void add(int low, int high, const std::string& root) {
    LexItem* item = analyzer.make_item(root.c_str(), nullptr, low, high, Slist<const char*>());
    analyzer.add_item(item, false);
  }
};

void match_pattern(benchmark::State& state, const char* text) {
  Chart chart(40, static_cast<int>(state.range(0)));
  std::unique_ptr<LPattern> compiled = pattern(text);
  std::int64_t found = 0;
  for (auto _ : state) {
    MatchRun run(chart.analyzer);
    MatchList matches;
    compiled->match(run, matches);
    found += matches.size();
  }
  state.counters["matches"] = static_cast<double>(found) / static_cast<double>(state.iterations());
  state.SetItemsProcessed(found);
}
#define PATTERN(kind, text) BENCHMARK_CAPTURE(match_pattern, kind, text)->Arg(2)->Arg(4)->Arg(8)
PATTERN(word, "(word (str= odd))");
PATTERN(lexitem, "(lexitem (t))");
PATTERN(no, "(no (lexitem (comp (root) (str= x))))");
PATTERN(optional, "(? (lexitem (t)))");
PATTERN(plus, "(+ (lexitem (t)))");
PATTERN(star_of_or, "(* (! Even odd))");
PATTERN(any_of, "(! :overlapping (word-seq odd Even odd) (lexitem (t)))");
PATTERN(all_of, "(& :overlapping (lexitem (t)) (seq (.) (.)))");
PATTERN(seq_of_two, "(seq :overlapping (lexitem (t)) (lexitem (t)))");
PATTERN(seq_of_four, "(seq :overlapping (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)))");
PATTERN(seq_that_fails,
        "(seq none (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) "
        "(lexitem (t)) (lexitem (t)) (lexitem (t)))");
PATTERN(plus_of_seq, "(+ (seq (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t))))");
PATTERN(collect, "(collect-lexitems)");
#undef PATTERN

/// 200 rules of the usual kinds, of which a few fire.
void rule_list(benchmark::State& state) {
  Chart chart(20, 3);
  std::string text = "(def-rules bench-rules";
  for (int i = 0; i < 50; ++i) {
    std::string n = std::to_string(i);
    text += " (a" + n + " (word-seq word" + n + " odd) (low))";
    text += " (b" + n + " (seq (word (in (x" + n + " y z))) (? odd) (lexitem (t))) (low))";
    text += " (c" + n + " (lexitem (comp (root) (str= root" + n + "))) (low))";
    text +=
        " (d" + n + " (seq (lexitem (comp (root) (str= reading0))) odd Even word" + n + ") (low))";
  }
  text += ")";
  run_forms(text.c_str());
  LexRuleList* rules = find_rules(session(), "bench-rules");
  std::uint64_t before = allocation_count();
  for (auto _ : state) rules->apply(chart.analyzer);
  state.counters["allocations"] =
      static_cast<double>(allocation_count() - before) / static_cast<double>(state.iterations());
}
BENCHMARK(rule_list);

void sentence_boundaries(benchmark::State& state) {
  auto boundary = LExp::get_exp_from_text(
      session(),
      "(sbnd (not (current-token (in (Mr Dr)))) (current-token (in (\".\" ? !))) "
      "*-1 (current-token (in (\"'\"))) . (current-token (reg-match \"^[A-Z]\")))");
  const char* tokens[] = {"Mr", ".", "Smith", "went", "to", "town", ".", "He", "saw", "it", "!"};
  int type = type_id_of<const char*>();
  Round sentences;
  for (auto _ : state) {
    for (const char* token : tokens)
      benchmark::DoNotOptimize(boundary->eval(Value::constant(token), type));
    sentences.next();
  }
  state.SetItemsProcessed(state.iterations() * 11);
}
BENCHMARK(sentence_boundaries);

}  // namespace
}  // namespace torvane
