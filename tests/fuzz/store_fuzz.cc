// A disk hash of any bytes behind a header that passes. The first byte of the input says how many
// buckets there are, the second how large a block is, the third where the list of free extents is;
// bucket heads and records follow.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "store/qhash.h"
#include "support/big_endian.h"

namespace {

namespace fs = std::filesystem;

/// A folder of this process, removed at its end.
struct Scratch {
  fs::path path;
  Scratch() {
    std::string pattern = (fs::temp_directory_path() / "store-fuzz-XXXXXX").string();
    path = mkdtemp(pattern.data());
    std::cerr.setstate(std::ios::failbit);
  }
  ~Scratch() { fs::remove_all(path); }
};

std::string word(std::uint32_t n) {
  char bytes[4];
  torvane::store_be32(bytes, n);
  return {bytes, 4};
}

std::string make_store(const std::uint8_t* data, std::size_t size) {
  std::uint32_t buckets = data[0] % 16 + 1, block = (data[1] % 32 + 1) * 4;
  std::string rest(reinterpret_cast<const char*>(data) + 3, size - 3);
  std::string heads = rest.substr(0, 4 * buckets);
  heads.resize(4 * buckets);
  std::string records = rest.substr(std::min<std::size_t>(rest.size(), 4 * buckets));
  records.resize((records.size() + block - 1) / block * block);
  std::string area = word(buckets) + heads + word(6) + "strcmpss";
  std::uint32_t end = static_cast<std::uint32_t>(12 + area.size() + records.size());
  return word(end) + word(data[2] * 4) + word(block) + area + records;
}

void use(torvane::QHash& hash) {
  torvane::StrBufs buf;
  for (const char* key : {"", "a", "dog"}) hash.find(key, buf);
  hash.print_profile(4);
  for (std::uint32_t i = 0; i < hash.size; ++i) {
    std::uint32_t pos = hash.get_bucket(i);
    hash.read_record(pos, buf);
    hash.update(pos, "dog\0wolf", 8, 0, 0);
    hash.release(pos, 0);
  }
  std::string large("dog\0", 4);
  large.resize(500);
  hash.insert(large.data(), large.size());
  hash.write_record(0, large.data(), large.size());
  hash.sort_links();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Scratch scratch;
  if (size < 3) return 0;
  fs::path path = scratch.path / "store.db";
  std::ofstream(path, std::ios::binary) << make_store(data, size);
  for (int mode : {1, 3}) {
    torvane::QHash hash(mode);
    hash.open_file(path.c_str(), 0, 0, nullptr);
    if (hash.is_open()) use(hash);
  }
  return 0;
}
