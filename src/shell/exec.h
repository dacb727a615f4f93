// The interpreter of commands: it reads forms and runs each. A command takes its form unevaluated;
// what a failing command does not report goes unnoticed, and the run goes on with the next form.
#pragma once

#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/help.h"
#include "shell/irslist.h"
#include "support/name_table.h"
#include "support/value.h"

namespace torvane {

class World;

/// A command's work: its world and its form without the name in, any object out. What it returns is
/// owned elsewhere.
using Handler = Value (*)(World& world, IRSlist* form);

/// One row of a module's command table.
struct Command {
  const char* name;
  Handler handler;
  const char* doc;              ///< what `help` prints; null for none
  const char* usage = nullptr;  ///< a line for the reference; null where the text says enough
};

class Exec {
 public:
  /// With a null tokenizer, one with the classes of the configuration language.
  explicit Exec(World& its_world, std::unique_ptr<TokenizerBase> given = nullptr, char open = '(',
                char close = ')');
  ~Exec();
  Exec(const Exec&) = delete;
  Exec& operator=(const Exec&) = delete;

  /// Adds a command; an existing name is reported and keeps its command.
  void define(const char* name, Handler handler, const char* doc);
  void define(std::span<const Command> table);
  // Part of the interface; nothing in the engine calls it yet.
  void redefine(const char* name, Handler handler, const char* doc);
  Handler find(const char* name) const;
  /// Names and texts of the commands matching a regular expression (null: all), sorted.
  void help(std::ostream& out, const char* regexp) const;

  /// Runs all forms of a stream (null: none) or a text.
  void load(Stream* stream);
  void load_string(const char* text);
  /// Reads and runs one form; true while the input has more.
  bool read_and_run();
  /// Runs one form (consumed): its macro expansion, or its command.
  Value eval(IRSlist& form);
  /// Runs each item as a form; the last result, 0 for an empty list.
  Value eval_all(IRSlist& forms);

  NameTable<Handler> commands;
  bool prompt = true;
  char open_char;
  char close_char;
  bool show_commands = false;
  TokenizerBase* tokenizer;
  /// Set while the start-up file runs: between its forms nothing is running, so that all that was
  /// dropped can be freed there.
  bool frees_values = false;

 private:
  class NestedRun;

  void load(Stream* stream, const char* source);
  bool is_running(std::string_view source, std::size_t from = 0) const;
  std::size_t outermost_repeated(std::string_view source) const;
  bool may_enter(const char* source);
  void run_text(const std::string& text, const char* source);
  Value run_command(IRSlist& form);

  World& world_;
  std::unique_ptr<TokenizerBase> own_tokenizer_;
  /// What is being run, outermost first: files by their paths, macros by their names.
  std::vector<std::string> running_;
  /// After a file or macro has run itself too often, nothing that is running already is entered
  /// again, until the outermost one that was entered twice has ended: otherwise one that runs
  /// itself at two places would go on nearly for ever.
  bool refusing_ = false;
  std::size_t refuse_above_ = 0;
};

}  // namespace torvane
