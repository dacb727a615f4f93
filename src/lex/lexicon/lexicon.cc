#include "lex/lexicon/lexicon.h"

#include <algorithm>
#include <utility>

#include "lex/lexicon/dict_on_disk.h"
#include "shell/tokenizer.h"
#include "shell/world.h"
#include "support/depth.h"
#include "support/messages.h"

namespace torvane {
namespace {

// The tables grow by themselves, so that a size is a hint; one beyond all reason is not taken.
constexpr int kMostBuckets = 1 << 20;

std::size_t bucket_count(int size) {
  return static_cast<std::size_t>(std::clamp(next_prime(size), 1, kMostBuckets));
}

/// A stream of someone else as the input of a tokenizer.
class BorrowedStream : public Stream {
 public:
  explicit BorrowedStream(std::istream& in) { in_ = &in; }
};

template <class Visit>
void each_form(World& world, std::istream& in, Place first_line, Visit visit) {
  Ref<Stream> stream(new BorrowedStream(in));
  IRSlistReader reader(world.double_byte);
  reader.tokenizer().stand_at(first_line);
  for (IRSlist* form = reader.start_stream(stream.get()); form; form = reader.next()) visit(form);
}

}  // namespace

Lexicon::Lexicon(World& its_world, int size) : world_(its_world) {
  entries_.rehash(bucket_count(size));
  not_found_.rehash(bucket_count(size));
}

Lexicon::~Lexicon() = default;

void Lexicon::add_dictionary(std::unique_ptr<DictOnDisk> dictionary) {
  dictionaries_.push_back(std::move(dictionary));
}

LexEntry* Lexicon::find(std::string_view key) const {
  auto it = entries_.find(key);
  return it == entries_.end() ? nullptr : it->second.get();
}

LexEntry* Lexicon::insert(std::unique_ptr<LexEntry> entry) {
  LexEntry* raw = entry.get();
  entries_.emplace(raw->key, std::move(entry));
  return raw;
}

std::unique_ptr<LexEntry> Lexicon::new_entry(const char* key) {
  auto entry = std::make_unique<LexEntry>();
  entry->key = key;
  return entry;
}

LexEntry* Lexicon::make_entry(const char* key, bool search_disk) {
  if (LexEntry* entry = find(key)) return entry;
  LexEntry* entry = search_disk ? load_from_disk(key) : nullptr;
  return entry ? entry : insert(new_entry(key));
}

LexEntry* Lexicon::get_entry(const char* word) {
  if (!word) return nullptr;
  LexEntry* entry = find(word);
  if (!entry) {
    // Kept: not-found-is-remembered
    if (not_found_.contains(std::string_view(word))) return nullptr;
    entry = load_from_disk(word);
    if (!entry) {
      not_found_.emplace(word);
      return nullptr;
    }
  } else if (entry->made_for_phrase) {
    load_from_disk(word);
    entry->made_for_phrase = false;
  }
  entry->stamp = ++clock_;
  if (clock_ > clock_limit) evict();
  return entry;
}

void Lexicon::evict() {
  std::int32_t half = clock_limit / 2;
  for (auto it = entries_.begin(); it != entries_.end();) {
    if (it->second->stamp > half || it->second->is_kept) {
      it->second->stamp -= std::min(half, it->second->stamp);
      ++it;
    } else {
      dropped_.push_back(std::move(it->second));
      it = entries_.erase(it);
    }
  }
  clock_ = half;
  end_dropped();
}

void Lexicon::keep_entries() {
  for (auto& [key, entry] : entries_) entry->is_kept = true;
}

void Lexicon::clear() {
  for (auto& [key, entry] : entries_) dropped_.push_back(std::move(entry));
  entries_.clear();
  not_found_.clear();
  end_dropped();
}

void Lexicon::end_dropped() {
  if (pins_ > 0 || dropped_.empty()) return;
  for (std::unique_ptr<LexEntry>& entry : std::exchange(dropped_, {})) {
    std::uint64_t birth = entry->birth;
    drop(std::move(entry), birth);
  }
}

LexEntry* Lexicon::load_from_disk(const char* key) {
  LexEntry* result = nullptr;
  const LexEntry* known = find(key);
  bool no_dup = !known || !known->made_for_phrase;
  for (const auto& dictionary : dictionaries_) {
    const char* text = dictionary->get_entry(key);
    if (!text) continue;
    // Taken out while in use: a meaning in the entry could load another.
    std::unique_ptr<IRSlistReader> reader = std::move(disk_reader_);
    if (!reader) reader = std::make_unique<IRSlistReader>(world_.double_byte);
    IRSlist* form = reader->start_string(text);
    if (LexEntry* entry = form ? read_entry(form, no_dup) : nullptr) {
      result = entry;
      no_dup = false;
    }
    disk_reader_ = std::move(reader);
  }
  return result;
}

void Lexicon::load(std::istream& in, bool no_dup, Place first_line) {
  each_form(world_, in, first_line, [this, no_dup](IRSlist* form) { read_entry(form, no_dup); });
}

void Lexicon::load_unique(std::istream& in) {
  each_form(world_, in, {}, [this](IRSlist* form) { add_if_absent(form); });
}

LexEntry* Lexicon::add_if_absent(IRSlist* form) {
  Heading heading = parse_heading(*form);
  LexEntry* entry = find(heading.key);
  if (entry && heading.is_phrase && entry->meanings().empty()) entry = nullptr;
  return entry ? entry : read_entry(form, true);
}

LexEntry* Lexicon::read_entry(IRSlist* form, bool no_dup) {
  Heading heading = parse_heading(*form);
  const PlaceScope here(world_.places, form->place);
  if (heading.key.empty() || (heading.is_phrase && !heading.check_length())) return nullptr;
  LexEntry* entry = find(heading.key);
  if (entry && no_dup) {
    messages() << "Duplicate entry: " << heading.key << '\n';
    return entry;
  }
  Pin pin(*this);
  if (!entry) entry = insert(new_entry(heading.key.c_str()));
  entry->made_for_phrase = false;
  read_meanings(world_, *form, *entry, [this, entry](std::unique_ptr<Meaning> meaning) {
    add_meaning(std::move(meaning), entry);
  });
  if (heading.is_phrase && !heading.first.empty()) {
    LexEntry* head = find(heading.first);
    if (!head) {
      head = make_entry(heading.first.c_str(), false);
      head->made_for_phrase = true;
    }
    head->add_phrase(heading);
  }
  return entry;
}

bool Lexicon::add_meaning(std::unique_ptr<Meaning> meaning, LexEntry* entry) {
  if (check_meanings)
    for (const Meaning* known : entry->meanings())
      if (known->compare(meaning.get()) == Subsumption::equal) return false;
  entry->add_meaning(std::move(meaning));
  return true;
}

template <class Visit>
void Lexicon::each_reading(const char* word, Visit visit) {
  // The condition of an ending may look a word up.
  static thread_local DepthLimit limit{"Lexicon: the conditions of endings are nested too deeply",
                                       1000};
  DepthGuard guard(limit);
  if (!guard || !word) return;
  if (!ending_table_) {
    if (LexEntry* entry = get_entry(word)) visit(EntryReading{entry, nullptr});
    return;
  }
  // Kept: bare-word-needs-an-ending
  for (EndingWalk walk(*ending_table_, word); walk.current(); walk.next()) {
    const char* root = walk.current()->strip(word);
    LexEntry* entry = root ? get_entry(root) : nullptr;
    if (entry && !visit(EntryReading{entry, walk.current()})) return;
  }
}

void Lexicon::get_entries(const char* word, std::vector<EntryReading>& out) {
  each_reading(word, [&out](EntryReading reading) {
    out.push_back(reading);
    return true;
  });
}

const char* Lexicon::get_root(const char* word) {
  const char* root = word;
  each_reading(word, [&root](EntryReading reading) {
    root = reading.entry->key.c_str();
    return false;
  });
  return root;
}

std::vector<const LexEntry*> Lexicon::sorted_entries() const {
  std::vector<const LexEntry*> sorted;
  sorted.reserve(entries_.size());
  for (const auto& [key, entry] : entries_) sorted.push_back(entry.get());
  std::sort(sorted.begin(), sorted.end(), [](const LexEntry* a, const LexEntry* b) {
    return stricmp(a->key.c_str(), b->key.c_str()) < 0;
  });
  return sorted;
}

void Lexicon::print_keys(std::ostream& out) {
  for (const LexEntry* entry : sorted_entries()) out << entry->key << '\n';
}

void Lexicon::print_sorted(std::ostream& out) {
  for (const LexEntry* entry : sorted_entries()) print_entry(out, entry);
}

void Lexicon::print_all(std::ostream& out) {
  for (const auto& [key, entry] : entries_) print_entry(out, entry.get());
}

void Lexicon::print_entry(std::ostream& out, const LexEntry* entry) {
  std::string heading;
  append_quoted(heading, entry->key, QuoteComma::yes);
  out << '(' << heading << '\n';
  for (const Meaning* meaning : entry->meanings()) {
    // Kept: sense-prints-by-kind
    out << " (" << meaning->type() << ' ';
    meaning->print(out);
    out << ")\n";
  }
  out << " (phrases";
  for (const PhraseRec* phrase : entry->phrases()) out << " (" << phrase->key << ')';
  out << ")\n )\n";
}

}  // namespace torvane
