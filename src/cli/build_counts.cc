// torvane build-counts: counts in, a database of triples out.
#include "counts/build_counts.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/command.h"
#include "cli/counting.h"
#include "cli/interrupt.h"

namespace torvane {
namespace {

struct BuildOptions {
  std::string counts;
  std::size_t memory = 256;
  BuildChoice choice;
};

int build(const BuildOptions& options) {
  catch_interrupts();
  CountsFile counts(options.counts, tell_fault);
  if (!counts.fault().empty()) {
    tell_fault(counts.fault());
    return kInputOutput;
  }
  BuildChoice choice = options.choice;
  choice.memory = options.memory << 20;
  const std::string fault = build_counts(counts, choice);
  if (is_interrupted()) end_by_interrupt();
  if (!fault.empty()) tell_fault(fault);
  return fault.empty() && !counts.has_faults() ? kDone : kInputOutput;
}

}  // namespace

std::function<int()> declare_build_counts(CLI::App& app) {
  auto options = std::make_shared<BuildOptions>();
  BuildChoice& choice = options->choice;
  app.add_option("COUNTS", options->counts, "File of counts; -: standard input")->required();
  app.add_option("DIR", choice.folder, "Folder that gets the database")->required();
  app.add_option("--min-count", choice.min_count, "Triples that were counted less often are none")
      ->capture_default_str();
  app.add_option("--min-freq", choice.limits.min_freq, "Words that are rarer are left out")
      ->capture_default_str();
  app.add_option("--min-rel-freq", choice.limits.min_rel_freq,
                 "Relations of a word that are rarer are left out")
      ->capture_default_str();
  app.add_option("--min-info", choice.limits.min_info,
                 "With --min-freq: triples with less mutual information are left out")
      ->capture_default_str();
  app.add_option("--min-logl", choice.limits.min_logl,
                 "With --min-freq: triples with less log likelihood are left out")
      ->capture_default_str();
  app.add_option("--memory", options->memory,
                 "Megabytes for sorting; what is more goes to the disk")
      ->check(CLI::Range(1, 1 << 20))
      ->capture_default_str();
  app.add_option("--stores", choice.stores,
                 "Files that the database lies in; 0: as many as it needs")
      ->check(CLI::Range(0, 10000))
      ->capture_default_str();
  return [options] { return build(*options); };
}

}  // namespace torvane
