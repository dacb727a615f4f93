// What the readers of bytes share.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

namespace torvane {

/// What a target does with an input; it aborts where a reader is at fault. The error stream is
/// shut.
void read_input(const std::string& bytes);

/// A folder of this process, removed at its end.
struct Scratch {
  std::filesystem::path path;
  Scratch() {
    std::string pattern = (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
    path = mkdtemp(pattern.data());
  }
  ~Scratch() { std::filesystem::remove_all(path); }
  void write(const char* name, const std::string& bytes) const {
    std::ofstream(path / name, std::ios::binary) << bytes;
  }
};

}  // namespace torvane
