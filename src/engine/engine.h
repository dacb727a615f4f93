// A world with all modules in it: what a program holds to load a grammar and to parse with it.
// Engines know nothing of each other; one may be used by any thread, by one at a time.
#pragma once

#include "parser/sentence_tree.h"
#include "shell/world.h"

namespace torvane {

class Engine {
 public:
  /// On the process's own streams.
  Engine();
  explicit Engine(const World::Console& console);

  World& world() { return world_; }
  /// Sets the search path, then runs the start-up file `torvane.lsp` that is found along it.
  void start(const char* data_dir);
  /// Runs the forms of a text.
  void run(const char* text);
  /// Parses a text with the current parser and fills the tree. Without a text or a parser nothing
  /// happens.
  void parse(const char* text, SentenceTree& tree);

 private:
  World world_;
};

}  // namespace torvane
