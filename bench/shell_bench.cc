// Tokens and forms out of text.
#include <benchmark/benchmark.h>

#include <string>

#include "shell/irslist.h"
#include "shell/tokenizer.h"

namespace torvane {
namespace {

std::string lexicon_text() {
  std::string text;
  for (int i = 0; text.size() < 1 << 20; ++i)
    text += "(word" + std::to_string(i) + " (avm ((cat n) (num sg) +count (txt \"some text\"))))\n";
  return text;
}

void tokens(benchmark::State& state) {
  std::string text = lexicon_text();
  auto tokenizer = Tokenizer::make_default(false);
  for (auto _ : state) {
    tokenizer->set_string_input(text.c_str(), static_cast<long>(text.size()));
    while (tokenizer->next_token()) {
    }
    tokenizer->reset_tokens();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(tokens)->Unit(benchmark::kMillisecond);

void forms(benchmark::State& state) {
  std::string text = lexicon_text();
  auto tokenizer = Tokenizer::make_default(false);
  for (auto _ : state) {
    tokenizer->set_string_input(text.c_str(), static_cast<long>(text.size()));
    while (tokenizer->more_input) {
      IRSlist form;
      form.read(*tokenizer, '(', ')');
      tokenizer->reset_tokens();
    }
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(forms)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvane
