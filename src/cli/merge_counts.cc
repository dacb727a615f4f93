// torvane merge-counts: files of counts in, their sum out.
#include "counts/merge_counts.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/counting.h"
#include "cli/interrupt.h"

namespace torvane {
namespace {

struct MergeOptions {
  std::vector<std::string> files;
  std::string output;
};

int merge(const MergeOptions& options) {
  catch_interrupts();
  const MergeResult result =
      merge_counts(options.files, options.output, scratch_folder_for(options.output), tell_fault);
  if (!result.fault.empty()) tell_fault(result.fault);
  if (is_interrupted()) end_by_interrupt();
  return result.fault.empty() && !result.has_faults ? kDone : kInputOutput;
}

}  // namespace

std::function<int()> declare_merge_counts(CLI::App& app) {
  auto options = std::make_shared<MergeOptions>();
  app.add_option("FILE", options->files, "Files of counts; -: standard input")
      ->required()
      ->take_all();
  app.add_option("-o,--output", options->output, "File to write; none, or -: standard output");
  return [options] { return merge(*options); };
}

}  // namespace torvane
