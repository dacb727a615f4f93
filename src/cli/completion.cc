// torvane completion: what bash needs to know of the command line, from the command line's own
// tables. Written when torvane is built, and named on no help page.
#include <CLI/CLI.hpp>
#include <iostream>
#include <string>

#include "cli/command.h"

namespace torvane {
namespace {

bool is_hidden(const CLI::App& app) {
  return app.get_group().empty();
}

std::string joined(const std::string& row, const std::string& word, const char* between) {
  return row.empty() ? word : row + between + word;
}

/// All its names.
std::string names_of(const CLI::Option& option, const char* between) {
  std::string row;
  for (const std::string& name : option.get_snames()) row = joined(row, "-" + name, between);
  for (const std::string& name : option.get_lnames()) row = joined(row, "--" + name, between);
  return row;
}

/// The words that an option takes, as its help shows them: `TEXT:{this,that}`.
std::string values_of(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t open = type.find('{'), close = type.find('}');
  if (open == type.npos || close == type.npos) return {};
  std::string values = type.substr(open + 1, close - open - 1);
  for (char& c : values)
    if (c == ',') c = ' ';
  return values;
}

void write_options(std::ostream& out, const CLI::App& app, const std::string& command) {
  std::string all;
  for (const CLI::Option* option : app.get_options()) {
    if (!option->nonpositional()) continue;
    all = joined(all, names_of(*option, " "), " ");
    if (option->get_items_expected_max() == 0) continue;
    std::string cases;
    for (const std::string& name : option->get_snames())
      cases = joined(cases, command + ":-" + name, "|");
    for (const std::string& name : option->get_lnames())
      cases = joined(cases, command + ":--" + name, "|");
    out << "    " << cases << ") words='" << values_of(*option) << "' ;;\n";
  }
  out << "    " << command << ":*) [[ $word == -* ]] && words='" << all << "' ;;\n";
}

int write_completion(const CLI::App& app) {
  std::string commands, cases;
  for (const CLI::App* command : app.get_subcommands({})) {
    if (is_hidden(*command)) continue;
    commands = joined(commands, command->get_name(), " ");
    cases = joined(cases, command->get_name(), "|");
  }
  std::ostream& out = std::cout;
  out << "# Completion of torvane for bash.\n"
         "_torvane() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}\n"
         "  local command= words= i\n"
         "  if [[ $word == = ]]; then word=; fi\n"
         "  if [[ $before == = ]]; then before=${COMP_WORDS[COMP_CWORD-2]}; fi\n"
         "  for ((i = 1; i < COMP_CWORD; ++i)); do\n"
         "    case ${COMP_WORDS[i]} in "
      << cases
      << ") command=${COMP_WORDS[i]}; break ;; esac\n"
         "  done\n"
         "  case $command:$before in\n";
  for (const CLI::App* command : app.get_subcommands({}))
    if (!is_hidden(*command)) write_options(out, *command, command->get_name());
  out << "    *) words='" << commands << ' ';
  std::string options;
  for (const CLI::Option* option : app.get_options())
    options = joined(options, names_of(*option, " "), " ");
  out << options
      << "' ;;\n"
         "  esac\n"
         "  COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n"
         "}\n"
         "complete -o default -F _torvane torvane\n";
  return kDone;
}

}  // namespace

std::function<int()> declare_completion(CLI::App& app) {
  app.group("");
  return [&app] { return write_completion(*app.get_parent()); };
}

}  // namespace torvane
