// torvane count: sentences in, counts of what depends on what out.
#include <CLI/CLI.hpp>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/command.h"
#include "cli/counting.h"
#include "cli/input.h"
#include "cli/interrupt.h"
#include "counts/range_input.h"

namespace torvane {
namespace {

struct CountOptions {
  CountingChoice counting;
  std::vector<std::string> files;
  std::string output, plan;
  std::size_t shard = 0;
  bool quiet = false;
};

/// What the files, or the shard of a plan, hold. In `fault` what is wrong, or nothing.
std::vector<FileRange> ranges_of(const CountOptions& options, std::string& from,
                                 std::string& fault) {
  if (options.plan.empty()) {
    std::vector<FileRange> whole;
    for (const std::string& file : options.files) whole.push_back({file});
    return whole;
  }
  ShardPlan plan;
  fault = read_shard(options.plan, options.shard, plan);
  if (!fault.empty()) return {};
  from = plan.from;
  return plan.shards[options.shard - 1];
}

int count(const CountOptions& options) {
  catch_interrupts();
  CountingChoice choice = options.counting;
  std::string fault;
  std::vector<FileRange> ranges = ranges_of(options, choice.from, fault);
  if (!fault.empty()) {
    tell_fault(fault);
    return kInputOutput;
  }
  Counting counting(choice);
  if (!counting.start()) return kNoGrammar;
  Input standard({});
  RangeInput files(std::move(ranges), unit_of(choice.from), tell_fault);
  const bool reads_files = !options.plan.empty() || !options.files.empty();
  LineInput& input = reads_files ? static_cast<LineInput&>(files) : standard;
  CountSorter counts(counting.memory_bytes(), scratch_folder_for(options.output));
  CountsHeader header = counting.kind();
  if (!counting.count(input, counts, header, [] {})) {
    if (is_interrupted()) end_by_interrupt();
    return kNoGrammar;
  }
  fault = write_counts(options.output, header, *counts.sorted());
  if (counts.error() != 0) fault = std::strerror(counts.error());
  if (!fault.empty()) tell_fault(fault);
  if (!options.quiet) std::cerr << numbers_text(header) << '\n';
  const bool read_all = !files.has_faults() && !standard.failed() && !standard.has_faults();
  return fault.empty() && read_all ? kDone : kInputOutput;
}

}  // namespace

std::function<int()> declare_count(CLI::App& app) {
  auto options = std::make_shared<CountOptions>();
  app.add_option("FILE", options->files,
                 "Files to read, also .gz, .zst and .bz2; none: standard input")
      ->take_all();
  declare_counting(app, options->counting);
  app.add_option("-o,--output", options->output, "File to write; none, or -: standard output");
  CLI::Option* plan =
      app.add_option("--plan", options->plan, "Plan that `torvane shards` made, instead of files");
  app.add_option("--shard", options->shard, "Number of the shard to count")->needs(plan);
  app.add_flag("--quiet", options->quiet, "No summary on standard error");
  return [options] { return count(*options); };
}

}  // namespace torvane
