// Writes the reference of the configuration language from the tables that the program itself
// registers, so that it cannot go stale. What a table documents by no text has a line in a file of
// usages, which must cover every such name and no other.
//
// usage: language_doc USAGES > language.md
#include <algorithm>
#include <cstring>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "engine/registrations.h"
#include "shell/offers.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {
namespace {

struct Entry {
  std::string name;
  std::string text;
};
using Entries = std::map<std::string, Entry>;  // by lower-cased name

std::string lower_case(std::string text) {
  for (char& c : text) c = lower(c);
  return text;
}

/// A documentation text on one line, or empty if there is none.
std::string one_line(const char* text) {
  std::string line;
  if (!text || !std::strcmp(text, "No documentation provided")) return line;
  for (const char* p = text; *p; ++p) {
    if (!is_space(*p)) {
      line += *p;
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  return line;
}

template <class V>
Entries entries_of(const NameTable<V>& table) {
  Entries entries;
  table.for_each([&](const auto& e) { entries[lower_case(e.key)] = {e.key, one_line(e.text)}; });
  return entries;
}

Entries family_entries(World& world, const char* family) {
  ObjFactory* factory = world.families.find(family);
  return factory ? entries_of(*factory) : Entries();
}

std::string folder_of(const Offer& offer) {
  std::string file = offer.file();
  return file.substr(0, file.rfind('/'));
}

constexpr const char* kFamilies[][2] = {{"LExp", "forms"},
                                        {"LPattern", "lexical patterns"},
                                        {"Meaning", "kinds of meanings"},
                                        {"AttIntepreter", "attribute types"}};

class Reference {
 public:
  bool read_usages(const char* path) {
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
      std::size_t tab = line.find('\t');
      if (tab != std::string::npos && line[0] != '#')
        usages_[line.substr(0, tab)] = line.substr(tab + 1);
    }
    return !usages_.empty();
  }

  void section(const std::string& title, const char* kind, const Entries& entries) {
    if (entries.empty()) return;
    std::cout << "\n### " << title << "\n\n";
    for (const auto& [key, entry] : entries) {
      std::string usage_key = std::string(kind) + " " + key;
      auto usage = usages_.find(usage_key);
      if (usage == usages_.end() && entry.text.empty())
        faults_.push_back("no usage for: " + usage_key);
      used_.insert(usage_key);
      std::cout << "- `" << entry.name << "`: ";
      if (!entry.text.empty()) std::cout << code(entry.text);
      if (usage != usages_.end()) std::cout << (entry.text.empty() ? "" : " ") << usage->second;
      std::cout << "\n";
    }
  }

  void file(const Offer& offer) {
    file_section(offer, "commands", offer.commands);
    for (const auto& [family, what] : kFamilies) {
      std::vector<Prototype> rows;
      for (const Prototype& row : offer.prototypes)
        if (row.family == std::string_view(family)) rows.push_back(row);
      file_section(offer, what, std::span<const Prototype>(rows));
    }
  }

  /// True if usages and tables agree.
  bool sound() const {
    bool ok = faults_.empty();
    for (const std::string& fault : faults_) messages() << fault << '\n';
    for (const auto& [key, usage] : usages_) {
      if (used_.count(key)) continue;
      torvane::messages() << "usage of what is not there: " << key << '\n';
      ok = false;
    }
    return ok;
  }

 private:
  template <class Row>
  void file_section(const Offer& offer, const char* what, std::span<const Row> rows) {
    if (rows.empty()) return;
    std::cout << "\n### `" << offer.file() << "`: " << what << "\n\n";
    std::map<std::string, const Row*> sorted;
    for (const Row& row : rows) sorted[lower_case(row.name)] = &row;
    for (const auto& [key, row] : sorted) {
      std::string text = one_line(row->doc);
      if (text.empty() && !row->usage)
        faults_.push_back(std::string(offer.file()) + ": no usage for " + row->name);
      std::cout << "- `" << row->name << "`: ";
      if (!text.empty()) std::cout << code(text);
      if (row->usage) std::cout << (text.empty() ? "" : " ") << row->usage;
      std::cout << "\n";
    }
  }

  /// The program's own text, as code.
  static std::string code(const std::string& text) {
    return text.find('`') == std::string::npos ? "`" + text + "`" : "`` " + text + " ``";
  }

  std::map<std::string, std::string> usages_;
  std::set<std::string> used_;
  std::vector<std::string> faults_;
};

Entries without(Entries entries, const Entries& known) {
  for (const auto& [key, entry] : known) entries.erase(key);
  return entries;
}

int write_reference(const char* usages) {
  World world(World::Console::of_process());
  Reference reference;
  if (!reference.read_usages(usages)) {
    messages() << "cannot read " << usages << '\n';
    return 1;
  }
  std::cout
      << "# The configuration language\n\n"
         "Written by the build from the tables of the program; do not edit. Each heading names "
         "a file below\n`src/`, and under it stands what that file offers. Texts in code are "
         "what `help` and `objects`\nprint. Commands run once, when their form is read; forms "
         "are compiled and evaluated on a value.\n";
  std::vector<const Offer*> all = {&offers::shell_commands};
  for (const Registration& row : registrations())
    if (row.offer) all.push_back(row.offer);
  // By folder, in the order in which the folders come first.
  std::vector<std::string> folders;
  for (const Offer* offer : all)
    if (std::string folder = folder_of(*offer); !std::count(folders.begin(), folders.end(), folder))
      folders.push_back(folder);
  for (const std::string& folder : folders) {
    std::cout << "\n## " << folder << "\n";
    for (const Offer* offer : all)
      if (folder_of(*offer) == folder) reference.file(*offer);
  }
  Entries commands = entries_of(world.interpreter.commands), forms;
  std::cout << "\n## Other commands and forms\n";
  for (const Registration& row : registrations()) {
    row.enter(world);
    Entries now = entries_of(world.interpreter.commands), forms_now = family_entries(world, "LExp");
    if (!row.offer) {
      reference.section(std::string(row.what) + ": commands", "command", without(now, commands));
      reference.section(std::string(row.what) + ": forms", "form", without(forms_now, forms));
    }
    commands = std::move(now);
    forms = std::move(forms_now);
  }
  return reference.sound() ? 0 : 1;
}

}  // namespace
}  // namespace torvane

int main(int argc, char** argv) {
  if (argc != 2) {
    torvane::messages() << "usage: language_doc USAGES\n";
    return 2;
  }
  return torvane::write_reference(argv[1]);
}
