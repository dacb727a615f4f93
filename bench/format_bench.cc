// What the formats cost beside parsing: a sentence from its words to its tree, the tree as a
// sentence with every word and label, and that written and read.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#include "bench/session.h"
#include "engine/engine.h"
#include "engine/sentence_of.h"
#include "formats/conllu_reader.h"
#include "formats/format.h"
#include "formats/tree_text_reader.h"
#include "parser/parsing.h"
#include "parser/torvane_parser.h"

namespace torvane {
namespace {

constexpr const char* kTexts[] = {
    "She didn't see it.",
    "The cat chased the dog, and nobody slept.",
    "He gave his friend a book about the war on Monday.",
    "\"They have bought the house near the river,\" said the old man's wife.",
    "In the summer the children, who live in the city, played in the garden with a small dog.",
};

/// With the grammar as the command line loads it.
Engine& engine() {
  static Engine& shared = *[] {
    auto* made = new Engine;
    const std::string data = TORVANE_DATA;
    made->load({data + "/english/english.lsp", data + "/english/style-content.lsp"}, {data});
    return made;
  }();
  return shared;
}

const std::vector<Sentence>& sentences() {
  static const std::vector<Sentence> parsed = [] {
    std::vector<Sentence> made;
    for (const char* text : kTexts) made.push_back(engine().parse(std::string_view(text)));
    return made;
  }();
  return parsed;
}

std::string written(const char* format) {
  std::string text;
  for (const Sentence& sentence : sentences()) find_format(format)->write(text, sentence);
  return text;
}

void set_sentences(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(std::size(kTexts)));
}

void format_parse(benchmark::State& state) {
  const WorldScope here(engine().world());
  TorvaneParser& parser = *current_parser(engine().world());
  for (auto _ : state)
    for (const char* text : kTexts) parser.parse(text, nullptr);
  set_sentences(state);
}
BENCHMARK(format_parse);

/// What stands between the parser's trees and a format.
void format_sentence(benchmark::State& state) {
  const WorldScope here(engine().world());
  TorvaneParser& parser = *current_parser(engine().world());
  const Labels labels(engine().world());
  const Round round;
  std::vector<Ref<Deps>> trees;
  for (const char* text : kTexts) {
    parser.parse(text, nullptr);
    trees.push_back(parser._deps);  // the parser makes another one while somebody has it
  }
  for (auto _ : state)
    for (std::size_t i = 0; i < trees.size(); ++i)
      benchmark::DoNotOptimize(sentence_of(*trees[i], kTexts[i], labels));
  set_sentences(state);
}
BENCHMARK(format_sentence);

void format_write(benchmark::State& state, const Format& format) {
  std::string out;
  for (auto _ : state) {
    out.clear();
    for (const Sentence& sentence : sentences()) format.write(out, sentence);
  }
  set_sentences(state);
}

const bool registered = [] {
  for (const Format& format : all_formats())
    benchmark::RegisterBenchmark(
        (std::string("format_write/") + format.name).c_str(),
        [&format](benchmark::State& state) { format_write(state, format); });
  return true;
}();

template <class Read>
void read_lines(benchmark::State& state, const char* format, Read read) {
  std::vector<std::string> lines;
  const std::string text = written(format);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  for (auto _ : state)
    for (const std::string& line : lines) read(line);
  set_sentences(state);
}

void format_read_conllu(benchmark::State& state) {
  ConlluReader reader;
  read_lines(state, "conllu", [&](const std::string& line) {
    if (reader.add(line)) benchmark::DoNotOptimize(reader.take());
  });
}
BENCHMARK(format_read_conllu)->Name("format_read/conllu");

void format_read_deps(benchmark::State& state) {
  TreeTextReader reader;
  read_lines(state, "deps", [&](const std::string& line) {
    reader.add(line);
    for (TreeText tree; reader.next(tree);) benchmark::DoNotOptimize(tree);
  });
}
BENCHMARK(format_read_deps)->Name("format_read/deps");

}  // namespace
}  // namespace torvane
