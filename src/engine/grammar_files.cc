#include "engine/grammar_files.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace torvane {
namespace {

namespace fs = std::filesystem;

bool is_file(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

/// The file that the process has mapped where this code is; empty if that cannot be told.
fs::path file_of_this_code() {
  const auto here = reinterpret_cast<std::uintptr_t>(&find_grammar);
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    std::istringstream fields(line);
    std::uintptr_t begin = 0, end = 0;
    char dash = 0;
    fields >> std::hex >> begin >> dash >> end;
    const std::size_t path = line.find('/');
    if (here >= begin && here < end && path != line.npos) return line.substr(path);
  }
  return {};
}

}  // namespace

// `bin/torvane`, `lib/libtorvane.so`, `lib/MACHINE/libtorvane.so`, and beside them
// `share/torvane`.
std::string installed_data() {
  constexpr int kMostFolders = 5;
  std::error_code error;
  fs::path folder = file_of_this_code().parent_path();
  for (int i = 0; i < kMostFolders && folder.has_relative_path(); ++i) {
    folder = folder.parent_path();
    fs::path data = folder / "share" / "torvane";
    if (fs::is_directory(data, error)) return data.string();
  }
  return TORVANE_DATA;
}

GrammarFiles find_grammar(const GrammarChoice& choice) {
  GrammarFiles found;
  const fs::path data = choice.data.empty() ? installed_data() : choice.data;
  const fs::path named = data / choice.grammar / (choice.grammar + ".lsp");
  const bool by_file = choice.grammar.find('/') != std::string::npos ||
                       choice.grammar.ends_with(".lsp") || !is_file(named);
  const fs::path file = by_file ? fs::path(choice.grammar) : named;
  if (!is_file(file)) {
    found.fault = "no grammar " + choice.grammar + " in " + data.string() + ", and no file";
    return found;
  }
  found.files.push_back(file.string());
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  if (by_file) found.folders.push_back(folder.string());
  found.folders.push_back(data.string());
  const fs::path style =
      folder / ("style-" + (choice.style.empty() ? std::string("content") : choice.style) + ".lsp");
  if (is_file(style)) {
    found.files.push_back(style.string());
  } else if (!choice.style.empty() && choice.style != "grammar") {
    found.fault = "the grammar " + choice.grammar + " has no style " + choice.style;
  }
  return found;
}

}  // namespace torvane
