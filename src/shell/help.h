// Lists of names with their documentation: what `help`, `classes` and `objects` print.
#pragma once

#include <memory>
#include <ostream>
#include <span>
#include <vector>

#include "support/name_table.h"
#include "support/regexp.h"

namespace torvane {

/// Which names are wanted: those in which a regular expression has a match that ends behind the
/// front of the name; all of them for a null expression.
class NameFilter {
 public:
  explicit NameFilter(const char* expression)
      : compiled_(expression ? regcomp(expression) : nullptr) {}
  bool passes(const char* name) {
    return !compiled_ || (regexec(compiled_.get(), name) && compiled_->endp[0] > name);
  }

 private:
  std::unique_ptr<regexp> compiled_;
};

struct HelpEntry {
  const char* name;
  const char* text;
};

/// The entries whose names match, sorted without regard to case: name, text or "No documentation
/// provided", an empty line.
void print_help(std::ostream& out, std::span<const HelpEntry> entries, const char* expression);

template <class V>
void print_help(std::ostream& out, const NameTable<V>& table, const char* expression) {
  std::vector<HelpEntry> entries;
  table.for_each([&](const auto& entry) { entries.push_back({entry.key, entry.text}); });
  print_help(out, std::span<const HelpEntry>(entries), expression);
}

}  // namespace torvane
