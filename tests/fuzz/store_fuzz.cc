// A disk hash of any bytes behind a header that passes. The first byte of the input says how many
// buckets there are, the second how large a block is, the third where the list of free extents is;
// bucket heads and records follow.
#include "fuzz_input.h"
#include "store/qhash.h"
#include "support/big_endian.h"
#include "support/scratch_folder.h"

namespace torvane {
namespace {

std::string word(std::uint32_t n) {
  char four[4];
  store_be32(four, n);
  return {four, 4};
}

std::string make_store(const std::string& bytes) {
  auto byte = [&](int i) { return static_cast<unsigned char>(bytes[i]); };
  std::uint32_t buckets = byte(0) % 16 + 1, block = (byte(1) % 32 + 1) * 4;
  std::string rest = bytes.substr(3);
  std::string heads = rest.substr(0, 4 * buckets);
  heads.resize(4 * buckets);
  std::string records = rest.substr(std::min<std::size_t>(rest.size(), 4 * buckets));
  records.resize((records.size() + block - 1) / block * block);
  std::string area = word(buckets) + heads + word(6) + "strcmpss";
  std::uint32_t end = static_cast<std::uint32_t>(12 + area.size() + records.size());
  return word(end) + word(byte(2) * 4) + word(block) + area + records;
}

void use(QHash& hash) {
  StrBufs buf;
  for (const char* key : {"", "a", "dog"}) hash.find(key, buf);
  hash.print_profile(4);
  for (std::uint32_t i = 0; i < hash.bucket_count(); ++i) {
    std::uint32_t pos = hash.get_bucket(i);
    hash.read_record(pos, buf);
    hash.update(pos, "dog\0wolf", 8, 0, false);
    hash.release(pos, 0);
  }
  std::string large("dog\0", 4);
  large.resize(500);
  hash.insert(large.data(), large.size());
  hash.write_record(0, large.data(), large.size());
  hash.sort_links();
}

}  // namespace

void read_input(const std::string& bytes) {
  static const ScratchFolder scratch;
  if (bytes.size() < 3) return;
  scratch.write("store.db", make_store(bytes));
  for (OpenMode mode : {OpenMode::read, OpenMode::write}) {
    QHash hash(world().objects, mode);
    hash.open_file((scratch / "store.db").c_str(), 0, 0, nullptr);
    if (hash.is_open()) use(hash);
  }
}

}  // namespace torvane
