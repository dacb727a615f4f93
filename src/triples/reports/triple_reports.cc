#include "triples/reports/triple_reports.h"

#include "triples/reports/report_commands.h"

namespace torvane {

void register_triple_reports(World& world) {
  register_entry_in_html(world);
  register_entry_comparison(world);
}

}  // namespace torvane
