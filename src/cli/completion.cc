// torvane completion: what bash needs to know of the command line, from the command line's own
// tables. Written when torvane is built, and named on no help page.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "cli/command.h"

namespace torvane {
namespace {

/// All its names, with a sign between them.
std::string names_of(const CLI::Option& option, char between) {
  std::string names = option.get_name(false, true);
  std::replace(names.begin(), names.end(), ',', between);
  return names;
}

/// The words that an option takes, as its help shows them: `TEXT:{this,that}`.
std::string values_of(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t open = type.find('{'), close = type.find('}');
  if (open == type.npos || close == type.npos) return {};
  std::string values = type.substr(open + 1, close - open - 1);
  std::replace(values.begin(), values.end(), ',', ' ');
  return values;
}

/// The names of all options.
std::string options_of(const CLI::App& app) {
  std::string all;
  for (const CLI::Option* option : app.get_options())
    if (option->nonpositional()) all += ' ' + names_of(*option, ' ');
  return all;
}

/// What is to be said behind a command.
void write_command(std::ostream& out, const CLI::App& command) {
  out << "    " << command.get_name() << ")\n      case $before in\n";
  for (const CLI::Option* option : command.get_options())
    if (option->nonpositional() && option->get_items_expected_max() > 0)
      out << "        " << names_of(*option, '|') << ") words='" << values_of(*option) << "' ;;\n";
  out << "        *) [[ $word == -* ]] && words='" << options_of(command)
      << "' ;;\n      esac ;;\n";
}

int write_completion(const CLI::App& app) {
  std::vector<const CLI::App*> commands = app.get_subcommands([](const CLI::App*) { return true; });
  std::erase_if(commands, [](const CLI::App* command) { return command->get_group().empty(); });
  std::string names, cases;
  for (const CLI::App* command : commands) {
    names += command->get_name() + ' ';
    cases += (cases.empty() ? "" : "|") + command->get_name();
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
         "  case $command in\n";
  for (const CLI::App* command : commands) write_command(out, *command);
  out << "    *) words='" << names << options_of(app)
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
