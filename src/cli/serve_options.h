// The options of `torvane serve`.
#pragma once

#include <cstddef>
#include <string>

#include "engine/grammar_files.h"

namespace CLI {
class App;
}

namespace torvane {

struct ServeOptions {
  GrammarChoice grammar;
  std::string host = "127.0.0.1";
  int port = 8080;
  std::size_t jobs = 0;  ///< 0: one a core
  std::size_t max_bytes = std::size_t{1} << 20, max_text = 20000, max_seconds = 30,
              max_requests = 256;
};

void declare_serve_options(CLI::App& app, ServeOptions& options);
/// Reads them from a command line of their own; false after a message.
bool read_serve_options(int argc, char** argv, ServeOptions& options);

}  // namespace torvane
