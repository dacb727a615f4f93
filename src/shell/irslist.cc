#include "shell/irslist.h"

#include <vector>

#include "shell/tokenizer.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

using Cell = Slist<IRSlist*>::Cell;

IRSlist* item_of(const Cell* cell) {
  return Slist<IRSlist*>::value_of(cell);
}

// Visits what a list holds, however deeply nested, in the order of the text and without recursion:
// `item(first)` before each item, then `atom(node)`, or `open(node)` and, behind the node's items,
// `close()`.
template <class Visitor>
void walk(const IRSlist& list, Visitor visitor) {
  struct Place {
    const Cell* cell;  // visited last; null before the first
    const Cell* tail;
  };
  std::vector<Place> enclosing;
  Place place{nullptr, list.items.tail()};
  while (true) {
    if (place.cell == place.tail) {
      if (enclosing.empty()) return;
      place = enclosing.back();
      enclosing.pop_back();
      visitor.close();
      continue;
    }
    visitor.item(place.cell == nullptr);
    place.cell = place.cell ? place.cell->next : place.tail->next;
    const IRSlist& node = *item_of(place.cell);
    if (node.is_atom()) {
      visitor.atom(node);
    } else {
      visitor.open(node);
      enclosing.push_back(place);
      place = {nullptr, node.items.tail()};
    }
  }
}

struct Printer {
  std::string& out;
  void item(bool first) const {
    if (!first) out += ' ';
  }
  void atom(const IRSlist& node) const { append_quoted(out, node.atom, QuoteComma::yes); }
  void open(const IRSlist&) const { out += '('; }
  void close() const { out += ')'; }
};

struct Writer {
  StrBufs& out;
  bool keep_quotes;
  void item(bool first) const {
    if (!first) out.add_char(' ');
  }
  void atom(const IRSlist& node) const {
    std::string text;
    append_quoted(text, node.atom, QuoteComma::yes);
    bool bare = text == node.atom;
    if (bare && (text.empty() || (keep_quotes && node.quoted))) text = '"' + text + '"';
    out.add_string(std::string_view(text));
  }
  void open(const IRSlist&) const { out.add_char('('); }
  void close() const { out.add_char(')'); }
};

struct Copier {
  StrBufs& strings;
  std::vector<IRSlist*> lists;  // the copies of the lists that are open
  void item(bool) const {}
  void atom(const IRSlist& node) const {
    auto copy = std::make_unique<IRSlist>();
    copy->atom = strings.copy(node.atom);
    copy->quoted = node.quoted;
    copy->place = node.place;
    lists.back()->append(std::move(copy));
  }
  void open(const IRSlist& node) {
    auto copy = std::make_unique<IRSlist>();
    copy->place = node.place;
    IRSlist* list = copy.get();
    lists.back()->append(std::move(copy));
    lists.push_back(list);
  }
  void close() { lists.pop_back(); }
};

}  // namespace

IRSlist::IRSlist(IRSlist&& other) noexcept
    : items(std::move(other.items)),
      atom(std::exchange(other.atom, nullptr)),
      quoted(std::exchange(other.quoted, false)),
      place(other.place) {}

IRSlist& IRSlist::operator=(IRSlist&& other) noexcept {
  // What is assigned may stand inside what is replaced.
  IRSlist taken(std::move(other));
  std::swap(items, taken.items);
  std::swap(atom, taken.atom);
  std::swap(quoted, taken.quoted);
  std::swap(place, taken.place);
  return *this;
}

std::unique_ptr<IRSlist> IRSlist::pop_front() {
  return std::unique_ptr<IRSlist>(items.pop_front());
}

void IRSlist::clear() {
  atom = nullptr;
  quoted = false;
  Slist<IRSlist*> doomed = std::move(items);
  while (!doomed.empty()) {
    std::unique_ptr<IRSlist> node(doomed.pop_front());
    doomed.concat_front(std::move(node->items));
  }
}

// A quoted token loses its quotes: the first byte, and the last one, whether or not that is the
// closing one.
void IRSlist::set_atom(const TokenizerBase& tokenizer, char* token) {
  atom = token;
  quoted = tokenizer.opens_quote(static_cast<unsigned char>(*token));
  if (!quoted) return;
  ++atom;
  // Kept: open-string-loses-a-byte
  if (tokenizer.token_length() > 1) token[tokenizer.token_length() - 1] = '\0';
}

