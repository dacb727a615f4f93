#include "check/check.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <tuple>
#include <utility>

#include "check/grammar_sources.h"
#include "check/message_findings.h"
#include "engine/engine.h"
#include "support/text.h"

namespace torvane {
namespace {

Value stay(World&, IRSlist*) {
  return Value();
}

/// Whether a command `load-lex` of one of the files reads the path.
bool is_lexicon(const std::string& path, const std::vector<SourceFile>& files) {
  for (const SourceFile& file : files)
    for (const SourceForm& form : file.forms)
      if (GrammarSources::same_name(form.head(), "load-lex") && !form.text(2).empty() &&
          path.ends_with(form.text(2)))
        return true;
  return false;
}

std::vector<SourceFile> read_sources(const std::vector<std::string>& paths) {
  std::vector<SourceFile> files;
  std::set<std::string> seen;
  for (const std::string& path : paths)
    if (seen.insert(path).second) files.push_back(read_source(path));
  for (SourceFile& file : files) file.is_lexicon = is_lexicon(file.path, files);
  return files;
}

/// The values that attributes allow.
void add_values(GrammarSources& sources) {
  for (const SourceFile& file : sources.files)
    for (const SourceForm& form : file.forms)
      each_list(form, [&](const SourceForm& list) {
        if (!GrammarSources::same_name(list.head(), "allowable-values")) return;
        for (std::size_t i = 1; i < list.items.size(); ++i)
          sources.names.values.emplace_back(list.items[i].atom);
      });
}

/// What follows a parenthesis out of place in its file is mostly its consequence.
void drop_consequences(const std::vector<SourceFile>& files, Findings& found) {
  for (const SourceFile& file : files) {
    if (file.shape.empty()) continue;
    std::erase_if(found, [&](const Finding& finding) {
      return finding.file == file.path && finding.line >= file.shape.front().line;
    });
  }
}

void sort_by_place(const std::vector<SourceFile>& files, Findings& found) {
  std::map<std::string_view, std::size_t> order;
  for (const SourceFile& file : files) order.emplace(file.path, order.size());
  std::stable_sort(found.begin(), found.end(), [&](const Finding& a, const Finding& b) {
    return std::pair(order[a.file], a.line) < std::pair(order[b.file], b.line);
  });
  std::set<std::tuple<std::string, std::uint32_t, std::string>> told;
  std::erase_if(found, [&](const Finding& finding) {
    return !told.insert({finding.file, finding.line, finding.text}).second;
  });
}

}  // namespace

bool GrammarSources::same_name(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

namespace {

/// What is found in a world, and told in messages; of the network only once all of it is `loaded`.
Findings findings(World& world, const std::string& start_file,
                  const std::vector<PlacedMessage>& messages, bool loaded) {
  GrammarSources sources{world, read_sources(world.places.files()), KnownNames(world), {}};
  if (sources.files.empty()) sources.files.push_back(read_source(start_file));
  add_values(sources);
  for (auto* check : {check_loading, check_grammar_commands, check_arguments, check_attributes,
                      check_entries, check_rules})
    if (loaded) check(sources);
  if (loaded && std::all_of(sources.files.begin(), sources.files.end(),
                            [](const SourceFile& file) { return file.shape.empty(); }))
    check_network(sources);
  add_messages(world, messages, sources.names, start_file, sources.found);
  drop_consequences(sources.files, sources.found);
  check_shape(sources);
  sort_by_place(sources.files, sources.found);
  return std::move(sources.found);
}

}  // namespace

void check_grammar(const GrammarFiles& files, const std::function<void(const Findings&)>& tell) {
  std::istringstream nothing;
  std::ostringstream printed;
  std::vector<PlacedMessage> messages;
  Engine engine(World::Console{&nothing, &printed, &printed});
  World& world = engine.world();
  const std::string& start = files.files.front();
  world.places.kept = true;
  world.places.give_messages([&](const PlacedMessage& message) { messages.push_back(message); },
                             [&] { tell(findings(world, start, messages, false)); });
  world.interpreter.redefine("exit", stay, nullptr);
  engine.load(files.files, files.folders);
  WorldScope here(world);
  tell(findings(world, start, messages, true));
}

}  // namespace torvane
