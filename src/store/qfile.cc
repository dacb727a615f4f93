#include "store/qfile.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "shell/file_search.h"
#include "store/page_file.h"
#include "support/big_endian.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

QFile::QFile(OpenMode mode)
    : cached_pages(PageFile::usual_cached_pages()), most_bytes(PageFile::kMostBytes), mode_(mode) {}
QFile::~QFile() = default;

int QFile::open(const char* name, long new_block_size) {
  close();
  auto path = expand_file_name(or_empty(name));
  if (path) file_ = PageFile::open(*path, !read_only(), cached_pages, last_commit);
  if (!file_) return refuse(name);
  data_start_ = kHeaderBytes;
  if (file_->length() > 0) return load_header() ? 1 : refuse(name);
  // Nothing can become of an empty file that may not be written.
  if (read_only()) return refuse(name);
  long size = std::clamp(new_block_size, 32L, static_cast<long>(PageFile::kMostBytes) - 3);
  block_size_ = (static_cast<std::uint32_t>(size) + 3) / 4 * 4;
  end_pos_ = kHeaderBytes;
  dirty_ = true;
  return 0;
}

const std::string& QFile::path() const {
  return file_->path();
}

void QFile::close() {
  file_.reset();
  free_list_.clear();
  block_size_ = end_pos_ = data_start_ = tail_ref_pos_ = unread_list_ = 0;
  dirty_ = full_ = false;
}

int QFile::refuse(const char* name) {
  close();
  messages() << "Can't open " << or_empty(name) << std::endl;
  return 0;
}

bool QFile::complain_of_record() {
  messages() << "Invalid magic number!" << std::endl;
  return false;
}

bool QFile::load_header() {
  char bytes[kHeaderBytes];
  if (!file_->read(0, bytes, sizeof bytes)) return false;
  end_pos_ = load_be32(bytes);
  block_size_ = load_be32(bytes + 8);
  if (block_size_ == 0 || end_pos_ < kHeaderBytes || end_pos_ > file_->length()) return false;
  if (std::uint32_t pos = load_be32(bytes + 4)) find_free_list(pos);
  dirty_ = false;  // that the list's own blocks are free again is no change by itself
  return true;
}

void QFile::find_free_list(std::uint32_t pos) {
  RecordHeader hdr;
  if (!read_header(pos, hdr) || file_->length() - pos - RecordHeader::kBytes < hdr.size) {
    complain_of_record();
    return;
  }
  unread_list_ = pos;
  if (!read_only()) load_free_list();
}

// The list that a file for reading holds is shown as it is, and read when it is to be shown. One
// that space is taken from must not lead into a record.
void QFile::load_free_list() const {
  const std::uint32_t pos = std::exchange(unread_list_, 0);
  RecordHeader hdr;
  read_header(pos, hdr);
  std::string pairs(hdr.size & ~7U, '\0');
  file_->read(pos + RecordHeader::kBytes, pairs.data(), pairs.size());
  std::vector<FreeExtent> extents;
  extents.reserve(pairs.size() / 8);
  std::uint32_t end = kHeaderBytes - 1;
  for (const char* pair = pairs.data(); pair != pairs.data() + pairs.size(); pair += 8) {
    FreeExtent extent{load_be32(pair), load_be32(pair + 4)};
    bool fits = extent.pos > end && extent.length > 0 && extent.pos <= end_pos_ &&
                extent.length <= end_pos_ - extent.pos;
    if (!read_only() && !fits) {
      complain_of_record();
      return;
    }
    end = extent.end();
    extents.push_back(extent);
  }
  free_list_.assign(extents);
  if (hdr.blocks > 0) add_free(pos, hdr.blocks);
}

