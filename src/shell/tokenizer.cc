#include "shell/tokenizer.h"

#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace tags {
const TypeTag tokenizer{"Tokenizer*"};
}

void CharSet::add(const char* chars) {
  for (; chars && *chars; ++chars) add(static_cast<unsigned char>(*chars));
}

TokenizerBase::TokenizerBase(const char* white_chars, const char* start_chars,
                             const char* middle_chars, const char* quote, char escape_char,
                             char comment_char, int token_chunk, int size, bool two_bytes)
    : escape(escape_char),
      comment(comment_char),
      token_buf(token_chunk),
      buffer_size(size < 1 ? 1 : size),
      double_byte(two_bytes),
      token_chunk_(token_chunk) {
  white.add(white_chars);
  middle.add(middle_chars);
  start.add(start_chars);
  if (comment) {
    // A comment is a quote that runs to the end of the line.
    // Kept: comment-swallows-newline
    auto c = static_cast<unsigned char>(comment);
    quote_end[c] = std::make_unique<CharSet>();
    quote_end[c]->add('\n');
    start.add(c);
  }
  start.add(white_chars);
  read_quote_specs(quote);
  classify();
}

TokenizerBase::TokenizerBase(const char* separator_text, int token_chunk, int size, bool two_bytes)
    : separator(or_empty(separator_text)),
      separator_mode(true),
      token_buf(token_chunk),
      buffer_size(size < 1 ? 1 : size),
      double_byte(two_bytes),
      token_chunk_(token_chunk) {}

TokenizerBase::TokenizerBase(const TokenizerBase& other)
    : separator(other.separator),
      separator_mode(other.separator_mode),
      white(other.white),
      middle(other.middle),
      start(other.start),
      escape(other.escape),
      comment(other.comment),
      token_buf(other.token_chunk_),
      buffer_size(other.buffer_size),
      double_byte(other.double_byte),
      token_chunk_(other.token_chunk_),
      byte_class_(other.byte_class_) {
  for (std::size_t c = 0; c < quote_end.size(); ++c)
    if (other.quote_end[c]) quote_end[c] = std::make_unique<CharSet>(*other.quote_end[c]);
}

TokenizerBase::~TokenizerBase() {
  for (LongQuote* marker : long_quotes) delete marker;
}

// Each specification is the byte that opens a quote and those that close it, up to white space;
// with none the opening byte closes too. "^" takes the next byte as it is.
void TokenizerBase::read_quote_specs(const char* specs) {
  auto byte = [](const char* p) { return static_cast<unsigned char>(*p); };
  for (const char* p = or_empty(specs); *p;) {
    unsigned char opener = byte(p++);
    if (white.has(opener)) continue;
    start.add(opener);
    auto closers = std::make_unique<CharSet>();
    if (!*p || white.has(byte(p))) closers->add(opener);
    for (; *p && !white.has(byte(p)); ++p) {
      if (*p == '^' && *++p == '\0') break;
      closers->add(byte(p));
    }
    quote_end[opener] = std::move(closers);
  }
}

void TokenizerBase::classify() {
  for (int i = 0; i < 256; ++i) {
    auto c = static_cast<unsigned char>(i);
    byte_class_[c] =
        static_cast<unsigned char>((c == 0 || start.has(c) ? kEndsWord : 0) |
                                   (middle.has(c) ? kMiddle : 0) | (c >= 128 ? kHigh : 0));
  }
}

void TokenizerBase::need_buffer() {
  if (buffer && buffer_capacity_ >= buffer_size) return;
  buffer = std::make_unique<char[]>(static_cast<std::size_t>(buffer_size));
  buffer_capacity_ = buffer_size;
}

void TokenizerBase::start_input() {
  more_input = true;
  rollback_count = read_pos = buffer_len = 0;
}

bool TokenizerBase::give_first(unsigned char& out) {
  if (buffer_len > 0) {
    out = static_cast<unsigned char>(buffer[0]);
    return true;
  }
  more_input = false;
  out = 255;
  return false;
}

void TokenizerBase::set_string_input(const char* text, long length) {
  rollback_count = 0;
  if (!text) return;
  if (length < 0) length = static_cast<long>(std::strlen(text));
  if (length > INT_MAX) length = INT_MAX;
  buffer = std::make_unique<char[]>(static_cast<std::size_t>(length) + 1);
  std::memcpy(buffer.get(), text, static_cast<std::size_t>(length));
  buffer_capacity_ = static_cast<int>(length);
  buffer_len = buffer_capacity_;
  read_pos = 0;
  more_input = true;
}

