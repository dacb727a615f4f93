// The header of a store: a small text file, found along a search path, that says where the data
// lies and how a new data file is made.
#pragma once

#include <string>

#include "shell/tokenizer.h"

namespace torvane {

class FileSearch;

/// What a header says.
struct StoreHeader {
  std::string path;  ///< of the data file, or of the first of several
  long stores = 1;
  long block_size = 0;
  long buckets = 0;
  std::string comparison;  ///< empty if there is none
};

class HeaderFile {
 public:
  /// Opens the file of this name. It is not open after a message.
  HeaderFile(FileSearch& files, const char* name, bool double_byte);

  bool is_open() const { return static_cast<bool>(stream_); }
  /// The next token, without its quotes. False if there is none, or an empty one.
  bool next(std::string& token);
  /// The next token as a number; false if it is none.
  bool next_number(long& number);
  /// Takes `FILE BLOCKSIZE BUCKETS COMPARE`, with `shards N` in front where the stores are several.
  /// False if a name or a number is missing.
  bool next(StoreHeader& store);
  /// Where a data file is that the header names: relative to the header's own folder.
  std::string path_of(const std::string& name) const;

 private:
  Ref<Stream> stream_;
  std::string directory_;  // with a separator at its end, or empty
  Tokenizer tokens_;
};

}  // namespace torvane
