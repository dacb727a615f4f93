#include "lex/lexicon/lexicon_files.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "lex/lexicon/dict_on_disk.h"
#include "lex/lexicon/lex_entry.h"
#include "lex/lexicon/offers.h"
#include "lexp/expressions.h"
#include "lexp/form.h"
#include "shell/world.h"

namespace torvane {

std::string item_key(std::string_view item) {
  std::string key;
  bool gap = false;
  for (char c : item.substr(std::min<std::size_t>(1, item.size()))) {
    if (c == '(' || c == ')') break;
    if (is_space(c) || c == '|') {
      gap = true;
      continue;
    }
    if (gap && !key.empty()) key += ' ';
    gap = false;
    key += c;
  }
  return key;
}

Ref<Stream> take_input(World& world, IRSlist* form) {
  bool given = !form->empty();
  const char* name = form->get_str_val();
  return given && !name ? Ref<Stream>() : world.input_stream(name);
}

Ref<Stream> take_output(World& world, IRSlist* form) {
  bool given = !form->empty();
  const char* name = form->get_str_val();
  return given && !name ? Ref<Stream>() : world.make_ostream(name);
}

namespace {

constexpr int kItemChunk = 20000;

/// What stands after the heading, with the closing parenthesis.
std::string_view item_body(std::string_view item) {
  std::size_t end = item.find_first_of("()", 1);
  return end == std::string_view::npos ? std::string_view() : item.substr(end);
}

std::string without_space(std::string_view text) {
  std::string squeezed(text);
  std::erase_if(squeezed, is_space);
  return squeezed;
}

/// The entries of a file one by one, as text.
class ItemReader {
 public:
  explicit ItemReader(Ref<Stream> stream) : stream_(std::move(stream)) {}
  /// Goes to the next item; false at the end.
  bool next() {
    strings_.reset();
    item_ = stream_->in() ? next_item(*stream_->in(), strings_) : nullptr;
    key_ = item_ ? item_key(item_) : std::string();
    return item_ != nullptr;
  }
  /// Null before the first and after the last item.
  const char* item() const { return item_; }
  const std::string& key() const { return key_; }

