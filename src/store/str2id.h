// Dense ids of strings, without regard to case: the first string gets 1, and its first spelling
// stays. Records of a store hold such ids in place of strings; the table itself is part of the
// store's global data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "support/array.h"
#include "support/hash.h"
#include "support/str_bufs.h"

namespace torvane {

class Str2Id {
 public:
  explicit Str2Id(int size = 0);

  /// 0 for a null string, and for an unknown one unless `create`.
  int get_id(const char* string, bool create);
  /// Null for id 0; an id that is not there is reported as an array's index is.
  const char* get_string(int id) const;
  /// One above the number of strings.
  int count() const { return strings_.count(); }
  /// Adds the count and all strings to `buf`.
  void pack(StrBufs& buf) const;
  /// Takes the place of what the table held. A string that occurs twice is reported and skipped, so
  /// that later ids are lower by one. False if the bytes end too early; what was there is kept.
  bool unpack(const char*& cursor, const char* end);
  void clear();
  void swap(Str2Id& other) noexcept;
  /// A size for another table that is to hold as much.
  int bucket_count() const { return 1 << bits_; }
  std::size_t bytes_reserved() const;

 private:
  struct Entry {
    const char* string;
    std::uint32_t hash;
    std::uint32_t next;  // id in the same bucket, 0 at the end
  };
  // The low bits of a string's hash are those of its last letters: the product mixes all of them.
  std::uint32_t bucket_of(std::uint32_t hash) const { return int_hash(hash) >> (32 - bits_); }
  int add(const char* string, std::uint32_t hash);
  /// Sorts all strings into 2 to the `bits` buckets.
  void rehash(int bits);

  int bits_ = 0;
  std::vector<std::uint32_t> buckets_;  // ids
  Array<Entry> strings_;                // by id
  StrBufs chars_{4096};
};

}  // namespace torvane