std::uint32_t QFile::save_free_list() {
  if (free_list_.empty() || read_only()) return 0;
  const std::uint64_t most = (std::uint64_t{kMostBlocks} * block_size_ - RecordHeader::kBytes) / 8;
  RecordHeader hdr;
  std::uint64_t bytes = 8 * std::min<std::uint64_t>(free_list_.count(), most);
  std::uint32_t pos = alloc(static_cast<std::uint32_t>(bytes) + RecordHeader::kBytes, hdr);
  if (pos == 0) return 0;
  // Growth may have added an extent; its pair then reaches into that very extent at worst.
  std::string pairs;
  free_list_.for_each([&](const FreeExtent& extent) {
    char pair[8];
    store_be32(pair, extent.pos);
    store_be32(pair + 4, extent.length);
    if (pairs.size() < 8 * most) pairs.append(pair, sizeof pair);
  });
  hdr.size = static_cast<std::uint32_t>(pairs.size());
  hdr.flags = RecordHeader::kMagic | RecordHeader::kContiguous;
  bool written = write_header(pos, hdr) &&
                 file_->write(pos + RecordHeader::kBytes, pairs.data(), pairs.size());
  return written ? pos : 0;
}

bool QFile::sync_as(std::uint32_t number) {
  if (!is_open() || !dirty_ || read_only()) return true;
  file_->try_again();
  // Kept: sync-leaves-old-lists
  std::uint32_t list_pos = save_free_list();
  bool written = write_word(0, end_pos_) && write_word(4, list_pos) && write_word(8, block_size_);
  if (written && file_->commit(number))
    dirty_ = false;
  else if (list_pos != 0)
    release(list_pos, 0);
  return !dirty_;
}

void QFile::confirm() {
  if (is_open()) file_->confirm();
}

const FreeList& QFile::free_list() const {
  if (unread_list_ != 0) load_free_list();
  return free_list_;
}

void QFile::print_free_list() const {
  messages() << "Free list:";
  free_list().for_each([](const FreeExtent& extent) {
    messages() << " (" << extent.pos << ", " << extent.length << ')';
  });
  messages() << std::endl;
}

std::uint32_t QFile::alloc(std::uint32_t size, RecordHeader& hdr) {
  if (read_only() || !is_open()) return 0;
  hdr.blocks = (size - 1) / block_size_ + 1;
  std::uint64_t bytes = std::uint64_t{hdr.blocks} * block_size_;
  dirty_ = true;
  std::uint32_t pos =
      bytes <= PageFile::kMostBytes ? free_list_.take(static_cast<std::uint32_t>(bytes)) : 0;
  return pos != 0 ? pos : grow(bytes);
}

std::uint32_t QFile::grow(std::uint64_t bytes) {
  std::uint64_t amount = std::max<std::uint64_t>(bytes, kGrowth);
  amount = (amount + block_size_ - 1) / block_size_ * block_size_;
  // Near the limit only what is needed.
  if (end_pos_ + amount > most_bytes) amount = bytes;
  if (end_pos_ + amount > most_bytes) {
    messages() << "The file " << file_->path() << " cannot grow beyond " << most_bytes << " bytes"
               << std::endl;
    full_ = true;
    return 0;
  }
  if (file_->failing() || !file_->clear(end_pos_, static_cast<std::uint32_t>(amount))) return 0;
  std::uint32_t pos = end_pos_;
  end_pos_ += static_cast<std::uint32_t>(amount);
  std::uint32_t rest = pos + static_cast<std::uint32_t>(bytes);
  if (rest < end_pos_) free_list_.append({rest, end_pos_ - rest});
  return pos;
}

bool QFile::extent_is_sound(std::uint32_t pos, std::uint64_t length) const {
  return length > 0 && pos >= data_start_ && pos <= end_pos_ && length <= end_pos_ - pos &&
         !free_list_.overlaps(pos, static_cast<std::uint32_t>(length));
}

void QFile::release(std::uint32_t pos, std::uint32_t blocks) {
  RecordHeader hdr;
  if (blocks == 0 && is_open() && read_header(pos, hdr)) blocks = hdr.blocks;
  free_list();  // what is added goes to a list that is read
  if (add_free(pos, blocks)) dirty_ = true;
}

bool QFile::add_free(std::uint32_t pos, std::uint32_t blocks) const {
  std::uint64_t wide = std::uint64_t{blocks} * block_size_;
  // A wrong extent would offer live records as space.
  if (!is_open() || wide > PageFile::kMostBytes || (!read_only() && !extent_is_sound(pos, wide)))
    return complain_of_record();
  free_list_.add(pos, static_cast<std::uint32_t>(wide));
  return true;
}

