// For tests: whole files, and a folder that goes with its owner.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace torvane {

inline std::string bytes_of(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}
inline void write_bytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

class ScratchFolder {
 public:
  ScratchFolder() {
    // In memory if there is such a folder: the tests of stores flush to the device at each step.
    std::filesystem::path base = "/dev/shm";
    if (access(base.c_str(), W_OK) != 0) base = std::filesystem::temp_directory_path();
    path_ = (base / "torvane-XXXXXX").string();
    if (!mkdtemp(path_.data())) std::abort();
  }
  ~ScratchFolder() { std::filesystem::remove_all(path_); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  /// The path of a file in it.
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  void write(const char* name, const std::string& bytes) const { write_bytes(*this / name, bytes); }

 private:
  std::string path_;
};

}  // namespace torvane