namespace {

// The next token of a form, or null. A tokenizer with a separator gives empty tokens at the end.
char* form_token(TokenizerBase& tokenizer) {
  char* token = tokenizer.next_significant_token();
  return token && tokenizer.token_length() == 0 && !tokenizer.more_input ? nullptr : token;
}

}  // namespace

bool IRSlist::read(TokenizerBase& tokenizer, char open, char close) {
  clear();
  char* token = form_token(tokenizer);
  // Kept: stray-parenthesis
  if (!token || *token == close) return false;
  place = tokenizer.place();
  if (*token == open)
    read_list(tokenizer, open, close);
  else
    set_atom(tokenizer, token);
  return true;
}

void IRSlist::read_list(TokenizerBase& tokenizer, char open, char close) {
  Slist<IRSlist*> enclosing;
  IRSlist* list = this;
  // Kept: open-list-is-closed
  while (char* token = form_token(tokenizer)) {
    if (*token == close) {
      if (enclosing.empty()) return;
      list = enclosing.pop_front();
      continue;
    }
    auto* item = new IRSlist;
    item->place = tokenizer.place();
    list->items.append(item);
    if (*token == open) {
      enclosing.prepend(list);
      list = item;
    } else {
      item->set_atom(tokenizer, token);
    }
  }
}

char* IRSlist::peek_str_val() const {
  if (empty()) return nullptr;
  const IRSlist& first = *items.front();
  if (first.is_atom()) return first.atom;
  std::string found = "expecting an atom. This is found instead:\n(";
  walk(first, Printer{found});
  messages() << found + ")\n";
  return nullptr;
}

char* IRSlist::get_str_val() {
  char* text = peek_str_val();
  pop_front();
  return text;
}

char* IRSlist::nth_str_val(int n) const {
  const IRSlist* item = nth(n);
  return item ? item->atom : nullptr;
}

// Kept: number-prefix
long IRSlist::get_long_val() {
  long value = 0;
  if (const char* text = get_str_val())
    scan_long(text, value);
  else
    messages() << "IRSlist::get_long_val expecting a string\n";
  return value;
}

namespace {

float float_of(const char* text) {
  float value = 0;
  if (text)
    scan_float(text, value);
  else
    messages() << "IRSlist::get_float_val expecting a string\n";
  return value;
}

void report_missing(const char* keyword) {
  messages() << "argument " << or_empty(keyword) << " is not found\n";
}

}  // namespace

float IRSlist::get_float_val() {
  return float_of(get_str_val());
}
float IRSlist::nth_float_val(int n) const {
  return float_of(nth_str_val(n));
}

// The cell of a keyword, and the one before it.
Cell* IRSlist::find_keyword(const char* keyword, Cell*& before) const {
  before = items.before_first(
      [&](const IRSlist* item) { return item->atom && same_word(item->atom, keyword); });
  return before ? before->next : nullptr;
}

std::unique_ptr<IRSlist> IRSlist::remove_after(Cell* before) {
  std::unique_ptr<IRSlist> removed(item_of(before->next));
  items.remove_after(before);
  return removed;
}

bool IRSlist::has_keyword(const char* keyword) const {
  Cell* before;
  return find_keyword(keyword, before) != nullptr;
}

bool IRSlist::take_flag(const char* keyword) {
  Cell* before;
  if (!find_keyword(keyword, before)) return false;
  remove_after(before);
  return true;
}

std::unique_ptr<IRSlist> IRSlist::take_keyword_node(const char* keyword, bool optional) {
  Cell* before;
  Cell* cell = find_keyword(keyword, before);
  bool has_value = cell && cell != items.tail();
  if (!has_value && !optional) report_missing(keyword);
  if (cell) remove_after(before);
  return has_value ? remove_after(before) : nullptr;
}

char* IRSlist::take_keyword_str(const char* keyword, bool optional) {
  std::unique_ptr<IRSlist> node = take_keyword_node(keyword, optional);
  return node ? node->atom : nullptr;
}

IRSlist* IRSlist::find_keyword_node(const char* keyword, bool optional) const {
  Cell* before;
  Cell* cell = find_keyword(keyword, before);
  if (cell && cell != items.tail()) return item_of(cell->next);
  if (!optional) report_missing(keyword);
  return nullptr;
}

bool IRSlist::find_keyword_str(const char* keyword, char*& out, bool optional) const {
  IRSlist* node = find_keyword_node(keyword, optional);
  if (node) out = node->atom;
  return node != nullptr;
}

