#include "triples/triple_reports.h"

#include <utility>

#include "triples/report_commands.h"

namespace torvane {

void register_triple_reports() {
  static bool done = false;
  if (std::exchange(done, true)) return;
  register_entry_in_html();
  register_entry_comparison();
}

}  // namespace torvane
