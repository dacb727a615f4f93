// The ways to take sentences from a text. Each gives one piece of work after the other.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "sources/line_input.h"

namespace torvane {

/// One sentence to be parsed.
struct Task {
  std::string text;
  std::vector<std::string> words;  ///< given words; if there are any, the text is not cut
  std::string id;
  bool starts_paragraph = false;
  bool space_after = true;         ///< the next sentence does not begin without a blank
  std::unique_ptr<Sentence> read;  ///< what a file of trees has of it
};

/// What a parse makes of it.
Sentence parse_task(Engine& engine, const Task& task);
/// The next-best tree of the task that was parsed last; nothing where there is none.
std::optional<Sentence> next_tree(Engine& engine, const Task& task);

class Source {
 public:
  virtual ~Source() = default;
  /// The next sentence; false at the end.
  virtual bool next(Task& task) = 0;
};

/// By the name of `--from`; null if there is none. The engine's grammar finds sentences.
std::unique_ptr<Source> make_source(const std::string& name, LineInput& input, Engine& engine);
/// Trees that were made before: each task has what was read.
std::unique_ptr<Source> make_tree_source(LineInput& input);
/// All names.
std::vector<std::string> source_names();

}  // namespace torvane
