// A way to write sentences as bytes. What one writes depends on the sentence alone.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "engine/document.h"

namespace torvane {

struct Format {
  const char* name;
  const char* what;  ///< for the help page
  /// Appends the sentence.
  void (*write)(std::string& out, const Sentence& sentence);
};

/// All of them.
std::span<const Format> all_formats();
/// By name; null if there is none.
const Format* find_format(std::string_view name);

void write_conllu(std::string& out, const Sentence& sentence);
void write_table(std::string& out, const Sentence& sentence);
void write_deps(std::string& out, const Sentence& sentence);
void write_json(std::string& out, const Sentence& sentence);
void write_tree(std::string& out, const Sentence& sentence);
void write_brackets(std::string& out, const Sentence& sentence);
void write_dot(std::string& out, const Sentence& sentence);

}  // namespace torvane
