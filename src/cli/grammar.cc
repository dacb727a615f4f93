#include "cli/grammar.h"

#include <unistd.h>

#include <iostream>
#include <memory>
#include <sstream>
#include <utility>

#include "cli/command.h"

namespace torvane {
namespace {

thread_local std::function<void()> duty_before_end;

// A grammar can run `exit`, in any thread. Whoever asked for a parse has none.
Value end_program(World&, IRSlist*) {
  std::cerr << "torvane: the grammar ended the program" << std::endl;
  if (duty_before_end) duty_before_end();
  _exit(kNoGrammar);
}

}  // namespace

BeforeGrammarEnds::BeforeGrammarEnds(std::function<void()> duty) {
  duty_before_end = std::move(duty);
}

BeforeGrammarEnds::~BeforeGrammarEnds() {
  duty_before_end = nullptr;
}

std::unique_ptr<Engine> load_grammar(const GrammarFiles& files, std::size_t max_words,
                                     Forms forms) {
  static thread_local std::istringstream nothing;
  std::string fault = files.fault;
  std::unique_ptr<Engine> engine;
  if (fault.empty()) {
    engine = std::make_unique<Engine>(World::Console{&nothing, &std::cerr, &std::cerr});
    engine->max_words = max_words;
    if (forms == Forms::kept) engine->keep_forms();
    engine->world().places.want_in_messages(std::cerr);
    engine->world().interpreter.redefine("exit", end_program, nullptr);
    fault = engine->load(files.files, files.folders);
  }
  if (fault.empty()) return engine;
  std::cerr << "torvane: " << fault << '\n';
  return nullptr;
}

}  // namespace torvane
