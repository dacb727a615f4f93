#include "support/str_bufs.h"

#include <cstring>
#include <new>
#include <utility>

#include "support/big_endian.h"
#include "support/pool.h"
#include "support/text.h"

namespace torvane {
struct StrBufs::Chunk {
  Chunk* next;
  std::size_t size;
  char* bytes() { return reinterpret_cast<char*>(this + 1); }
  static Chunk* make(std::size_t size);
  static void drop(Chunk* chunk);

  // Chunks of the usual size are pooled, so that a sentence's texts do not reach the allocator each
  // time.
  static constexpr std::size_t kUsualSize = 4096;
  static constexpr std::size_t usual_words();
};

constexpr std::size_t StrBufs::Chunk::usual_words() {
  return BlockPool::words_for(sizeof(Chunk) + kUsualSize);
}

StrBufs::Chunk* StrBufs::Chunk::make(std::size_t size) {
  static_assert(usual_words() < BlockPool::kSizes);
  void* block =
      size == kUsualSize ? BlockPool::take(usual_words()) : ::operator new(sizeof(Chunk) + size);
  auto* chunk = static_cast<Chunk*>(block);
  chunk->size = size;
  return chunk;
}

void StrBufs::Chunk::drop(Chunk* chunk) {
  if (chunk->size == kUsualSize)
    BlockPool::give(chunk, usual_words());
  else
    ::operator delete(chunk);
}

StrBufs::StrBufs(int chunk_size)
    : chunk_size_(chunk_size < 16 ? 16 : static_cast<std::size_t>(chunk_size)) {}

StrBufs::StrBufs(StrBufs&& other) noexcept
    : start_(std::exchange(other.start_, nullptr)),
      next_(std::exchange(other.next_, nullptr)),
      limit_(std::exchange(other.limit_, nullptr)),
      closed_(std::exchange(other.closed_, true)),
      chunk_size_(other.chunk_size_),
      chunks_(std::exchange(other.chunks_, nullptr)) {}

StrBufs::~StrBufs() {
  while (Chunk* chunk = chunks_) {
    chunks_ = chunk->next;
    Chunk::drop(chunk);
  }
}

// Makes a chunk current that holds the object under construction and at least `extra` more bytes.
void StrBufs::grow(std::size_t extra) {
  std::size_t length = object_size();
  bool whole_chunk = chunks_ && start_ == chunks_->bytes();
  std::size_t size = std::max(chunk_size_, extra);
  if (whole_chunk) {
    size *= 2;
  } else if (length + extra >= size) {
    size += extra + (length > size ? length - size : 0);
  }
  Chunk* fresh = Chunk::make(size);
  fresh->next = chunks_;
  if (length > 0) std::memcpy(fresh->bytes(), start_, length);
  if (whole_chunk) {
    // The object was all that the old chunk held.
    fresh->next = chunks_->next;
    Chunk::drop(chunks_);
  }
  chunks_ = fresh;
  chunk_size_ = size;
  start_ = fresh->bytes();
  next_ = start_ + length;
  limit_ = start_ + size;
}

char* StrBufs::extend(std::size_t n) {
  open();
  if (static_cast<std::size_t>(limit_ - next_) < n) grow(n);
  char* room = next_;
  next_ += n;
  return room;
}

void StrBufs::add_bytes(const char* bytes, std::size_t n) {
  if (n > 0)
    std::memcpy(extend(n), bytes, n);
  else
    open();
}

void StrBufs::add_string(const char* text) {
  if (text)
    add_bytes(text, std::strlen(text));
  else
    open();
}

void StrBufs::add_be16(std::uint16_t n) {
  char bytes[2];
  store_be16(bytes, n);
  add_bytes(bytes, sizeof bytes);
}

void StrBufs::add_be32(std::uint32_t n) {
  char bytes[4];
  store_be32(bytes, n);
  add_bytes(bytes, sizeof bytes);
}

void StrBufs::add_text(const char* text) {
  add_string(text);
  add_char(0);
}

char* StrBufs::finish() {
  add_char(0);
  closed_ = true;
  return start_;
}

char* StrBufs::copy(const char* text) {
  return text ? copy(std::string_view(text)) : nullptr;
}

char* StrBufs::copy(std::string_view text) {
  add_string(text);
  return finish();
}

char* StrBufs::concat(const char* a, const char* b, const char* c, const char* d, const char* e) {
  for (const char* text : {a, b, c, d, e}) add_string(text);
  return finish();
}

char* StrBufs::quote(const char* atom) {
  if (!atom) return nullptr;
  std::string_view text = atom;
  if (!needs_quotes(text, QuoteComma::yes)) return copy(text);
  add_char('"');
  for (char c : text) {
    if (c == '"' || c == '\\') add_char('\\');
    add_char(c);
  }
  add_char('"');
  return finish();
}

char* StrBufs::read_line(std::istream& stream) {
  using Traits = std::istream::traits_type;
  if (!stream.good()) return nullptr;
  open();
  std::streambuf& in = *stream.rdbuf();
  while (true) {
    int c = in.sbumpc();
    if (c == '\n') break;
    if (Traits::eq_int_type(c, Traits::eof())) {
      stream.setstate(std::ios::eofbit | std::ios::failbit);
      break;
    }
    add_char(Traits::to_char_type(c));
  }
  return finish();
}

void StrBufs::reset() {
  closed_ = true;
  if (!chunks_) return;
  while (chunks_->next) {
    Chunk* chunk = chunks_;
    chunks_ = chunk->next;
    Chunk::drop(chunk);
  }
  chunk_size_ = chunks_->size;
  start_ = next_ = chunks_->bytes();
  limit_ = start_ + chunks_->size;
}

void StrBufs::swap(StrBufs& other) noexcept {
  std::swap(start_, other.start_);
  std::swap(next_, other.next_);
  std::swap(limit_, other.limit_);
  std::swap(closed_, other.closed_);
  std::swap(chunk_size_, other.chunk_size_);
  std::swap(chunks_, other.chunks_);
}

std::size_t StrBufs::bytes_reserved() const {
  std::size_t bytes = 0;
  for (Chunk* chunk = chunks_; chunk; chunk = chunk->next) bytes += chunk->size;
  return bytes;
}

}  // namespace torvane
