#include "store/qhash.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <vector>

#include "shell/named_objects.h"
#include "store/header_file.h"
#include "store/page_file.h"
#include "support/hash.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

constexpr std::uint32_t kSizePos = 12;
constexpr std::uint32_t kBucketsPos = 16;

std::uint32_t padded(std::uint32_t pos) {
  return (pos + 3) / 4 * 4;
}

[[noreturn]] void abort_over(const char* what) {
  std::cout.flush();
  messages() << what << std::endl;
  PageFile::settle_all();
  // Kept: validate-aborts
  std::abort();
}

}  // namespace

int QHash::open_header(HeaderFile& header) {
  if (!header.is_open()) return -1;
  close();
  StoreHeader wanted;
  if (!header.next(wanted) || wanted.stores != 1) return 0;
  return open_file(wanted.path.c_str(), wanted.block_size, wanted.buckets,
                   wanted.comparison.empty() ? nullptr : wanted.comparison.c_str());
}

int QHash::open_file(const char* name, long new_block_size, long buckets,
                     const char* function_name) {
  int existing = QFile::open(name, new_block_size);
  if (!file_) return 0;
  std::string function = or_empty(function_name);
  bool sound = existing ? load_file(function) : function_name && start_file(buckets, function_name);
  if (!sound) return refuse(name);
  find_function(function);
  return existing;
}

bool QHash::start_file(long buckets, const char* function_name) {
  std::size_t name_length = std::strlen(function_name);
  constexpr long kMostBuckets = PageFile::kMostBytes / 4;
  if (buckets > kMostBuckets || name_length > PageFile::kMostBytes / 4) return false;
  size_ = static_cast<std::uint32_t>(std::max(buckets, 1L));
  buckets_pos_ = kBucketsPos;
  std::uint64_t name_pos = std::uint64_t{kBucketsPos} + 4 * std::uint64_t{size_} + 4;
  if (name_pos + name_length + 3 > PageFile::kMostBytes) return false;
  auto length = static_cast<std::uint32_t>(name_length);
  auto at = static_cast<std::uint32_t>(name_pos);
  if (!write_word(kSizePos, size_) || !file_->clear(buckets_pos_, 4 * size_) ||
      !write_word(at - 4, length) || !file_->write(at, function_name, length))
    return false;
  // The pad repeats the first letter of the name.
  data_start_ = padded(at + length);
  for (std::uint32_t pad = at + length; pad < data_start_; ++pad)
    // Kept: pad-repeats-a-letter
    if (!file_->write(pad, function_name, 1)) return false;
  end_pos_ = data_start_;
  return true;
}

bool QHash::load_file(std::string& function_name) {
  char word[4];
  if (!file_->read(kSizePos, word, 4)) return false;
  size_ = load_be32(word);
  buckets_pos_ = kBucketsPos;
  if (size_ == 0 || size_ > end_pos_ / 4) return false;
  std::uint32_t name_pos = kBucketsPos + 4 * size_ + 4;
  if (name_pos > end_pos_ || !file_->read(name_pos - 4, word, 4)) return false;
  std::uint32_t length = load_be32(word);
  if (length > end_pos_ - name_pos || padded(name_pos + length) > end_pos_) return false;
  function_name.resize(length);
  if (!file_->read(name_pos, function_name.data(), length)) return false;
  data_start_ = padded(name_pos + length);
  // Space is taken only from a file whose blocks and free extents lie where records do.
  return read_only() || ((end_pos_ - data_start_) % block_size_ == 0 &&
                         (free_list_.empty() || free_list_.front().pos >= data_start_));
}

void QHash::find_function(const std::string& name) {
  auto* found = functions_.find_as<NamedComparison>(name.c_str(), "function", false);
  if (!found) {
    messages() << "The function '" << name << "' is not registered as a named object" << std::endl;
    // Kept: unknown-comparison-ends-the-run
    end_process(1);
  }
  compare_ = found->compare;
}

std::uint32_t QHash::bucket_of(const char* key) const {
  return string_hash(key) % size_;
}

std::uint32_t QHash::get_bucket(std::uint32_t index) const {
  if (!is_open() || index >= size_) return 0;
  std::size_t there;
  const char* head = file_->view(buckets_pos_ + 4 * index, there);  // a head never crosses a page
  return there >= 4 ? load_be32(head) : 0;
}

bool QHash::read_next(std::uint32_t pos, std::uint32_t& next) const {
  char bytes[RecordHeader::kBytes + kNextBytes];
  RecordHeader hdr;
  if (!is_open() || pos < data_start_ || !file_->read(pos, bytes, sizeof bytes)) return false;
  hdr.load(bytes);
  next = load_be32(bytes + RecordHeader::kBytes);
  return hdr.valid();
}

std::uint32_t QHash::find(const char* key, StrBufs& buf) {
  if (!key || !is_open()) return 0;
  buf.reset();
  ChainWalk at(*this, get_bucket(bucket_of(key)));
  while (at.pos() != 0) {
    std::uint32_t next = 0;
    Match match = compare_in_place(at.pos(), key, next);
    if (match != Match::no) {
      if (read_record(at.pos(), buf) < kNextBytes) return 0;
      next = load_be32(buf.object());
      buf.drop_front(kNextBytes);
      if (match == Match::yes || compare_(key, buf.object()) == 0) return at.pos();
      buf.reset();
    }
    at.go_to(next);
  }
  return 0;
}