 private:
  Ref<Stream> stream_;
  StrBufs strings_{kItemChunk};
  const char* item_ = nullptr;
  std::string key_;
};

int compare_keys(const ItemReader& a, const ItemReader& b) {
  return stricmp(a.key().c_str(), b.key().c_str());
}

/// Calls `visit(sub-list)` for each list inside an item.
template <class Visit>
void each_sub_list(const char* item, Visit visit) {
  StrBufs strings(kItemChunk);
  const char* cursor = item + 1;
  while (const char* sub_list = next_item_in_text(cursor, strings)) visit(sub_list);
}

void write_sub_lists(std::ostream& out, const char* item) {
  each_sub_list(item, [&out](const char* sub_list) { out << ' ' << sub_list << '\n'; });
}

Value sort_lex(World& world, IRSlist* form) {
  Ref<Stream> in = take_input(world, form);
  if (!in || !in->in()) return Value();
  StrBufs strings(kItemChunk);
  Array<const char*> items;
  while (const char* item = next_item(*in->in(), strings)) items.append(item);
  items.sort(stricmp);
  Ref<Stream> out = take_output(world, form);
  if (!out) return Value();
  for (const char* item : items) *out->out() << item << '\n';
  return Value();
}

Value rm_duplicates(World& world, IRSlist* form) {
  Ref<Stream> in = take_input(world, form);
  Ref<Stream> out = in ? take_output(world, form) : in;
  if (!out) return Value();
  ItemReader reader(in);
  std::string previous;
  while (reader.next()) {
    // Kept: rm-duplicates-folds-case
    if (stricmp(previous.c_str(), reader.item()) == 0) continue;
    previous = reader.item();
    *out->out() << previous << '\n';
  }
  return Value();
}

Value merge_entries(World& world, IRSlist* form) {
  Ref<Stream> in = take_input(world, form);
  Ref<Stream> out = in ? take_output(world, form) : in;
  if (!out) return Value();
  ItemReader reader(in);
  reader.next();
  while (reader.item()) {
    std::string key = reader.key();
    *out->out() << '(' << key << '\n';
    std::unordered_set<std::string> written;
    do {
      each_sub_list(reader.item(), [&](const char* sub_list) {
        if (written.insert(sub_list).second) *out->out() << ' ' << sub_list << '\n';
      });
    } while (reader.next() && stricmp(key.c_str(), reader.key().c_str()) == 0);
    *out->out() << " )\n";
  }
  return Value();
}

/// Goes through two sorted files side by side: `both(a, b)` for entries of one key, after which
/// both go on, `only_a(a)` and `only_b(b)` for the others.
template <class Both, class OnlyA, class OnlyB>
void merge_walk(ItemReader& a, ItemReader& b, Both both, OnlyA only_a, OnlyB only_b) {
  a.next();
  b.next();
  while (a.item() || b.item()) {
    int order = !a.item() ? 1 : !b.item() ? -1 : compare_keys(a, b);
    if (order == 0) {
      both(a, b);
      a.next();
      b.next();
    } else if (order < 0) {
      only_a(a);
      a.next();
    } else {
      only_b(b);
      b.next();
    }
  }
}

Value combine_lex(World& world, IRSlist* form) {
  Ref<Stream> first = take_input(world, form);
  Ref<Stream> second = first ? take_input(world, form) : first;
  Ref<Stream> stream = second ? take_output(world, form) : second;
  if (!stream) return Value();
  std::ostream& out = *stream->out();
  ItemReader a(first), b(second);
  auto write = [&out](const ItemReader& reader) { out << reader.item() << '\n'; };
  auto write_both = [&out](const ItemReader& x, const ItemReader& y) {
    out << '(' << x.key() << '\n';
    write_sub_lists(out, x.item());
    write_sub_lists(out, y.item());
    out << " )\n";
  };
  merge_walk(a, b, write_both, write, write);
  return Value();
}

Value update_lex(World& world, IRSlist* form) {
  Ref<Stream> addendum = take_input(world, form);
  Ref<Stream> old = addendum ? take_input(world, form) : addendum;
  Ref<Stream> out = old ? take_output(world, form) : old;
  if (!out) return Value();
  ItemReader a(addendum), b(old);
  a.next();
  b.next();
  while (a.item() || b.item()) {
    int order = !a.item() ? 1 : !b.item() ? -1 : compare_keys(a, b);
    if (order == 0) {
      b.next();  // every old entry of that key goes, before the new one is written
      continue;
    }
    ItemReader& reader = order < 0 ? a : b;
    *out->out() << reader.item() << '\n';
    reader.next();
  }
  return Value();
}

void print_lines(std::ostream& out, const char* mark, std::string_view text) {
  while (!text.empty()) {
    std::size_t end = std::min(text.find('\n'), text.size());
    out << mark << text.substr(0, end) << '\n';
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

Value diff(World& world, IRSlist* form) {
  Ref<Stream> first = take_input(world, form);
  Ref<Stream> second = first ? take_input(world, form) : first;
  Ref<Stream> stream = second ? take_output(world, form) : second;
  if (!stream) return Value();
  std::ostream& out = *stream->out();
  ItemReader a(first), b(second);
  merge_walk(
      a, b,
      [&out](const ItemReader& x, const ItemReader& y) {
        if (without_space(item_body(x.item())) == without_space(item_body(y.item()))) return;
        print_lines(out, "< ", x.item());
        print_lines(out, "> ", y.item());
        out << '\n';
      },
      [&out](const ItemReader& x) {
        print_lines(out, "< ", x.item());
        out << '\n';
      },
      [&out](const ItemReader& y) {
        print_lines(out, "> ", y.item());
        out << '\n';
      });
  return Value();
}

Value select(World& world, IRSlist* form) {
  std::unique_ptr<IRSlist> exp_form = form->pop_front();
  std::unique_ptr<LExp> exp = exp_form ? LExp::get_exp(world, exp_form.get()) : nullptr;
  Ref<Stream> in = exp ? take_input(world, form) : Ref<Stream>();
  Ref<Stream> out = in ? take_output(world, form) : in;
  if (!out) return Value();
  const int text_type = type_id_of<const char*>();
  ItemReader reader(in);
  for (Round round; reader.next(); round.next()) {
    std::string line = reader.item();
    // Kept: select-sees-bars
    std::replace(line.begin(), line.end(), '\n', '|');
    if (holds(*exp, Value::buffer_text(line.c_str()), text_type))
      *out->out() << reader.item() << '\n';
  }
  return Value();
}

Value get_entry(World& world, IRSlist* form) {
  const char* header = form->get_str_val();
  if (!header) return Value();
  DictOnDisk dictionary(world.files, header);
  auto look_up = [&](const IRSlist& word) {
    const char* text = word.is_atom() ? dictionary.get_entry(word.atom) : nullptr;
    if (text) world.out() << text << '\n';
  };
  while (std::unique_ptr<IRSlist> item = form->pop_front()) {
    if (item->is_atom()) look_up(*item);
    for (const IRSlist* word : item->items) look_up(*word);
  }
  return Value();
}

/// Runs the three expressions of `filter-entries` on one entry.
void filter_entry(World& world, LexEntry& entry, const ExpPtr (&tests)[3]) {
  const int entry_type = expressions(world).types.id(type_name_of<LexEntry>());
  Value value = Value::of(&entry);
  if (!passes(tests[0], value, entry_type)) return;
  const Slist<Meaning*> meanings = entry.meanings();
  for (Meaning* meaning : meanings)
    if (entry.meanings().contains(meaning))
      tests[1].eval(entry.meaning_value(meaning), type_id_of<Meaning>());
  tests[2].eval(value, entry_type);
}

Value filter_entries(World& world, IRSlist* form) {
  std::unique_ptr<IRSlist> rules = form->pop_front();
  Ref<Stream> in = rules ? take_input(world, form) : Ref<Stream>();
  Ref<Stream> out = in ? take_output(world, form) : in;
  if (!out) return Value();
  ExpPtr tests[3];
  for (ExpPtr& test : tests)
    if (std::unique_ptr<IRSlist> exp = rules->pop_front()) test = LExp::get_exp(world, exp.get());
  IRSlistReader reader(world.double_byte);
  Round round;
  for (IRSlist* item = reader.start_stream(in.get()); item; item = reader.next()) {
    Heading heading = parse_heading(*item);
    if (heading.key.empty()) continue;
    LexEntry entry;
    entry.key = heading.key;
    read_meanings(world, *item, entry, [&entry](std::unique_ptr<Meaning> meaning) {
      entry.add_meaning(std::move(meaning));
    });
    // Kept: filter-entries-writes-nothing
    filter_entry(world, entry, tests);
    round.next();
  }
  return Value();
}

constexpr Command kLexiconFilesCommands[] = {
    {"sort-lex", sort_lex,
     "(sort-lex source destination) sort the entries in source, the results are stored in "
     "destination."},
    {"rm-duplicates", rm_duplicates,
     "(rm-duplicates source destination) remove the duplicate entries in source, the results are "
     "stored in destination. The source lexicon is assumed to be sorted."},
    {"merge-entries", merge_entries, "(merge-entries <input> <output>) --- merge the entries."},
    {"get-entry", get_entry, "(get-entry dict (word ... word)) --- retrieve words from dict file."},
    {"filter-entries", filter_entries,
     "(filter-entries <rules> <input> <output>) --- modifies the entries."},
    {"combine-lex", combine_lex, "(combine-lex dict1 dict2 new-dict)"},
    {"update-lex", update_lex,
     "(update-lex addendum old-dict new-dict) --- \nnew-dict will consist of entries in addendum "
     "and old-dict entries\nthat are not found in addendum. Both addendum and old-dict are "
     "assumed\nto be sorted"},
    {"diff", diff, "(diff file1 file2 output) --- print different entries in file1 and file2"},
    {"select", select,
     "(select lexp input output) --- select the entries that satisfy the\nexpression lexp and "
     "print it to the output stream."},
};

}  // namespace

constinit const Offer offers::lexicon_files{kLexiconFilesCommands};

}  // namespace torvane