void TokenizerBase::reset_tokens() {
  token_buf.reset();
  pushed_back.clear();
}

int TokenizerBase::look_further() {
  unsigned char c;
  return fill(c) ? c : kEnd;
}

void TokenizerBase::put_back(unsigned char c) {
  if (rollback_count == static_cast<int>(rollback.size())) {
    messages() << "Tokenizer cannot rollback more than " << rollback.size() << " characters\n";
    end_process(EXIT_FAILURE);
  }
  rollback[static_cast<std::size_t>(rollback_count++)] = c;
}

char* TokenizerBase::next_token() {
  if (!pushed_back.empty()) {
    char* token = pushed_back.pop_front();
    token_length_ = std::strlen(or_empty(token));
    return token;
  }
  if (separator_mode) return separator_token();
  int c = look();
  if (c == kEnd) return nullptr;
  token_buf.open();
  if (white.has(static_cast<unsigned char>(c))) {
    for (; c != kEnd && white.has(static_cast<unsigned char>(c)); c = look()) {
      token_buf.add_char(static_cast<char>(c));
      take();
    }
    return finish_token();
  }
  auto first = static_cast<unsigned char>(c);
  take();
  token_buf.add_char(static_cast<char>(c));
  if (double_byte && first >= 128) {
    // A character of two bytes is a token by itself.
    int second = look();
    if (second != kEnd && second != 0) {
      take();
      token_buf.add_char(static_cast<char>(second));
    }
    return finish_token();
  }
  if (quote_end[first]) return quoted_token(*quote_end[first]);
  if (!middle.has(first)) take_word();
  return finish_token();
}

// The rest of a word: up to a byte that starts a token. A middle byte stays in a word, but not at
// its end.
void TokenizerBase::take_word() {
  const auto stop = static_cast<unsigned char>(kEndsWord | kMiddle | (double_byte ? kHigh : 0));
  const auto stop_behind_middle = static_cast<unsigned char>(kEndsWord | kMiddle);
  while (true) {
    if (rollback_count == 0) {
      // The bytes at hand in one go.
      int from = read_pos;
      while (read_pos < buffer_len &&
             !(byte_class_[static_cast<unsigned char>(buffer[static_cast<std::size_t>(read_pos)])] &
               stop))
        ++read_pos;
      token_buf.add_bytes(buffer.get() + from, static_cast<std::size_t>(read_pos - from));
    }
    int x = look();
    if (x == kEnd) return;
    auto c = static_cast<unsigned char>(x);
    if (byte_class_[c] & stop & ~kMiddle) return;
    take();
    if (byte_class_[c] & kMiddle) {
      int y = look();
      if (y == kEnd || (byte_class_[static_cast<unsigned char>(y)] & stop_behind_middle)) {
        put_back(c);
        return;
      }
    }
    token_buf.add_char(static_cast<char>(c));
  }
}

char* TokenizerBase::quoted_token(const CharSet& closers) {
  for (int x = look(); x != kEnd && x != 0; x = look()) {
    auto c = static_cast<unsigned char>(x);
    take();
    if (closers.has(c)) {
      token_buf.add_char(static_cast<char>(c));
      if (!closes_other_quote()) break;
    } else if (escape && static_cast<char>(c) == escape) {
      if (!take_escaped()) break;
    } else {
      token_buf.add_char(static_cast<char>(c));
    }
  }
  return finish_token();
}

// Behind an escape: a letter for a control byte, a byte by its decimal value, or the byte itself.
// False if the input ended there.
bool TokenizerBase::take_escaped() {
  int x = look();
  if (x == kEnd || x == 0) return false;
  if (!is_digit(static_cast<char>(x))) {
    take();
    token_buf.add_char(x == 't' ? '\t' : x == 'n' ? '\n' : x == 'r' ? '\r' : static_cast<char>(x));
    return true;
  }
  unsigned value = 0;
  for (; x != kEnd && is_digit(static_cast<char>(x)); x = look()) {
    take();
    value = value * 10 + static_cast<unsigned>(x - '0');
  }
  // Kept: digit-escape-at-end
  if (x == kEnd || x == 0) return false;
  token_buf.add_char(static_cast<char>(value & 0xff));
  return true;
}

// The closing byte just taken was the end of some other pair of markers.
bool TokenizerBase::closes_other_quote() const {
  for (const LongQuote* marker : long_quotes)
    if (token_ends_in(marker->close) && !token_begins_with(marker->open)) return true;
  return false;
}

