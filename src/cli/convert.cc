// torvane convert: trees from one format into another.
#include <CLI/CLI.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/input.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "formats/format.h"
#include "sources/sources.h"

namespace torvane {
namespace {

struct ConvertOptions {
  std::vector<std::string> files;
  std::string to = "tree", output;
};

int convert(const ConvertOptions& options) {
  catch_interrupts();
  Input input(options.files);
  Output output(options.output);
  const std::unique_ptr<Source> source = make_tree_source(input);
  const Format& format = *find_format(options.to);
  Task task;
  for (std::uint64_t number = 1; !output.is_shut() && source->next(task); ++number) {
    if (task.read->id.empty()) task.read->id = std::to_string(number);
    format.write(output.buffer, *task.read);
    output.flush(!input.is_waiting());
  }
  output.flush(true);
  if (is_interrupted()) end_by_interrupt();
  return input.failed() || input.has_faults() || output.failed() ? kInputOutput : kDone;
}

}  // namespace

std::function<int()> declare_convert(CLI::App& app) {
  auto options = std::make_shared<ConvertOptions>();
  std::vector<std::string> formats;
  for (const Format& format : all_formats()) formats.emplace_back(format.name);
  app.add_option("FILE", options->files, "CoNLL-U files; none, or -: standard input")->take_all();
  app.add_option("--to", options->to, "What is written")
      ->check(CLI::IsMember(formats))
      ->capture_default_str();
  app.add_option("-o,--output", options->output, "File to write; none, or -: standard output");
  return [options] { return convert(*options); };
}

}  // namespace torvane
