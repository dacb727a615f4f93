// A loaded grammar together with the files that it was read from: what all checks look at.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "check/known_names.h"
#include "check/source_file.h"
#include "support/nearest.h"

namespace torvane {

struct GrammarSources {
  World& world;
  std::vector<SourceFile> files;
  KnownNames names;
  Findings found;

  void error(const SourceFile& file, std::uint32_t line, std::string text) {
    found.push_back({file.path, line, Severity::error, std::move(text)});
  }
  void warn(const SourceFile& file, std::uint32_t line, std::string text) {
    found.push_back({file.path, line, Severity::warning, std::move(text)});
  }

  /// Calls `visit(file, form)` for each form at the top of a file, entries of lexicons left out.
  template <class Visit>
  void each_command(Visit visit) const {
    for (const SourceFile& file : files)
      if (!file.is_lexicon)
        for (const SourceForm& form : file.forms) visit(file, form);
  }
  /// Calls `visit(file, entry)` for each entry of a lexicon, in a file or in a command `lex`.
  template <class Visit>
  void each_entry(Visit visit) const {
    for (const SourceFile& file : files)
      for (const SourceForm& form : file.forms) {
        if (file.is_lexicon)
          visit(file, form);
        else if (same_name(form.head(), "lex"))
          for (std::size_t i = 2; i < form.items.size(); ++i) visit(file, form.items[i]);
      }
  }

  /// As the engine compares names.
  static bool same_name(std::string_view a, std::string_view b);
};

/// Calls `visit(list)` for a form and for each list inside it, from the outermost in.
template <class Visit>
void each_list(const SourceForm& form, Visit visit) {
  if (!form.is_list) return;
  visit(form);
  for (const SourceForm& item : form.items) each_list(item, visit);
}

// The checks, each of one subject. What they find they add to `found`.
void check_shape(GrammarSources& sources);
void check_loading(GrammarSources& sources);
void check_grammar_commands(GrammarSources& sources);
void check_arguments(GrammarSources& sources);
void check_network(GrammarSources& sources);
void check_attributes(GrammarSources& sources);
void check_entries(GrammarSources& sources);
void check_rules(GrammarSources& sources);

}  // namespace torvane
