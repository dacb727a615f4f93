#include "cli/serve_options.h"

#include <CLI/CLI.hpp>

namespace torvane {

void declare_serve_options(CLI::App& app, ServeOptions& options) {
  app.add_option("--port", options.port, "Port to listen on; 0: one that is free")
      ->check(CLI::Range(0, 65535))
      ->capture_default_str();
  app.add_option("--host", options.host,
                 "Address to listen on; others than 127.0.0.1 let other machines in")
      ->capture_default_str();
  app.add_option("--grammar", options.grammar.grammar, "Name of a grammar, or a start-up file")
      ->capture_default_str();
  app.add_option("--data", options.grammar.data, "Folder of the grammars");
  app.add_option("--style", options.grammar.style,
                 "Head style of requests that name none: content, where the grammar has it, or "
                 "grammar");
  app.add_option("--max-words", options.grammar.max_words,
                 "A longer sentence is parsed piece by piece")
      ->check(CLI::Range(1, 30000))
      ->capture_default_str();
  app.add_option("-j,--jobs", options.jobs,
                 "Sentences parsed at the same time; 0: one a core of the machine")
      ->check(CLI::Range(0, 256))
      ->capture_default_str();
  app.add_option("--max-bytes", options.max_bytes, "Of a request")
      ->check(CLI::Range(1, 1 << 30))
      ->capture_default_str();
  app.add_option("--max-text", options.max_text, "Words of a request")
      ->check(CLI::Range(1, 100000000))
      ->capture_default_str();
  app.add_option("--max-seconds", options.max_seconds, "That a request may take")
      ->check(CLI::Range(1, 86400))
      ->capture_default_str();
  app.add_option("--max-requests", options.max_requests, "At once")
      ->check(CLI::Range(1, 4096))
      ->capture_default_str();
}

bool read_serve_options(int argc, char** argv, ServeOptions& options) {
  CLI::App app{"See torvane serve --help"};
  declare_serve_options(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    app.exit(error);
    return false;
  }
  return true;
}

}  // namespace torvane
