// Random access by key to a large text dictionary of parenthesised entries, through a hash index in a
// second file that is built at first use and again when the dictionary is newer.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace torvane {

class DictOnDisk {
 public:
  /// Opens what a header file (found along the search path) names; every failure writes its message and
  /// leaves the object not good().
  explicit DictOnDisk(const char* header);
  bool good() const { return good_; }
  /// The entry's text, in an internal buffer that the next call reuses; null if there is none.
  const char* get_entry(const char* key);
  /// Reads the next entry from the dictionary's position; false at its end.
  bool read_entry(std::string& out);
  /// The key of an entry's text; false if it has none.
  bool entry_key(const char* text, std::string& out) const;

 private:
  bool open_header(const char* header);
  bool build_index();
  bool entry_at(std::uint32_t v, const char* key);

  std::string path_;
  std::string index_path_;
  std::ifstream dict_;
  std::ifstream index_;
  char open_char_ = '(';
  char close_char_ = ')';
  std::int32_t table_size_ = 0;
  bool good_ = false;
  std::string text_;
};

}  // namespace torvane
