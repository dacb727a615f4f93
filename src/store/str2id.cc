#include "store/str2id.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "support/messages.h"
#include "support/packed_reader.h"
#include "support/text.h"

namespace torvane {

Str2Id::Str2Id(int size) {
  constexpr int kFewestBits = 4;
  constexpr int kMostBits = 24;
  strings_.append({});
  int bits = kFewestBits;
  while (bits < kMostBits && (1 << bits) < size) ++bits;
  rehash(bits);
}

// Chains stay short however many strings come. The hash of each is kept, so that no string is read
// to find it a new place.
void Str2Id::rehash(int bits) {
  bits_ = bits;
  buckets_.assign(std::size_t{1} << bits, 0);
  for (int id = strings_.count() - 1; id > 0; --id) {
    std::uint32_t& head = buckets_[bucket_of(strings_[id].hash)];
    strings_[id].next = std::exchange(head, static_cast<std::uint32_t>(id));
  }
}

int Str2Id::get_id(const char* string, bool create) {
  if (!string) return 0;
  std::uint32_t hash = string_hash(string);
  for (std::uint32_t id = buckets_[bucket_of(hash)]; id != 0;) {
    const Entry& entry = strings_[static_cast<int>(id)];
    // Kept: first-spelling-stays
    if (entry.hash == hash && stricmp(entry.string, string) == 0) return static_cast<int>(id);
    id = entry.next;
  }
  return create ? add(string, hash) : 0;
}

int Str2Id::add(const char* string, std::uint32_t hash) {
  int id = strings_.count();
  if (static_cast<std::size_t>(id) > buckets_.size()) rehash(bits_ + 1);
  std::uint32_t& head = buckets_[bucket_of(hash)];
  strings_.append({chars_.copy(string), hash, head});
  head = static_cast<std::uint32_t>(id);
  return id;
}

const char* Str2Id::get_string(int id) const {
  return strings_[id].string;
}

void Str2Id::pack(StrBufs& buf) const {
  buf.add_be32(static_cast<std::uint32_t>(count()));
  for (int id = 1; id < count(); ++id) buf.add_text(get_string(id));
}

bool Str2Id::unpack(const char*& cursor, const char* end) {
  clear();
  PackedReader in(cursor, end);
  const std::uint32_t n = in.word();
  for (std::uint32_t i = 1; i < n && in.good(); ++i) {
    const char* string = in.text();
    if (!in.good()) break;
    if (get_id(string, false) == 0)
      add(string, string_hash(string));
    else
      // Kept: duplicate-shifts-ids
      messages() << "Duplicate entry in Str2Id: " << string << std::endl;
  }
  cursor = in.at();
  return in.good();
}

void Str2Id::clear() {
  std::fill(buckets_.begin(), buckets_.end(), 0);
  strings_.resize(1);
  chars_.reset();
}

void Str2Id::swap(Str2Id& other) noexcept {
  std::swap(bits_, other.bits_);
  buckets_.swap(other.buckets_);
  strings_.swap(other.strings_);
  chars_.swap(other.chars_);
}

std::size_t Str2Id::bytes_reserved() const {
  return chars_.bytes_reserved() + static_cast<std::size_t>(strings_.capacity()) * sizeof(Entry) +
         buckets_.capacity() * sizeof buckets_[0];
}

}  // namespace torvane
