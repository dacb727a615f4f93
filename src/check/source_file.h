// A file of forms as it is written: all that it holds with its lines, whatever the engine makes of
// it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"

namespace torvane {

/// An atom or a list.
struct SourceForm {
  std::uint32_t line = 1;
  bool is_list = false;
  std::string atom;
  std::vector<SourceForm> items;

  /// The first item's text; empty for an atom, and where a list or nothing stands there.
  std::string_view head() const { return text(0); }
  /// The text of item n; empty where there is no such atom.
  std::string_view text(std::size_t n) const {
    return n < items.size() ? std::string_view(items[n].atom) : std::string_view();
  }
};

struct SourceFile {
  std::string path;
  bool is_lexicon = false;  ///< its forms are entries, not commands
  std::vector<SourceForm> forms;
  Findings shape;  ///< parentheses and quotes that do not meet
};

/// Reads a file; one that cannot be read has no forms.
SourceFile read_source(const std::string& path);

}  // namespace torvane
