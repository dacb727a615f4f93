// Tokens out of bytes, driven by character classes that a grammar file gives.
//
// A token may be a run of white characters or a whole comment; readers skip those. All tokens since
// the last reset of `token_buf` stay valid together, so that a form is read without copying its
// atoms.
#pragma once

#include <array>
#include <bitset>
#include <memory>
#include <string>

#include "shell/place.h"
#include "shell/streams.h"
#include "support/slist.h"
#include "support/str_bufs.h"

namespace torvane {

/// A set of bytes: a test is one look-up.
class CharSet {
 public:
  bool has(unsigned char c) const { return flags_[c]; }
  void add(unsigned char c) { flags_[c] = true; }
  void add(const char* chars);

 private:
  std::array<bool, 256> flags_{};
};

/// A pair of markers between which everything is one token.
struct LongQuote {
  std::string open;
  std::string close;
};

class TokenizerBase {
 public:
  /// What a byte read gives at the end of the input: a value apart from all bytes.
  static constexpr int kEnd = -1;

  /// From character classes. `quote` is a row of quote specifications; `escape` and `comment` are
  /// single bytes, 0 for none. `double_byte`: two high bytes are one character.
  TokenizerBase(const char* white, const char* start, const char* middle, const char* quote,
                char escape, char comment, int token_chunk, int buffer_size, bool double_byte);
  /// Separator mode: each token ends with `separator`, which stays in it.
  TokenizerBase(const char* separator, int token_chunk, int buffer_size, bool double_byte);
  /// Classes, quotes and sizes, with a fresh empty input; no pushed back tokens, no long quotes.
  TokenizerBase(const TokenizerBase& other);
  TokenizerBase& operator=(const TokenizerBase&) = delete;

  /// Gets more input: its first byte in `out`, or false at the end, with 255 in `out` and
  /// `more_input` off.
  virtual bool fill(unsigned char& out) = 0;
  virtual ~TokenizerBase();
  /// Takes a stream (null: none) as input, with cleared state. A tokenizer on a descriptor can only
  /// take standard input; any other stream makes its input empty.
  virtual void set_input(Stream* stream) = 0;

  /// The next raw token; null at the end. In separator mode never null: an empty text at the end,
  /// where `more_input` is off.
  char* next_token();
  /// The next token that is neither white nor a comment.
  char* next_significant_token();
  /// Length of the token given last, without its zero byte.
  std::size_t token_length() const { return token_length_; }
  /// Takes a copy of the text as input; a negative length means the text's own. Null only clears
  /// the rolled-back bytes.
  void set_string_input(const char* text, long length);
  /// Gives a token out first at the next call.
  void push_back(char* token) { pushed_back.append(token); }
  /// Clears the tokens given so far.
  void reset_tokens();
  /// Says where the input that is set stands: its first line. Without this it stands nowhere.
  void stand_at(Place first_line) {
    place_ = first_line;
    counts_lines_ = static_cast<bool>(first_line);
    line_ended_ = false;
  }
  /// All of the input stands at one place.
  void stay_at(Place place) {
    place_ = place;
    counts_lines_ = line_ended_ = false;
  }
  /// The input is a file whose lines are counted.
  bool reads_file() const { return counts_lines_; }
  /// Where the token given last ends.
  Place place() const { return place_; }
  bool opens_quote(unsigned char c) const { return quote_end[c] != nullptr; }

  std::string separator;
  bool separator_mode = false;
  CharSet white;
  CharSet middle;
  CharSet start;
  std::array<std::unique_ptr<CharSet>, 256> quote_end;
  char escape = 0;
  char comment = 0;
  Slist<char*> pushed_back;
  StrBufs token_buf;
  std::unique_ptr<char[]> buffer;
  std::array<unsigned char, 10> rollback{};
  int rollback_count = 0;
  int buffer_size;
  int read_pos = 0;
  int buffer_len = 0;
  bool double_byte;
  bool more_input = true;
  Slist<LongQuote*> long_quotes;  // owned

 protected:
  /// Room for a refill of `buffer_size` bytes.
  void need_buffer();
  /// What `fill` gives once it has filled the buffer, or has not.
  bool give_first(unsigned char& out);
  /// Begins with an input of which nothing is read yet.
  void start_input();
  int buffer_capacity_ = 0;
  int token_chunk_;
  Place place_;
  bool counts_lines_ = false;
  bool line_ended_ = false;  // with what is in the buffer

 private:
  enum ByteClass : unsigned char { kEndsWord = 1, kMiddle = 2, kHigh = 4 };

  void classify();  // from the sets: what the word loop must stop at
  void read_quote_specs(const char* specs);
  int look() {  // the next byte, not taken; kEnd at the end
    if (rollback_count > 0) [[unlikely]]
      return rollback[static_cast<std::size_t>(rollback_count - 1)];
    if (read_pos < buffer_len) [[likely]]
      return static_cast<unsigned char>(buffer[static_cast<std::size_t>(read_pos)]);
    return look_further();
  }
  int look_further();
  void take() {  // takes the byte looked at
    if (rollback_count > 0) [[unlikely]]
      --rollback_count;
    else
      ++read_pos;
  }
  void put_back(unsigned char c);
  void skip_white();
  void take_word();
  char* separator_token();
  char* quoted_token(const CharSet& closers);
  bool take_escaped();
  bool closes_other_quote() const;
  char* finish_token();  // long quotes, then the closing zero byte
  char* close_token();
  void read_to_close(const LongQuote& marker);
  bool token_ends_in(const std::string& text) const;
  bool token_begins_with(const std::string& text) const;

  std::array<unsigned char, 256> byte_class_{};
  std::size_t token_length_ = 0;
};

/// Reads a stream, one line at a time, or a text.
class Tokenizer : public TokenizerBase {
 public:
  using TokenizerBase::TokenizerBase;
  Tokenizer(const TokenizerBase& other) : TokenizerBase(other) {}
  /// With the character classes of the configuration language.
  static std::unique_ptr<Tokenizer> make_default(bool double_byte);

  bool fill(unsigned char& out) override;
  void set_input(Stream* stream) override;

  Ref<Stream> input;
};

/// Reads a descriptor with the low-level read call.
class SocketTokenizer : public TokenizerBase {
 public:
  using TokenizerBase::TokenizerBase;
  bool fill(unsigned char& out) override;
  void set_input(Stream* stream) override;

  int fd = 0;
  bool no_input = false;  // a stream without a descriptor was set
};

namespace tags {
extern const TypeTag tokenizer;
}
template <>
struct ValueTraits<TokenizerBase> : TagOf<TokenizerBase, tags::tokenizer> {};

}  // namespace torvane
