#include "shell/help.h"

#include "support/array.h"

namespace torvane {

void print_help(std::ostream& out, std::span<const HelpEntry> entries, const char* expression) {
  NameFilter filter(expression);
  Array<HelpEntry> wanted;
  for (const HelpEntry& entry : entries)
    if (filter.passes(entry.name)) wanted.append(entry);
  wanted.sort([](const HelpEntry& a, const HelpEntry& b) { return stricmp(a.name, b.name); });
  for (const HelpEntry& entry : wanted)
    out << entry.name << '\n'
        << (entry.text ? entry.text : "No documentation provided") << '\n'
        << std::endl;
}

}  // namespace torvane
