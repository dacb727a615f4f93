// torvane shards: a corpus in pieces, and the text of one of them.
#include <CLI/CLI.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/command.h"
#include "cli/counting.h"
#include "cli/interrupt.h"
#include "counts/range_input.h"
#include "counts/shard_plan.h"

namespace torvane {
namespace {

struct ShardsOptions {
  std::vector<std::string> corpus;
  std::string from = "text", output, plan;
  std::uint64_t bytes = kShardBytes;
  std::size_t text = 0;
};

int end_with(const std::string& fault, bool has_faults) {
  if (is_interrupted()) end_by_interrupt();
  if (!fault.empty()) tell_fault(fault);
  return fault.empty() && !has_faults ? kDone : kInputOutput;
}

int make_plan(const ShardsOptions& options) {
  std::string fault;
  const std::vector<std::string> files = corpus_files(options.corpus, fault);
  if (!fault.empty()) return end_with(fault, true);
  bool has_faults = false;
  const ShardPlan plan =
      plan_shards(files, options.from, options.bytes, [&](const std::string& message) {
        has_faults = true;
        tell_fault(message);
      });
  WholeFile out(options.output);
  write_plan(plan, out);
  return end_with(out.finish(), has_faults);
}

/// The lines of a shard; what belongs to different ranges is kept apart.
int write_text_of_shard(const ShardsOptions& options) {
  ShardPlan plan;
  const std::string fault = read_shard(options.plan, options.text, plan);
  if (!fault.empty()) return end_with(fault, true);
  const TextUnit unit = unit_of(plan.from);
  RangeInput lines(plan.shards[options.text - 1], unit, tell_fault);
  WholeFile out(options.output);
  bool is_first = true;
  for (std::string line; out.error() == 0 && !is_interrupted() && lines.line(line);) {
    if (unit == TextUnit::paragraph && lines.starts_file() && !is_first) out.write("\n");
    out.write(line);
    out.write("\n");
    is_first = false;
  }
  return is_interrupted() ? end_with("", false) : end_with(out.finish(), lines.has_faults());
}

}  // namespace

std::function<int()> declare_shards(CLI::App& app) {
  auto options = std::make_shared<ShardsOptions>();
  app.add_option("CORPUS", options->corpus, "Files, also .gz, .zst and .bz2, and folders of them")
      ->take_all();
  app.add_option("--from", options->from, "What the corpus holds: text, lines, tokens, conllu")
      ->check(CLI::IsMember(counted_source_names()))
      ->capture_default_str();
  app.add_option("--bytes", options->bytes, "Size of a shard")
      ->check(CLI::Range(std::uint64_t{1}, UINT64_MAX >> 1))
      ->capture_default_str();
  app.add_option("-o,--output", options->output, "File to write; none, or -: standard output");
  CLI::Option* plan = app.add_option("--plan", options->plan, "A plan that was made before");
  app.add_option("--text", options->text, "Write the text of this shard of it")->needs(plan);
  return [options] {
    catch_interrupts();
    if (!options->plan.empty()) return write_text_of_shard(*options);
    if (!options->corpus.empty()) return make_plan(*options);
    tell_fault("no corpus is named");
    return static_cast<int>(kUsage);
  };
}

}  // namespace torvane
