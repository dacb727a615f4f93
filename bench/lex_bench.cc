// The lexicon: loading, look-up in memory and on disk, and the analysis of a sentence.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "bench/session.h"
#include "lex/chart/lex_analyzer.h"
#include "lex/lexicon/dict_on_disk.h"
#include "lex/lexicon/lexicon.h"
#include "parser/parsing.h"
#include "parser/torvane_parser.h"

namespace torvane {
namespace {

constexpr int kEntries = 20000;

std::string key(int i) {
  return "w" + std::to_string(i * 7919 % 1000003);
}

void bench_kinds() {
  session();
  static bool once = [] {
    run_forms("(make-str-meaning-proto bench-sense)");
    return true;
  }();
  (void)once;
}

std::string entries_text() {
  std::string text;
  for (int i = 0; i < kEntries; ++i) text += "(" + key(i) + " (bench-sense a sense))\n";
  return text;
}

void lexicon_load(benchmark::State& state) {
  bench_kinds();
  std::string text = entries_text();
  for (auto _ : state) {
    Lexicon lexicon(session(), 19997);
    std::istringstream in(text);
    lexicon.load(in, true);
  }
  state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(lexicon_load)->Unit(benchmark::kMillisecond);

void lexicon_look_up(benchmark::State& state, bool hit) {
  bench_kinds();
  Lexicon lexicon(session(), 19997);
  std::istringstream in(entries_text());
  lexicon.load(in, true);
  std::vector<std::string> words;
  for (int i = 0; i < 1000; ++i) words.push_back(hit ? key(i * 17) : "miss" + std::to_string(i));
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(lexicon.get_entry(words[i].c_str()));
    if (++i == words.size()) i = 0;
  }
}
BENCHMARK_CAPTURE(lexicon_look_up, hit, true);
BENCHMARK_CAPTURE(lexicon_look_up, miss, false);

void disk_look_up(benchmark::State& state) {
  session();
  auto dir = std::filesystem::temp_directory_path() / "torvane-bench-dict";
  std::filesystem::create_directories(dir);
  std::ofstream(dir / "lex.dat") << entries_text();
  std::ofstream(dir / "lex.hdr") << "lex.dat\n19997\nlex.idx\n(\n)\n";
  {
    DictOnDisk dict(session().files, (dir / "lex.hdr").c_str());
    int i = 0;
    for (auto _ : state) {
      benchmark::DoNotOptimize(dict.get_entry(key(i).c_str()));
      i = (i + 17) % kEntries;
    }
  }
  std::filesystem::remove_all(dir);
}
BENCHMARK(disk_look_up);

void analyse(benchmark::State& state) {
  LexAnalyzer* lex = current_parser(english())->grammar._lex;
  const char* words[] = {"The", "old", "man", "walked", "slowly", "to", "the", "river"};
  for (auto _ : state) {
    lex->reset();
    for (const char* word : words) {
      lex->add_gap(" ");
      lex->add_word(word);
    }
    lex->analyze();
  }
  lex->reset();
  state.SetItemsProcessed(state.iterations() * 8);
}
BENCHMARK(analyse);

}  // namespace
}  // namespace torvane
