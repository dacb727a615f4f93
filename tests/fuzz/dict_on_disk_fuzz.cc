// A disk dictionary and its index of any bytes. The first byte of the input says how many slots the
// table has, the second how much of the rest is the index.
#include "fuzz_input.h"
#include "lex/lexicon/dict_on_disk.h"
#include "support/scratch_folder.h"

namespace torvane {

void read_input(const std::string& bytes) {
  static const ScratchFolder scratch;
  if (bytes.size() < 2) return;
  auto byte = [&](int i) { return static_cast<unsigned char>(bytes[i]); };
  std::string rest = bytes.substr(2);
  std::size_t index_size = rest.size() * byte(1) / 255;
  scratch.write("lex.hdr", "lex.dat " + std::to_string(byte(0)) + " lex.idx ( )");
  scratch.write("lex.dat", rest.substr(index_size));
  std::filesystem::remove(scratch / "lex.idx");
  if (index_size > 0) scratch.write("lex.idx", rest.substr(0, index_size));
  DictOnDisk dictionary(world().files, (scratch / "lex.hdr").c_str());
  for (const char* key : {"", "a", "dog", "give up", "\xff"}) dictionary.get_entry(key);
}

}  // namespace torvane