bool TokenizerBase::token_begins_with(const std::string& text) const {
  return token_buf.object_size() >= text.size() &&
         std::memcmp(token_buf.object(), text.data(), text.size()) == 0;
}

bool TokenizerBase::token_ends_in(const std::string& text) const {
  std::size_t size = token_buf.object_size();
  return size >= text.size() &&
         std::memcmp(token_buf.object() + size - text.size(), text.data(), text.size()) == 0;
}

char* TokenizerBase::finish_token() {
  for (const LongQuote* marker : long_quotes) {
    if (!token_begins_with(marker->open)) continue;
    read_to_close(*marker);
    break;
  }
  return close_token();
}

char* TokenizerBase::close_token() {
  char* token = token_buf.finish();
  token_length_ = token_buf.object_size() - 1;
  return token;
}

void TokenizerBase::read_to_close(const LongQuote& marker) {
  while (!token_ends_in(marker.close)) {
    int c = look();
    if (c == kEnd || c == 0) return;
    take();
    token_buf.add_char(static_cast<char>(c));
  }
}

// A zero byte ends a token too, and is dropped, so that the next token can begin.
char* TokenizerBase::separator_token() {
  token_buf.open();
  for (int c = look(); c != kEnd; c = look()) {
    take();
    if (c == 0) break;
    token_buf.add_char(static_cast<char>(c));
    if (token_ends_in(separator)) break;
  }
  return close_token();
}

// White space before a token of any use: not kept, unless a long quote may begin with it.
void TokenizerBase::skip_white() {
  if (separator_mode || !pushed_back.empty() || !long_quotes.empty()) return;
  for (int c = look(); c != kEnd && white.has(static_cast<unsigned char>(c)); c = look()) take();
}

char* TokenizerBase::next_significant_token() {
  while (true) {
    skip_white();
    char* token = next_token();
    if (!token) return nullptr;
    bool skipped = white.has(static_cast<unsigned char>(*token)) || (comment && *token == comment);
    if (!skipped) return token;
  }
}

std::unique_ptr<Tokenizer> Tokenizer::make_default(bool double_byte) {
  return std::make_unique<Tokenizer>(" \t\n\r", "();", "();,", "\"", '\\', ';', 4096, 512,
                                     double_byte);
}

// A line, or as much of it as the buffer holds; never more, since others may read the stream too.
bool Tokenizer::fill(unsigned char& out) {
  using Traits = std::istream::traits_type;
  place_.word += std::exchange(line_ended_, false);
  read_pos = 0;
  buffer_len = 0;
  std::istream* in = input ? input->in() : nullptr;
  if (in && in->good()) {
    need_buffer();
    std::ostream* tied = in->tie(nullptr);  // what is written does not go out sooner for it
    in->getline(buffer.get(), buffer_size);
    in->tie(tied);
    bool ended = in->eof();
    bool full = !ended && in->fail();
    in->clear();
    buffer_len = static_cast<int>(in->gcount());
    if (full) {
      int c = in->rdbuf()->sbumpc();  // getline kept one byte for a zero
      ended = Traits::eq_int_type(c, Traits::eof());
      if (!ended) buffer[static_cast<std::size_t>(buffer_len++)] = Traits::to_char_type(c);
    } else if (!ended) {
      buffer[static_cast<std::size_t>(buffer_len - 1)] = '\n';
      line_ended_ = counts_lines_ && place_.line() < Place::kMostLines;
    }
    if (ended) in->setstate(std::ios::eofbit | std::ios::failbit);
  } else if (!input) {
    buffer.reset();
  }
  return give_first(out);
}

void Tokenizer::set_input(Stream* stream) {
  input = Ref<Stream>(stream);
  start_input();
}

bool SocketTokenizer::fill(unsigned char& out) {
  read_pos = 0;
  buffer_len = 0;
  if (!no_input) {
    need_buffer();
    ssize_t n;
    do {
      n = ::read(fd, buffer.get(), static_cast<std::size_t>(buffer_size));
    } while (n < 0 && errno == EINTR);
    buffer_len = n < 1 ? 0 : static_cast<int>(n);
  }
  return give_first(out);
}

void SocketTokenizer::set_input(Stream* stream) {
  no_input = !stream || !stream->is_standard() || !stream->in();
  fd = 0;
  start_input();
}

}  // namespace torvane
