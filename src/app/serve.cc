// The service, which `torvane serve` becomes: its arguments were looked at there.
#include <CLI/CLI.hpp>

#include "cli/serve_options.h"
#include "service/server.h"

int main(int argc, char** argv) {
  CLI::App app{"See torvane serve --help"};
  torvane::ServeOptions options;
  torvane::declare_serve_options(app, options);
  CLI11_PARSE(app, argc, argv);
  torvane::ServiceChoice choice;
  choice.grammar = options.grammar;
  choice.host = options.host;
  choice.port = options.port;
  choice.threads = options.jobs;
  choice.limits = {options.max_bytes, options.max_text, options.max_seconds, options.max_requests};
  return torvane::run_service(choice);
}
