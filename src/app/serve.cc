// The service, which `torvane serve` becomes: its arguments were looked at there.
#include "cli/command.h"
#include "cli/serve_options.h"
#include "service/server.h"

int main(int argc, char** argv) {
  torvane::ServeOptions options;
  if (!torvane::read_serve_options(argc, argv, options)) return torvane::kUsage;
  torvane::ServiceChoice choice;
  choice.grammar = options.grammar;
  choice.host = options.host;
  choice.port = options.port;
  choice.threads = options.jobs;
  choice.limits = {options.max_bytes, options.max_text, options.max_seconds, options.max_requests};
  return torvane::run_service(choice);
}
