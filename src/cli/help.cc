// torvane help: the pages of the commands, and the reference pages.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/pages.h"
#include "support/nearest.h"

namespace torvane {
namespace {

/// An entry of the page on the language: a command or a form.
constexpr std::string_view kEntry = "- `";

const ReferencePage* find_page(std::string_view name) {
  for (const ReferencePage& page : all_pages())
    if (page.name == name) return &page;
  return nullptr;
}

std::string_view name_of_entry(std::string_view line) {
  if (!line.starts_with(kEntry)) return {};
  line.remove_prefix(kEntry.size());
  return line.substr(0, line.find('`'));
}

/// The commands and forms, those of which the name has one of the words; without words all.
std::string entries(const std::vector<std::string>& words) {
  std::vector<std::string_view> found;
  for (std::string_view line : find_page("language")->lines) {
    const std::string_view name = name_of_entry(line);
    const bool wanted =
        words.empty() || std::any_of(words.begin(), words.end(), [&](const std::string& word) {
          return name.find(word) != name.npos;
        });
    if (!name.empty() && wanted) found.push_back(line.substr(2));
  }
  std::sort(found.begin(), found.end());
  std::string text;
  for (std::string_view line : found) text.append(line).append("\n");
  return text;
}

std::vector<std::string> topics() {
  std::vector<std::string> names{"forms"};
  for (const ReferencePage& page : all_pages()) names.emplace_back(page.name);
  for (const CliCommand& command : cli_commands()) names.emplace_back(command.name);
  return names;
}

std::string page_of(const CLI::App& app, const std::string& name) {
  return app.get_formatter()->make_help(&app, name, CLI::AppFormatMode::Normal);
}

/// Empty if there is no such topic.
std::string text_of(const CLI::App& program, const std::string& topic,
                    const std::vector<std::string>& words) {
  if (topic == "forms") return entries(words);
  std::string text;
  if (const ReferencePage* page = find_page(topic)) {
    for (std::string_view line : page->lines) text.append(line).append("\n");
  } else if (topic.empty()) {
    text = page_of(program, "torvane");
  } else {
    for (const CliCommand& command : cli_commands())
      if (topic == command.name)
        text = page_of(*program.get_subcommand(command.name), "torvane " + topic);
  }
  return text;
}

struct HelpOptions {
  std::string topic;
  std::vector<std::string> words;
};

int help(const CLI::App& program, const HelpOptions& options) {
  const std::string text = text_of(program, options.topic, options.words);
  if (text.empty()) {
    const bool no_form = options.topic == "forms";
    std::cerr << "torvane: there is no "
              << (no_form ? "command or form of such a name"
                          : "page " + options.topic + hint_for(options.topic, topics()))
              << "\nTry: torvane help\n";
    return kUsage;
  }
  catch_interrupts();
  Output output("-");
  output.buffer = text;
  output.flush(true);
  return output.failed() ? kInputOutput : kDone;
}

}  // namespace

std::function<int()> declare_help(CLI::App& app) {
  auto options = std::make_shared<HelpOptions>();
  std::string pages = "A command, or a page: forms";
  for (const ReferencePage& page : all_pages()) pages.append(", ").append(page.name);
  app.add_option("TOPIC", options->topic, pages);
  app.add_option("WORD", options->words, "With forms: parts of the names wanted");
  return [&app, options] { return help(*app.get_parent(), *options); };
}

}  // namespace torvane
