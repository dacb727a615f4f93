// A disk dictionary and its index of any bytes. The first byte of the input says how many slots the
// table has, the second how much of the rest is the index.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "lex/dict_on_disk.h"

namespace {

namespace fs = std::filesystem;

/// A folder of this process, removed at its end.
struct Scratch {
  fs::path path;
  Scratch() {
    std::string pattern = (fs::temp_directory_path() / "dict-fuzz-XXXXXX").string();
    path = mkdtemp(pattern.data());
    std::cerr.setstate(std::ios::failbit);
  }
  ~Scratch() { fs::remove_all(path); }
  void write(const char* name, const std::string& bytes) const {
    std::ofstream(path / name, std::ios::binary) << bytes;
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Scratch scratch;
  if (size < 2) return 0;
  std::string rest(reinterpret_cast<const char*>(data) + 2, size - 2);
  std::size_t index_size = rest.size() * data[1] / 255;
  scratch.write("lex.hdr", "lex.dat " + std::to_string(data[0]) + " lex.idx ( )");
  scratch.write("lex.dat", rest.substr(index_size));
  fs::remove(scratch.path / "lex.idx");
  if (index_size > 0) scratch.write("lex.idx", rest.substr(0, index_size));
  torvane::DictOnDisk dictionary((scratch.path / "lex.hdr").c_str());
  for (const char* key : {"", "a", "dog", "give up", "\xff"}) dictionary.get_entry(key);
  return 0;
}
