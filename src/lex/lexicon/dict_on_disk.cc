#include "lex/lexicon/dict_on_disk.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <string_view>
#include <utility>

#include "shell/file_search.h"
#include "support/big_endian.h"
#include "support/hash.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {
namespace {

// In a slot of the index: the entry itself, not the place of a list. Offsets have 31 bits for it.
constexpr std::uint32_t kSingle = 0x80000000u;

// Most entries fit the first read; a walk through the whole file grows to the second.
constexpr std::size_t kFirstWindow = 512;
constexpr std::size_t kLargeWindow = 65536;

constexpr std::size_t kHeaderLimit = 65536;
constexpr std::size_t kShownText = 100;
constexpr int kProgressStep = 5000;

/// The next blank-separated token of a header; a name in double quotes may hold blanks.
std::string header_token(const std::string& text, std::size_t& pos) {
  constexpr const char* kWhite = " \t\n\r";
  pos = std::min(text.find_first_not_of(kWhite, pos), text.size());
  bool quoted = pos < text.size() && text[pos] == '"';
  if (quoted) {
    ++pos;
    std::size_t end = text.find_first_of("\"\n", pos);
    if (end != std::string::npos && text[end] == '"') {
      std::size_t start = std::exchange(pos, end + 1);
      return text.substr(start, end - start);
    }
  }
  std::size_t end = std::min(text.find_first_of(kWhite, pos), text.size());
  std::size_t start = std::exchange(pos, end);
  return text.substr(start, end - start);
}

bool older(const struct stat& a, const struct stat& b) {
  return std::pair(a.st_mtim.tv_sec, a.st_mtim.tv_nsec) <
         std::pair(b.st_mtim.tv_sec, b.st_mtim.tv_nsec);
}

bool same_file(const std::string& a, const std::string& b) {
  struct stat first, second;
  return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

}  // namespace

bool RandomFile::open(const std::string& path) {
  file_ = Descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status;
  if (file_ && (::fstat(file_.get(), &status) != 0 || !S_ISREG(status.st_mode))) close();
  return is_open();
}

DictOnDisk::DictOnDisk(FileSearch& files, const char* header) {
  if (header && open_dictionary(files, header)) open_index(files, header);
}

bool DictOnDisk::open_dictionary(FileSearch& files, const char* header) {
  Ref<Stream> stream = files.open(header);
  if (!stream || !stream->in()) return false;
  std::string directory = files.found_dir();
  std::string text(kHeaderLimit, '\0');
  stream->in()->read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream->in()->gcount()));

  if (!directory.empty() && directory.back() != kDirSeparator) directory += kDirSeparator;
  std::size_t pos = 0;
  path_ = directory + header_token(text, pos);
  struct stat status;
  if (::stat(path_.c_str(), &status) != 0) {
    messages() << path_ << " does not exist\n";
    return false;
  }
  if (!dict_.open(path_)) {
    // Kept: openning-dictionary
    messages() << "Error openning dictionary " << path_ << '\n';
    return false;
  }
  long size = 0;
  scan_long(header_token(text, pos).c_str(), size);
  bool fits = status.st_size < static_cast<off_t>(kSingle) - 1;
  if (!fits || size < 1 || size >= static_cast<long>(kSingle / 4)) {
    messages() << (fits ? "The table size is out of range: " : "The dictionary is too large: ")
               << path_ << '\n';
    return false;
  }
  table_size_ = static_cast<std::uint32_t>(size);
  index_path_ = directory + header_token(text, pos);
  if (std::string token = header_token(text, pos); !token.empty()) open_char_ = token[0];
  if (std::string token = header_token(text, pos); !token.empty()) close_char_ = token[0];
  return true;
}

void DictOnDisk::open_index(FileSearch& files, const char* header) {
  // An index written over the dictionary or the header would destroy it.
  bool own_file = !same_file(index_path_, path_) &&
                  !same_file(index_path_, files.find(header).value_or(std::string()));
  if (own_file && !index_is_current() && !build_index()) return;
  if (!own_file || !index_.open(index_path_))
    messages() << "Cannot open the index file: '" << index_path_ << "'\n";
}

bool DictOnDisk::index_is_current() const {
  struct stat dict, index;
  if (::stat(path_.c_str(), &dict) != 0 || ::stat(index_path_.c_str(), &index) != 0) return false;
  // What is no file cannot be built anew either: the attempt to open it says so.
  if (!S_ISREG(index.st_mode)) return true;
  return !older(index, dict) && index.st_size >= static_cast<off_t>(table_size_) * 4;
}

bool DictOnDisk::build_index() {
  messages() << "Making Index file " << index_path_ << ". Please wait.\n";
  std::vector<IndexEntry> entries;
  seek(0);
  next_window_ = kLargeWindow;
  std::uint32_t place = 1;
  while (read_entry(text_)) {
    if (entry_key(text_.c_str(), key_)) {
      entries.push_back({string_hash(key_) % table_size_, place});
      if (entries.size() % kProgressStep == 0) messages() << entries.size() << " entries\n";
    }
    place = static_cast<std::uint32_t>(window_offset_ + window_pos_ + 1);
  }
  messages() << entries.size() << " entries\n";
  std::stable_sort(entries.begin(), entries.end(),
                   [](const IndexEntry& a, const IndexEntry& b) { return a.bucket < b.bucket; });
  return write_index(entries);
}