// Most keys are compared where they lie in the page, so that only the record that is wanted is
// copied; one whose key goes on elsewhere must be copied to be compared.
QHash::Match QHash::compare_in_place(std::uint32_t pos, const char* key,
                                     std::uint32_t& next) const {
  constexpr std::size_t kKeyAt = RecordHeader::kBytes + kNextBytes;
  std::size_t there;
  const char* bytes = file_->view(pos, there);
  if (there <= kKeyAt) return Match::unknown;
  RecordHeader hdr;
  hdr.load(bytes);
  next = load_be32(bytes + RecordHeader::kBytes);
  std::int64_t head = hdr.contiguous() ? std::int64_t{hdr.size} : head_room(hdr);
  std::int64_t shown = std::min(head - kNextBytes, static_cast<std::int64_t>(there - kKeyAt));
  if (!hdr.valid() || shown <= 0 ||
      !std::memchr(bytes + kKeyAt, 0, static_cast<std::size_t>(shown)))
    return Match::unknown;
  return compare_(key, bytes + kKeyAt) == 0 ? Match::yes : Match::no;
}

// Kept: inserted-twice
std::uint32_t QHash::insert(const char* data, std::size_t length) {
  if (read_only() || !is_open() || length > PageFile::kMostBytes - kNextBytes ||
      !std::memchr(data, 0, length))
    return 0;
  std::uint32_t bucket = bucket_of(data);
  std::uint32_t last = 0;
  ChainWalk at(*this, get_bucket(bucket));
  for (; at.pos() != 0; at.next()) last = at.pos();
  if (at.damaged()) return 0;
  RecordHeader hdr;
  OverflowRef ovf;
  std::uint32_t pos = 0;
  if (!reserve(pos, static_cast<std::uint32_t>(length) + kNextBytes, hdr, ovf)) return 0;
  bool written = write_word(pos + RecordHeader::kBytes, 0) &&
                 write_payload(pos, hdr, ovf, kNextBytes, data, hdr.size - kNextBytes);
  std::uint32_t link = last == 0 ? buckets_pos_ + 4 * bucket : last + RecordHeader::kBytes;
  return written && write_word(link, pos) ? pos : 0;
}

std::uint32_t QHash::update(std::uint32_t pos, const char* data, std::size_t length,
                            std::uint32_t next, bool set_next) {
  if (read_only() || !is_open() || length > PageFile::kMostBytes - kNextBytes) return 0;
  RecordHeader hdr;
  OverflowRef ovf;
  if (!reserve(pos, static_cast<std::uint32_t>(length) + kNextBytes, hdr, ovf)) return 0;
  dirty_ = true;
  if (set_next && !write_word(pos + RecordHeader::kBytes, next)) return 0;
  return write_payload(pos, hdr, ovf, kNextBytes, data, hdr.size - kNextBytes) ? pos : 0;
}

void QHash::check_chain(std::uint32_t pos) const {
  ChainWalk at(*this, pos);
  while (at.pos() != 0) {
    std::uint32_t next = 0;
    if (at.pos() >= end_pos_) abort_over("out of bound");
    if (!read_next(at.pos(), next) || !at.advance(next)) abort_over("invalid header");
  }
}

void QHash::check_all() const {
  for (std::uint32_t i = 0; is_open() && i < size_; ++i) check_chain(get_bucket(i));
}

void QHash::print_profile(int max) const {
  if (!is_open()) return;
  std::vector<std::uint32_t> buckets_of(1);  // by length, as far as there are any
  std::uint64_t total = 0;
  for (std::uint32_t i = 0; i < size_; ++i) {
    std::size_t length = 0;
    for (ChainWalk at(*this, get_bucket(i)); at.pos() != 0; at.next()) ++length;
    total += length;
    length = std::min(length, static_cast<std::size_t>(std::max(max, 0)));
    if (length >= buckets_of.size()) buckets_of.resize(length + 1);
    ++buckets_of[length];
  }
  for (long length = 0; length <= max; ++length) {
    auto known = static_cast<std::size_t>(length) < buckets_of.size();
    messages() << "size=" << length << ':'
               << (known ? buckets_of[static_cast<std::size_t>(length)] : 0) << "  ";
    if (length % 5 == 4) messages() << '\n';
  }
  if (max >= 0 && max % 5 != 4) messages() << '\n';
  messages() << "total number of elements = " << total << std::endl;
}

void QHash::sort_links() {
  sort_chains();
  sync();
}

void QHash::sort_chains() {
  if (read_only() || !is_open()) return;
  std::vector<std::uint32_t> chain;
  for (std::uint32_t i = 0; i < size_; ++i) {
    chain.clear();
    ChainWalk at(*this, get_bucket(i));
    for (; at.pos() != 0; at.next()) chain.push_back(at.pos());
    if (at.damaged() || std::is_sorted(chain.begin(), chain.end())) continue;
    std::sort(chain.begin(), chain.end());
    bool written = write_word(buckets_pos_ + 4 * i, chain[0]);
    for (std::size_t k = 0; k < chain.size() && written; ++k)
      written =
          write_word(chain[k] + RecordHeader::kBytes, k + 1 < chain.size() ? chain[k + 1] : 0);
    dirty_ = true;
  }
}

void ChainWalk::next() {
  std::uint32_t next_pos = 0;
  if (hash_.read_next(pos_, next_pos))
    go_to(next_pos);
  else
    give_up();
}

void ChainWalk::go_to(std::uint32_t next_pos) {
  if (!advance(next_pos)) give_up();
}

bool ChainWalk::advance(std::uint32_t next_pos) {
  pos_ = next_pos;
  if (++steps_ == next_mark_) {
    mark_ = pos_;
    next_mark_ *= 2;
    return true;
  }
  return pos_ != mark_ && steps_ <= hash_.end_pos() / hash_.block_size();
}

void ChainWalk::give_up() {
  pos_ = 0;
  damaged_ = true;
  messages() << "Invalid magic number!" << std::endl;
}

}  // namespace torvane
