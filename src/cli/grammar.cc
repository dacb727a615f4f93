#include "cli/grammar.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>

#include "cli/command.h"

namespace torvane {
namespace {

std::atomic<bool> in_grammar = false;

// A grammar can run `exit`. Whoever asked for a parse has none.
void tell_of_exit() {
  if (!in_grammar) return;
  std::cerr << "torvane: the grammar ended the program" << std::endl;
  _exit(kNoGrammar);
}

}  // namespace

std::unique_ptr<Engine> load_grammar(const GrammarFiles& files, std::size_t max_words) {
  static std::istringstream nothing;
  [[maybe_unused]] static const int registered = std::atexit(tell_of_exit);
  std::string fault = files.fault;
  std::unique_ptr<Engine> engine;
  if (fault.empty()) {
    engine = std::make_unique<Engine>(World::Console{&nothing, &std::cerr, &std::cerr});
    engine->max_words = max_words;
    in_grammar = true;
    fault = engine->load(files.files, files.folders);
  }
  if (fault.empty()) return engine;
  std::cerr << "torvane: " << fault << '\n';
  leave_grammar();
  return nullptr;
}

void leave_grammar() {
  in_grammar = false;
}

}  // namespace torvane
