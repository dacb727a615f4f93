// An arena of characters with one object under construction.
//
// Objects lie end to end in chunks; a closed object never moves and lives until `reset`, so all
// strings of a stage share one lifetime and go at a stroke. It is also the buffer into which
// records are packed.
#pragma once

#include <bit>
#include <cstdint>
#include <istream>
#include <memory>
#include <string_view>

namespace torvane {

class StrBufs {
 public:
  explicit StrBufs(int chunk_size = 256);
  ~StrBufs();
  /// Takes the objects of the other, which is empty then.
  StrBufs(StrBufs&& other) noexcept;
  StrBufs(const StrBufs&) = delete;
  StrBufs& operator=(const StrBufs&) = delete;

  /// Starts a new object if the last one is closed.
  void open() {
    if (closed_) {
      closed_ = false;
      start_ = next_;
    }
  }
  void add_char(char c) {
    open();
    if (next_ == limit_) grow(1);
    *next_++ = c;
  }
  void add_bytes(const char* bytes, std::size_t n);
  /// Adds the characters of a text, without its zero byte; null adds nothing.
  void add_string(const char* text);
  void add_string(std::string_view text) { add_bytes(text.data(), text.size()); }
  /// Big-endian numbers and zero-terminated texts, for packed records.
  void add_be16(std::uint16_t n);
  void add_be32(std::uint32_t n);
  void add_float(float number) { add_be32(std::bit_cast<std::uint32_t>(number)); }
  void add_text(const char* text);

  /// Adds a zero byte and closes the object; gives its start, valid until `reset`.
  char* finish();
  /// Drops the object under construction.
  void abandon() {
    open();
    next_ = start_;
    closed_ = true;
  }
  /// Opens the last object again, empty, in the same place.
  void reopen() {
    closed_ = false;
    next_ = start_;
  }
  bool finished() const { return closed_; }
  /// Room for `n` more bytes of the object, which the caller fills.
  char* extend(std::size_t n);
  /// Takes the first `n` bytes off the object.
  void drop_front(std::size_t n) { start_ += n; }
  /// Start and length of the object under construction (or the last closed one, with its zero
  /// byte).
  char* object() const { return start_; }
  std::size_t object_size() const { return static_cast<std::size_t>(next_ - start_); }

  /// A closed copy of a text; null stays null.
  char* copy(const char* text);
  char* copy(std::string_view text);
  /// Up to five texts joined, null ones skipped; closed.
  char* concat(const char* a, const char* b, const char* c = nullptr, const char* d = nullptr,
               const char* e = nullptr);
  /// The text as an atom that reads back: as it stands, or in double quotes.
  // Part of the interface; nothing in the engine calls it yet.
  char* quote(const char* atom);
  /// One line without its newline; null if the stream has failed.
  char* read_line(std::istream& stream);

  /// Frees every chunk but the oldest, which becomes current and empty.
  void reset();
  /// The objects of each are the other's then; none moves.
  void swap(StrBufs& other) noexcept;
  std::size_t bytes_reserved() const;

 private:
  struct Chunk;
  void grow(std::size_t extra);

  char* start_ = nullptr;
  char* next_ = nullptr;
  char* limit_ = nullptr;
  bool closed_ = true;
  std::size_t chunk_size_;
  Chunk* chunks_ = nullptr;
};

}  // namespace torvane
