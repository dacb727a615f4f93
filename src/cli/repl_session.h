// What a prompt works on: a grammar, the sentence that was parsed last, and how it is shown.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/grammar.h"
#include "cli/page.h"
#include "engine/engine.h"
#include "formats/format.h"

namespace torvane {

class ReplSession {
 public:
  GrammarChoice grammar;
  std::string counts;
  const Format* format = nullptr;
  PageChoice page;
  bool ended = false;

  // The sentence in hand; its text is empty before the first one.
  std::string text;
  Sentence sentence;

  /// Builds the grammar. False after a message: the one before stays.
  bool load();
  Engine& engine() { return *engine_; }
  /// Parses a sentence and makes it the one in hand.
  void parse(const std::string& sentence_text);
  /// Its next-best tree; false if there is none.
  bool next();
  /// Which one of its trees it is, from 1.
  int place() const { return place_; }
  /// Something else was parsed since with the engine: the trees begin anew.
  void forget_trees() { stale_ = true; }
  /// Runs a form of the configuration language.
  void run_form(const std::string& form);
  /// Writes the sentence in hand as it is to be shown.
  void show() const;
  /// Ctrl-C: ends a parse in hand; false if there is none.
  bool stop();

 private:
  std::unique_ptr<Engine> engine_;
  int place_ = 0;
  bool stale_ = false;
};

/// A command of the prompt: `:NAME ...`.
struct ReplCommand {
  const char* name;
  const char* usage;
  const char* what;
  void (*run)(ReplSession& session, const std::vector<std::string>& words);
};
std::span<const ReplCommand> repl_commands();

/// What a word on a line may become: commands, forms, attributes, categories, words of the lexicon.
std::vector<std::string> complete_in(ReplSession& session, const std::string& line,
                                     std::size_t word);

}  // namespace torvane
