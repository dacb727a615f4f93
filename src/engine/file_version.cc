#include "engine/file_version.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <vector>

namespace torvane {
namespace {

/// FNV-1a.
class Fingerprint {
 public:
  void add(std::string_view bytes) {
    for (char c : bytes) {
      value_ ^= static_cast<unsigned char>(c);
      value_ *= 0x100000001b3U;
    }
  }
  void add_number(std::uint64_t number) {
    for (int shift = 0; shift < 64; shift += 8) {
      const char byte = static_cast<char>(number >> shift & 0xff);
      add({&byte, 1});
    }
  }
  std::uint64_t value() const { return value_; }
  std::string text() const {
    std::array<char, 17> digits;
    std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(value_));
    return digits.data();
  }

 private:
  std::uint64_t value_ = 0xcbf29ce484222325U;
};

std::uint64_t version_of_file(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  Fingerprint fingerprint;
  std::array<char, 1 << 16> block;
  while (in.read(block.data(), block.size()) || in.gcount() > 0)
    fingerprint.add({block.data(), static_cast<std::size_t>(in.gcount())});
  return fingerprint.value();
}

}  // namespace

std::string version_of_text(std::string_view text) {
  Fingerprint fingerprint;
  fingerprint.add(text);
  return fingerprint.text();
}

std::string version_of(const std::set<std::string>& files) {
  std::vector<std::uint64_t> versions;
  versions.reserve(files.size());
  for (const std::string& file : files) versions.push_back(version_of_file(file));
  std::sort(versions.begin(), versions.end());
  // One file may be found by two names.
  versions.erase(std::unique(versions.begin(), versions.end()), versions.end());
  Fingerprint all;
  for (std::uint64_t version : versions) all.add_number(version);
  return all.text();
}

}  // namespace torvane
