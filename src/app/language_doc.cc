// Writes the reference of the configuration language from the tables that the program itself
// enters, so that it cannot go stale. Each row has a text or a usage.
//
// usage: language_doc > language.md
#include <algorithm>
#include <cstring>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "engine/all_offers.h"
#include "shell/offers.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {
namespace {

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
  void file(const Offer& offer) {
    file_section(offer, "commands", offer.commands);
    for (const auto& [family, what] : kFamilies) {
      std::vector<Prototype> rows;
      for (const Prototype& row : offer.prototypes)
        if (row.family == std::string_view(family)) rows.push_back(row);
      file_section(offer, what, std::span<const Prototype>(rows));
    }
  }

  /// True if each row says something.
  bool sound() const {
    for (const std::string& fault : faults_) messages() << fault << '\n';
    return faults_.empty();
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

  std::vector<std::string> faults_;
};

int write_reference() {
  Reference reference;
  std::cout
      << "# The configuration language\n\n"
         "Written by the build from the tables of the program; do not edit. Each heading names "
         "a file below\n`src/`, and under it stands what that file offers. Texts in code are "
         "what `help` and `objects`\nprint. Commands run once, when their form is read; forms "
         "are compiled and evaluated on a value.\n";
  std::vector<const Offer*> all = {&offers::shell_commands};
  all.insert(all.end(), all_offers().begin(), all_offers().end());
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
  return reference.sound() ? 0 : 1;
}

}  // namespace
}  // namespace torvane

int main() {
  return torvane::write_reference();
}
