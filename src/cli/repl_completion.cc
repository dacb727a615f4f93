// What a word at the prompt may become.
#include <algorithm>
#include <string_view>

#include "cli/pages.h"
#include "cli/repl_session.h"

namespace torvane {
namespace {

/// The commands and forms of the page on the language.
void add_forms(std::vector<std::string>& all) {
  constexpr std::string_view kEntry = "- `";
  for (const ReferencePage& page : all_pages())
    if (page.name == "language")
      for (std::string_view line : page.lines)
        if (line.starts_with(kEntry)) {
          line.remove_prefix(kEntry.size());
          all.emplace_back(line.substr(0, line.find('`')));
        }
}

}  // namespace

std::vector<std::string> complete_in(ReplSession& session, const std::string& line,
                                     std::size_t word) {
  std::vector<std::string> all;
  const bool is_command = line.starts_with(':');
  const bool is_form = line.starts_with('(');
  if (is_command && word == 0) {
    for (const ReplCommand& command : repl_commands())
      all.push_back(":" + std::string(command.name));
  } else if (is_command && line.starts_with(":set format ")) {
    for (const Format& format : all_formats()) all.emplace_back(format.name);
  } else if (is_command && line.starts_with(":set ")) {
    all = {"style", "format", "counts"};
  } else {
    if (is_form && line[word - 1] == '(') add_forms(all);
    const GrammarNames names = session.engine().names();
    if (is_command || is_form) {
      all.insert(all.end(), names.categories.begin(), names.categories.end());
      all.insert(all.end(), names.attributes.begin(), names.attributes.end());
    }
    if (is_command)
      for (const SentenceWord& one : session.sentence.words) all.push_back(one.form);
    else
      all.insert(all.end(), names.words.begin(), names.words.end());
  }
  const std::string_view typed = std::string_view(line).substr(word);
  std::erase_if(all, [&](const std::string& one) { return !one.starts_with(typed); });
  std::sort(all.begin(), all.end());
  all.erase(std::unique(all.begin(), all.end()), all.end());
  return all;
}

}  // namespace torvane
