// A way to write sentences as bytes. What one writes depends on the sentence alone.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "engine/document.h"

namespace torvane {

/// What the formats that draw have to keep to.
struct Page {
  std::size_t width = 100;  ///< in characters
  bool ascii = false;
};

struct Format {
  using Write = void (*)(std::string& out, const Sentence& sentence, const Page& page);
  using Frame = void (*)(std::string& out);

  const char* name;
  const char* what;  ///< for the help page
  Write writer;
  Frame opener = nullptr, closer = nullptr;

  /// Appends the sentence.
  void write(std::string& out, const Sentence& sentence, const Page& page = {}) const {
    writer(out, sentence, page);
  }
  /// Append what stands before the first sentence, and behind the last one.
  void begin(std::string& out) const {
    if (opener) opener(out);
  }
  void end(std::string& out) const {
    if (closer) closer(out);
  }
};

/// All of them.
std::span<const Format> all_formats();
/// By name; null if there is none.
const Format* find_format(std::string_view name);

void write_conllu(std::string& out, const Sentence& sentence, const Page& page = {});
void write_table(std::string& out, const Sentence& sentence, const Page& page = {});
void write_deps(std::string& out, const Sentence& sentence, const Page& page = {});
void write_json(std::string& out, const Sentence& sentence, const Page& page = {});
void write_tree(std::string& out, const Sentence& sentence, const Page& page = {});
void write_brackets(std::string& out, const Sentence& sentence, const Page& page = {});
void write_dot(std::string& out, const Sentence& sentence, const Page& page = {});

void write_arcs(std::string& out, const Sentence& sentence, const Page& page = {});
/// One drawing that stands for itself, with its style.
void write_svg(std::string& out, const Sentence& sentence, const Page& page = {});
/// A part of a page that `begin_html` has begun.
void write_html(std::string& out, const Sentence& sentence, const Page& page = {});
void begin_html(std::string& out);
void end_html(std::string& out);

}  // namespace torvane
