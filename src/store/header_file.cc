#include "store/header_file.h"

#include "shell/file_search.h"
#include "support/text.h"

namespace torvane {

HeaderFile::HeaderFile(FileSearch& files, const char* name, bool double_byte)
    : stream_(files.open(name)),
      directory_(files.found_dir()),
      tokens_(" \t\n\r", ";,", ";,", "\"", '\\', ';', 4096, 512, double_byte) {
  if (stream_) tokens_.set_input(stream_.get());
}

bool HeaderFile::next(std::string& token) {
  const char* text = tokens_.next_significant_token();
  if (!text) return false;
  token.assign(text, tokens_.token_length());
  if (token.empty() || token[0] != '"') return !token.empty();
  token.erase(0, 1);
  if (!token.empty() && token.back() == '"') token.pop_back();
  return true;
}

bool HeaderFile::next_number(long& number) {
  std::string token;
  return next(token) && scan_long(token.c_str(), number);
}

bool HeaderFile::next(StoreHeader& store) {
  std::string name, third;
  // Kept: short-header-is-silent
  if (!next(name) || !next_number(store.block_size) || !next(third)) return false;
  // A store may have the name.
  if (!scan_long(third.c_str(), store.buckets)) {
    if (name != "shards") return false;
    store.stores = store.block_size;
    name = third;
    if (!next_number(store.block_size) || !next_number(store.buckets)) return false;
  }
  store.path = path_of(name);
  next(store.comparison);
  return true;
}

std::string HeaderFile::path_of(const std::string& name) const {
  return name[0] == kDirSeparator ? name : directory_ + name;
}

}  // namespace torvane