bool QFile::read_header(std::uint32_t pos, RecordHeader& hdr) const {
  char bytes[RecordHeader::kBytes];
  if (pos < kHeaderBytes || !file_->read(pos, bytes, sizeof bytes)) return false;
  hdr.load(bytes);
  return hdr.valid();
}

std::uint32_t QFile::extent_end(std::uint32_t pos) const {
  RecordHeader hdr;
  return is_open() && read_header(pos, hdr) ? pos + hdr.blocks * block_size_ : 0;
}

bool QFile::write_header(std::uint32_t pos, const RecordHeader& hdr) {
  char bytes[RecordHeader::kBytes];
  store_be32(bytes, hdr.size);
  store_be16(bytes + 4, static_cast<std::uint16_t>(hdr.blocks));
  store_be16(bytes + 6, hdr.flags);
  return file_->write(pos, bytes, sizeof bytes);
}

bool QFile::write_word(std::uint32_t pos, std::uint32_t word) {
  char bytes[4];
  store_be32(bytes, word);
  return file_->write(pos, bytes, sizeof bytes);
}

bool QFile::read_overflow_ref(std::uint32_t pos, OverflowRef& ovf) const {
  char bytes[OverflowRef::kBytes];
  if (!file_->read(pos, bytes, sizeof bytes)) return false;
  ovf = {load_be32(bytes), load_be32(bytes + 4)};
  return true;
}

bool QFile::reserve(std::uint32_t& pos, std::uint32_t size, RecordHeader& hdr, OverflowRef& ovf) {
  ovf = {};
  if (read_only() || !is_open() || size > PageFile::kMostBytes) return false;
  bool fits = pos == 0 ? alloc_record(pos, size, hdr, ovf) : fit_record(pos, size, hdr, ovf);
  if (!fits) return false;
  hdr.size = size;
  hdr.flags = (hdr.flags & RecordHeader::kContiguous) | RecordHeader::kMagic;
  return write_header(pos, hdr);
}

bool QFile::alloc_overflow(std::uint64_t bytes, RecordHeader& hdr, OverflowRef& ovf) {
  RecordHeader scratch;
  ovf.overflow_pos =
      bytes <= PageFile::kMostBytes ? alloc(static_cast<std::uint32_t>(bytes), scratch) : 0;
  ovf.overflow_blocks = scratch.blocks;
  hdr.flags &= static_cast<std::uint16_t>(~RecordHeader::kContiguous);
  return ovf.overflow_pos != 0;
}

// A primary extent has as many blocks as its header can count; what is larger spills at once.
bool QFile::alloc_record(std::uint32_t& pos, std::uint32_t size, RecordHeader& hdr,
                         OverflowRef& ovf) {
  std::uint64_t most = std::uint64_t{kMostBlocks} * block_size_;
  std::uint32_t wanted = size + RecordHeader::kBytes;
  std::uint32_t place =
      alloc(static_cast<std::uint32_t>(std::min<std::uint64_t>(wanted, most)), hdr);
  if (place == 0) return false;
  if (wanted > most && !alloc_overflow(wanted + OverflowRef::kBytes - most, hdr, ovf)) {
    release(place, hdr.blocks);
    return false;
  }
  pos = place;
  return true;
}

bool QFile::fit_record(std::uint32_t pos, std::uint32_t size, RecordHeader& hdr, OverflowRef& ovf) {
  if (!read_header(pos, hdr)) return complain_of_record();
  std::uint64_t extent = std::uint64_t{hdr.blocks} * block_size_;
  if (!extent_is_sound(pos, extent) || extent < RecordHeader::kBytes) return complain_of_record();
  std::int64_t excess =
      std::int64_t{size} + RecordHeader::kBytes - static_cast<std::int64_t>(extent);
  if (hdr.contiguous() && excess <= 0) return true;
  if (extent < std::uint64_t{2} * (RecordHeader::kBytes + OverflowRef::kBytes))
    return complain_of_record();
  if (hdr.contiguous())
    return alloc_overflow(static_cast<std::uint64_t>(excess) + OverflowRef::kBytes, hdr, ovf);
  auto ref_pos = static_cast<std::uint32_t>(pos + extent - OverflowRef::kBytes);
  return refit_overflow(excess, ref_pos, hdr, ovf);
}

