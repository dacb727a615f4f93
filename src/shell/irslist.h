// A form of the configuration language: an atom or a list of forms.
//
// The accessors below are the whole argument-passing convention of the system: a command takes its
// arguments off its form. A node owns its items, not the texts of its atoms, which are the
// tokenizer's and last until that is reset; whoever keeps a text copies it.
#pragma once

#include <istream>
#include <memory>
#include <ostream>
#include <string>

#include "shell/place.h"
#include "support/pool.h"
#include "support/slist.h"
#include "support/str_bufs.h"

namespace torvane {

class Stream;
class Tokenizer;
class TokenizerBase;
class World;

class IRSlist : public Pooled<IRSlist> {
 public:
  Slist<IRSlist*> items;
  char* atom = nullptr;
  /// The atom stood in quotes in the text (macros keep such atoms whole).
  bool quoted = false;
  /// Where the node stands that was read from a file; in the expansion of a macro, its call.
  Place place;

  IRSlist() = default;
  IRSlist(const IRSlist&) = delete;
  IRSlist(IRSlist&& other) noexcept;
  IRSlist& operator=(IRSlist&& other) noexcept;
  ~IRSlist() { clear(); }

  bool is_atom() const { return atom != nullptr; }
  bool is_list() const { return atom == nullptr; }
  bool empty() const { return items.empty(); }
  int length() const { return items.length(); }
  /// Item n from 0, still owned by the list; null beyond the end.
  IRSlist* nth(int n) const { return items.nth(n); }
  /// The first item, now owned by the caller; null on an empty list.
  std::unique_ptr<IRSlist> pop_front();
  /// Puts an item in front; the list owns it.
  void push_front(std::unique_ptr<IRSlist> item) { items.prepend(item.release()); }
  void append(std::unique_ptr<IRSlist> item) { items.append(item.release()); }
  /// Destroys every item, however deeply nested, without recursion; the atom becomes null.
  void clear();

  /// Reads one form; false at the end of the input or at a closing character.
  bool read(TokenizerBase& tokenizer, char open, char close);
  /// Reads forms as items until there is none.
  void read_list(TokenizerBase& tokenizer, char open, char close);

  /// The first item's text, removed; null (with a message for a list) if it has none.
  char* get_str_val();
  char* peek_str_val() const;
  /// Item n's text; null if absent or a list.
  char* nth_str_val(int n) const;
  long get_long_val();
  float get_float_val();
  // Part of the interface; nothing in the engine calls it yet.
  float nth_float_val(int n) const;

  bool has_keyword(const char* keyword) const;
  bool take_flag(const char* keyword);
  /// The item behind a keyword. A missing keyword or value is reported unless `optional`.
  char* take_keyword_str(const char* keyword, bool optional = true);
  std::unique_ptr<IRSlist> take_keyword_node(const char* keyword, bool optional = true);
  IRSlist* find_keyword_node(const char* keyword, bool optional = true) const;
  bool find_keyword_str(const char* keyword, char*& out, bool optional = true) const;
  bool find_keyword_long(const char* keyword, long& out, bool optional = true) const;
  bool find_keyword_float(const char* keyword, float& out, bool optional = true) const;

  /// Makes this node a deep copy of `source`, with the texts of atoms in `strings`.
  void copy_into(const IRSlist& source, StrBufs& strings);
  /// The items separated by one blank, a nested list in parentheses, atoms through the quoting
  /// rule.
  void print(std::ostream& out) const;
  /// The node itself as `print` would write it as an item.
  void print_item(std::ostream& out) const;
  /// The node as text that reads back, appended without a zero byte. With `keep_quotes` an atom
  /// that stood in quotes stays in quotes.
  void to_text(StrBufs& out, bool keep_quotes = false) const;

 private:
  void set_atom(const TokenizerBase& tokenizer, char* token);
  Slist<IRSlist*>::Cell* find_keyword(const char* keyword, Slist<IRSlist*>::Cell*& before) const;
  std::unique_ptr<IRSlist> remove_after(Slist<IRSlist*>::Cell* before);
};

/// Strings from a node: an atom names an input whose lines they are; a list gives its atoms. Copied
/// into `strings`.
void get_string_list(World& world, const IRSlist& node, StrBufs& strings, Slist<char*>& out);

/// Reads one balanced parenthesised item as text, up to the end of `stream`; null at its end, or
/// after "next_item: unmatched parenthesis". For files too large to be read as forms.
char* next_item(std::istream& stream, StrBufs& strings);
/// The same from a text; the cursor is left on the closing parenthesis.
char* next_item_in_text(const char*& cursor, StrBufs& strings);

/// Reads forms one by one from a text or a stream.
class IRSlistReader {
 public:
  explicit IRSlistReader(bool double_byte);
  ~IRSlistReader();
  /// The next form; null at the end.
  IRSlist* next();
  IRSlist* start_string(const char* text);
  IRSlist* start_stream(Stream* stream);
  /// The form read last; null once the input has ended.
  IRSlist* current();
  /// False where a closing parenthesis stood in the place of a form, which then is empty.
  bool found_form() const { return found_form_; }
  Tokenizer& tokenizer() { return *tokenizer_; }

 private:
  std::unique_ptr<Tokenizer> tokenizer_;
  IRSlist current_;
  bool found_form_ = false;
};

}  // namespace torvane