bool IRSlist::find_keyword_long(const char* keyword, long& out, bool optional) const {
  IRSlist* node = find_keyword_node(keyword, optional);
  if (!node) return false;
  if (node->is_list()) {
    messages() << "There must be an integer after " << keyword << '\n';
    return false;
  }
  scan_long(node->atom, out);
  return true;
}

bool IRSlist::find_keyword_float(const char* keyword, float& out, bool optional) const {
  IRSlist* node = find_keyword_node(keyword, optional);
  if (!node) return false;
  if (node->is_list()) {
    messages() << "There must be a number after " << keyword << '\n';
    return false;
  }
  scan_float(node->atom, out);
  return true;
}

void IRSlist::copy_into(const IRSlist& source, StrBufs& strings) {
  IRSlist copy;
  copy.atom = strings.copy(source.atom);
  copy.quoted = source.quoted;
  copy.place = source.place;
  walk(source, Copier{strings, {&copy}});
  *this = std::move(copy);
}

void IRSlist::print(std::ostream& out) const {
  std::string text;
  walk(*this, Printer{text});
  out << text;
}

void IRSlist::print_item(std::ostream& out) const {
  std::string text;
  Printer printer{text};
  if (is_atom()) {
    printer.atom(*this);
  } else {
    printer.open(*this);
    walk(*this, printer);
    printer.close();
  }
  out << text;
}

void IRSlist::to_text(StrBufs& out, bool keep_quotes) const {
  Writer writer{out, keep_quotes};
  if (is_atom()) {
    writer.atom(*this);
  } else {
    writer.open(*this);
    walk(*this, writer);
    writer.close();
  }
}

void get_string_list(World& world, const IRSlist& node, StrBufs& strings, Slist<char*>& out) {
  if (node.is_list()) {
    for (const IRSlist* item : node.items)
      if (item->is_atom()) out.append(strings.copy(item->atom));
    return;
  }
  Ref<Stream> stream = world.input_stream(node.atom);
  if (!stream || !stream->in()) return;
  while (char* line = strings.read_line(*stream->in())) out.append(line);
}

char* next_item(std::istream& stream, StrBufs& strings) {
  using Traits = std::istream::traits_type;
  if (!stream.good()) return nullptr;
  std::streambuf& in = *stream.rdbuf();
  strings.open();
  for (int depth = 0;;) {
    int c = in.sbumpc();
    if (Traits::eq_int_type(c, Traits::eof())) {
      stream.setstate(std::ios::eofbit | std::ios::failbit);
      if (depth > 0) messages() << "next_item: unmatched parenthesis\n";
      strings.abandon();
      return nullptr;
    }
    // Kept: items-know-no-strings
    if (c == '(') ++depth;
    if (depth == 0) continue;
    strings.add_char(Traits::to_char_type(c));
    if (c == ')' && --depth == 0) return strings.finish();
  }
}

char* next_item_in_text(const char*& cursor, StrBufs& strings) {
  while (cursor && *cursor && *cursor != '(') ++cursor;
  if (!cursor || !*cursor) return nullptr;
  int depth = 0;
  for (const char* p = cursor; *p; ++p) {
    if (*p == '(') ++depth;
    if (*p == ')' && --depth == 0) {
      char* item = strings.copy(std::string_view(cursor, static_cast<std::size_t>(p + 1 - cursor)));
      cursor = p;
      return item;
    }
  }
  messages() << "next_item: unmatched parenthesis\n";
  cursor += std::char_traits<char>::length(cursor);
  return nullptr;
}

IRSlistReader::IRSlistReader(bool double_byte) : tokenizer_(Tokenizer::make_default(double_byte)) {}
IRSlistReader::~IRSlistReader() = default;

// Kept: last-atom-unseen
IRSlist* IRSlistReader::current() {
  return tokenizer_->more_input ? &current_ : nullptr;
}

IRSlist* IRSlistReader::next() {
  current_.clear();
  tokenizer_->reset_tokens();
  found_form_ = current_.read(*tokenizer_, '(', ')');
  return current();
}

IRSlist* IRSlistReader::start_string(const char* text) {
  tokenizer_->set_string_input(text, -1);
  return next();
}

IRSlist* IRSlistReader::start_stream(Stream* stream) {
  tokenizer_->set_input(stream);
  return next();
}

}  // namespace torvane