bool QFile::refit_overflow(std::int64_t excess, std::uint32_t ref_pos, RecordHeader& hdr,
                           OverflowRef& ovf) {
  if (!read_overflow_ref(ref_pos, ovf)) return false;
  std::uint64_t room = std::uint64_t{ovf.overflow_blocks} * block_size_;
  if (!extent_is_sound(ovf.overflow_pos, room)) return complain_of_record();
  std::int64_t wanted = excess + OverflowRef::kBytes;
  if (excess > 0 && wanted <= static_cast<std::int64_t>(room)) return true;
  release(ovf.overflow_pos, ovf.overflow_blocks);
  if (excess <= 0) {
    hdr.flags |= RecordHeader::kContiguous;
    return true;
  }
  OverflowRef old = ovf;
  if (alloc_overflow(static_cast<std::uint64_t>(wanted), hdr, ovf)) return true;
  free_list_.take_at(old.overflow_pos, static_cast<std::uint32_t>(room));
  return false;
}

bool QFile::write_payload(std::uint32_t pos, const RecordHeader& hdr, const OverflowRef& ovf,
                          std::uint32_t skip, const char* data, std::uint32_t size) {
  std::uint32_t start = pos + RecordHeader::kBytes + skip;
  if (hdr.contiguous()) return file_->write(start, data, size);
  auto head = static_cast<std::uint32_t>(head_room(hdr)) - skip;
  return file_->write(start, data, head) && write_word(start + head, ovf.overflow_pos) &&
         write_word(start + head + 4, ovf.overflow_blocks) &&
         file_->write(ovf.overflow_pos, data + head, size - head);
}

std::uint32_t QFile::write_record(std::uint32_t pos, const char* data, std::size_t size) {
  if (read_only()) {
    messages() << "Trying to write read-only file!\n";
    return 0;
  }
  RecordHeader hdr;
  OverflowRef ovf;
  if (size > PageFile::kMostBytes || !reserve(pos, static_cast<std::uint32_t>(size), hdr, ovf))
    return 0;
  dirty_ = true;
  return write_payload(pos, hdr, ovf, 0, data, hdr.size) ? pos : 0;
}

std::uint32_t QFile::read_head(std::uint32_t pos, StrBufs& buf, RecordHeader& hdr) {
  if (buf.finished()) buf.reopen();
  bool found = is_open() && read_header(pos, hdr);
  std::int64_t head = hdr.contiguous() ? std::int64_t{hdr.size} : head_room(hdr);
  // A size is believed only as far as the file goes, which for the rest of a spilled record may be
  // anywhere.
  if (found && head >= 0 && head <= hdr.size && hdr.size <= file_->length() &&
      head <= file_->length() - pos - RecordHeader::kBytes) {
    auto count = static_cast<std::uint32_t>(head);
    tail_ref_pos_ = pos + RecordHeader::kBytes + count;
    if (file_->read(pos + RecordHeader::kBytes, buf.extend(count), count)) return count;
  }
  hdr = {};
  return complain_of_record();
}

bool QFile::read_tail(char* dest, std::uint32_t count) {
  OverflowRef ovf;
  return is_open() && read_overflow_ref(tail_ref_pos_, ovf) && ovf.overflow_pos >= data_start_ &&
         count <= std::uint64_t{ovf.overflow_blocks} * block_size_ &&
         file_->read(ovf.overflow_pos, dest, count);
}

std::uint32_t QFile::read_record(std::uint32_t pos, StrBufs& buf) {
  RecordHeader hdr;
  std::uint32_t head = read_head(pos, buf, hdr);
  std::uint32_t tail = hdr.size - head;
  if (tail > 0 && !read_tail(buf.extend(tail), tail)) {
    complain_of_record();
    hdr = {};
  }
  if (!hdr.valid()) buf.reopen();
  buf.finish();
  return hdr.size;
}

}  // namespace torvane
