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
#include "cli/page.h"
#include "formats/format.h"
#include "sources/sources.h"

namespace torvane {
namespace {

struct ConvertOptions {
  std::vector<std::string> files;
  std::string from = "conllu", to = "tree", output;
  PageChoice page;
};

int convert(const ConvertOptions& options) {
  catch_interrupts();
  Input input(options.files);
  Output output(options.output);
  const std::unique_ptr<Source> source = make_tree_source(options.from, input);
  const Format& format = *find_format(options.to);
  const Page page = page_of(options.page, options.output);
  format.begin(output.buffer);
  Task task;
  for (std::uint64_t number = 1; !output.is_shut() && source->next(task); ++number) {
    if (task.read->id.empty()) task.read->id = std::to_string(number);
    format.write(output.buffer, *task.read, page);
    output.flush(!input.is_waiting());
  }
  format.end(output.buffer);
  output.flush(true);
  if (is_interrupted()) end_by_interrupt();
  return input.failed() || input.has_faults() || output.failed() ? kInputOutput : kDone;
}

}  // namespace

std::function<int()> declare_convert(CLI::App& app) {
  auto options = std::make_shared<ConvertOptions>();
  std::vector<std::string> formats;
  for (const Format& format : all_formats()) formats.emplace_back(format.name);
  app.add_option("FILE", options->files, "Files of trees; none, or -: standard input")->take_all();
  app.add_option("--from", options->from, "What is read: conllu, or trees (tree text)")
      ->check(CLI::IsMember(tree_source_names()))
      ->capture_default_str();
  app.add_option("--to", options->to, "What is written")
      ->check(CLI::IsMember(formats))
      ->capture_default_str();
  app.add_option("-o,--output", options->output, "File to write; none, or -: standard output");
  declare_page(app, options->page);
  return [options] { return convert(*options); };
}

}  // namespace torvane