bool DictOnDisk::write_index(const std::vector<IndexEntry>& entries) {
  std::ofstream out(index_path_, std::ios::binary | std::ios::trunc);
  if (!out) {
    messages() << "Cannot open index file " << index_path_ << '\n';
    return false;
  }
  auto put = [&out](std::uint64_t n) {
    char bytes[4];
    store_be32(bytes, static_cast<std::uint32_t>(n));
    out.write(bytes, sizeof bytes);
  };
  auto run_end = [&](std::size_t first) {
    std::size_t i = first;
    while (i < entries.size() && entries[i].bucket == entries[first].bucket) ++i;
    return i;
  };
  std::uint64_t list_offset = std::uint64_t{table_size_} * 4;
  std::size_t next = 0;
  for (std::uint32_t bucket = 0; bucket < table_size_ && out; ++bucket) {
    if (next == entries.size() || entries[next].bucket != bucket) {
      put(0);
      continue;
    }
    std::size_t first = std::exchange(next, run_end(next));
    bool single = next - first == 1;
    put(single ? kSingle | entries[first].place : list_offset);
    if (!single) list_offset += 4 + 4 * (next - first);
  }
  for (std::size_t first = 0; first < entries.size() && out; first = next) {
    next = run_end(first);
    if (next - first == 1) continue;
    for (std::size_t i = first; i < next; ++i) put(entries[i].place);
    put(0);
  }
  out.close();
  if (out && list_offset < kSingle) return true;
  messages() << "The index file cannot be written: " << index_path_ << '\n';
  std::remove(index_path_.c_str());
  return false;
}

void DictOnDisk::seek(std::uint64_t offset) {
  window_offset_ = offset;
  window_size_ = window_pos_ = 0;
  next_window_ = kFirstWindow;
}

bool DictOnDisk::refill() {
  window_offset_ += window_size_;
  window_.resize(std::max(window_.size(), next_window_));
  window_size_ = dict_.read(window_offset_, window_.data(), next_window_);
  window_pos_ = 0;
  next_window_ = std::min(next_window_ * 4, kLargeWindow);
  return window_size_ > 0;
}

int DictOnDisk::next_byte() {
  if (window_pos_ == window_size_ && !refill()) return -1;
  return static_cast<unsigned char>(window_[window_pos_++]);
}

bool DictOnDisk::read_entry(std::string& out) {
  const int open = static_cast<unsigned char>(open_char_);
  const int close = static_cast<unsigned char>(close_char_);
  out.clear();
  int c;
  while ((c = next_byte()) != open)
    if (c < 0) return false;
  int depth = 0;
  do {
    out += static_cast<char>(c);
    if (c == open)
      ++depth;
    else if (c == close)
      --depth;
  } while (depth > 0 && (c = next_byte()) >= 0);
  if (depth == 0) return true;
  messages() << "DictOnDisk::get_entry: unmatched parenthesis\n"
             << std::string_view(out).substr(0, kShownText) << '\n';
  return false;
}

bool DictOnDisk::entry_key(const char* text, std::string& out) const {
  std::string_view rest = text;
  if (!rest.empty() && rest[0] == open_char_) rest.remove_prefix(1);
  while (!rest.empty() && is_space(rest[0])) rest.remove_prefix(1);
  bool quoted = !rest.empty() && rest[0] == '"';
  if (quoted) rest.remove_prefix(1);
  const char ends[] = {open_char_, close_char_};
  std::size_t end = quoted ? rest.find('"') : rest.find_first_of(std::string_view(ends, 2));
  if (end == std::string_view::npos) return false;
  while (!quoted && end > 0 && is_space(rest[end - 1])) --end;
  out = rest.substr(0, end);
  return true;
}

const char* DictOnDisk::get_entry(const char* key) {
  if (!good()) {
    // Kept: not-openned
    messages() << "Dictionary file or index file not openned.\n";
    return nullptr;
  }
  if (!key) return nullptr;
  char slot[4];
  std::uint64_t slot_offset = std::uint64_t{string_hash(key) % table_size_} * 4;
  if (index_.read(slot_offset, slot, sizeof slot) < sizeof slot) return nullptr;
  std::uint32_t word = load_be32(slot);
  if (word == 0) return nullptr;
  Found found = word & kSingle ? entry_at(word & ~kSingle, key) : search_list(word, key);
  return found == Found::yes ? text_.c_str() : nullptr;
}

DictOnDisk::Found DictOnDisk::search_list(std::uint64_t offset, const char* key) {
  char block[128];
  while (std::size_t got = index_.read(offset, block, sizeof block)) {
    for (std::size_t i = 0; i + 4 <= got; i += 4) {
      std::uint32_t place = load_be32(block + i);
      Found found = place ? entry_at(place, key) : Found::no;
      if (!place || found != Found::no) return found;
    }
    if (got < sizeof block) break;
    offset += got;
  }
  return Found::no;
}

DictOnDisk::Found DictOnDisk::entry_at(std::uint32_t place, const char* key) {
  // A place that leads to no entry is no work of ours: the index was damaged, and its lists may be
  // long.
  if (place == 0) return Found::damaged;
  seek(place - 1);
  if (!read_entry(text_)) return Found::damaged;
  bool same = entry_key(text_.c_str(), key_) && stricmp(key_.c_str(), key) == 0;
  return same ? Found::yes : Found::no;
}

}  // namespace torvane
