// Words: lists of them, their likeness, rewriting, and stemming, the last beside Debian's
// libstemmer.
#include <benchmark/benchmark.h>

#if __has_include(<libstemmer.h>)
#include <libstemmer.h>
#define TORVANE_HAS_LIBSTEMMER 1
#endif

#include <cstring>
#include <string>
#include <vector>

#include "bench/session.h"
#include "lexp/form.h"
#include "support/stemmer.h"

namespace torvane {
namespace {

std::unique_ptr<LExp> compile(const std::string& text) {
  return LExp::get_exp_from_text(session(), text.c_str());
}

void in_list(benchmark::State& state) {
  std::string text = "(in (";
  for (int i = 0; i < state.range(0); ++i) text += "word" + std::to_string(i * 7919) + " ";
  std::unique_ptr<LExp> exp = compile(text + "))");
  std::vector<std::string> words;
  for (int i = 0; i < 1000; ++i) words.push_back("word" + std::to_string(i * 13));
  int type = type_id_of<const char*>();
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(exp->eval(Value::constant(words[i].c_str()), type));
    if (++i == words.size()) i = 0;
  }
}
BENCHMARK(in_list)->Arg(10)->Arg(10000)->Arg(1000000);

void str_sim(benchmark::State& state) {
  std::unique_ptr<LExp> exp = compile("(str-sim (ident) (str internationalisation))");
  for (auto _ : state)
    benchmark::DoNotOptimize(exp->eval(Value::constant("internationalization"), kAnyType));
}
BENCHMARK(str_sim);

void reg_sub(benchmark::State& state) {
  std::unique_ptr<LExp> exp = compile("(reg-sub \"[0-9]+\" \"<&>\" g)");
  int type = type_id_of<const char*>();
  for (auto _ : state)
    benchmark::DoNotOptimize(
        exp->eval(Value::constant("on 21 November 2026 at 4 in the morning, line 1023"), type));
}
BENCHMARK(reg_sub);

constexpr const char* kWords[] = {"running",     "ponies",      "caresses",    "relational",
                                  "conditional", "hopefulness", "electricity", "adjustment",
                                  "controlling", "the",         "walked",      "generalization",
                                  "oscillators", "probate",     "sky"};

void stem_own(benchmark::State& state) {
  char word[32];
  for (auto _ : state)
    for (const char* text : kWords) {
      std::strcpy(word, text);
      stem(word);
      benchmark::DoNotOptimize(word);
    }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(std::size(kWords)));
}
BENCHMARK(stem_own)->Name("stem_own/words");

#ifdef TORVANE_HAS_LIBSTEMMER
void stem_peer(benchmark::State& state) {
  sb_stemmer* stemmer = sb_stemmer_new("porter", nullptr);
  for (auto _ : state)
    for (const char* text : kWords)
      benchmark::DoNotOptimize(sb_stemmer_stem(stemmer, reinterpret_cast<const sb_symbol*>(text),
                                               static_cast<int>(std::strlen(text))));
  sb_stemmer_delete(stemmer);
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(std::size(kWords)));
}
BENCHMARK(stem_peer)->Name("stem_peer/words");
#endif

}  // namespace
}  // namespace torvane
