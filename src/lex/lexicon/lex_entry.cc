#include "lex/lexicon/lex_entry.h"

#include <algorithm>
#include <utility>

#include "att/contract.h"
#include "lex/lexicon/offers.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {
namespace {

// Beyond so many phrases of one head a look through the list is too slow.
constexpr int kFewPhrases = 32;

constexpr int kMostPhraseWords = 255;

/// The entry whose meanings are being read in a world: where `phrases` adds to.
class EntryInReading : public WorldPart {
 public:
  static constexpr Place kPlace = lex;

  LexEntry* entry = nullptr;
};

/// Works by side effect: its forms are the phrases of the entry that is being read.
class PhraseMeaning : public Meaning {
 public:
  const char* type() const override { return "phrases"; }
  std::unique_ptr<Meaning> clone() const override { return std::make_unique<PhraseMeaning>(); }
  std::unique_ptr<Meaning> make(World& world, IRSlist* form) const override {
    LexEntry* current_entry = world.part<EntryInReading>().entry;
    if (!current_entry) return nullptr;
    for (const IRSlist* item : form->items) {
      Heading heading = parse_heading(*item);
      if (!heading.key.empty()) current_entry->add_phrase(heading);
    }
    return nullptr;
  }
};

/// How many tokens the analyser makes of an atom beyond the first: an apostrophe and a hyphen are
/// cut off.
int extra_tokens(std::string_view atom) {
  int n = 0;
  // Kept: heading-counts-marks
  for (char c : atom) n += c == contract::kApostrophe ? 1 : c == contract::kHyphen ? 2 : 0;
  return n;
}

constexpr Prototype kKinds[] = {
    meaning_kind<PhraseMeaning>("phrases",
                                "`(phrases (HEADING) ...)` phrases found from this entry's word"),
};

}  // namespace

bool FoldEqual::operator()(std::string_view a, std::string_view b) const {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                            [](char x, char y) { return lower(x) == lower(y); });
}

Heading parse_heading(const IRSlist& form) {
  Heading heading;
  int atoms = 0;
  int words = 0;
  bool comma_seen = false;
  for (const IRSlist* item : form.items) {
    if (!item->is_atom()) break;
    std::string_view atom = item->atom;
    words += extra_tokens(atom);
    if (!comma_seen && !atom.empty() && atom[0] == ',') {
      heading.key += ',';
      heading.right = std::max(0, words - 1);
      words = 0;
      comma_seen = true;
    } else {
      if (!heading.key.empty() && std::none_of(atom.begin(), atom.end(), is_high))
        heading.key += ' ';
      heading.key += atom;
    }
    if (atoms++ == 0) heading.first = atom;
    ++words;
  }
  (comma_seen ? heading.left : heading.right) = std::max(0, words - 1);
  heading.is_phrase = atoms > 1;
  return heading;
}

bool Heading::check_length() const {
  if (left <= kMostPhraseWords && right <= kMostPhraseWords) return true;
  messages() << "The phrase of '" << first << "' has more than " << kMostPhraseWords << " words\n";
  return false;
}

LexEntry::~LexEntry() {
  for (Meaning* meaning : meanings_) delete meaning;
  for (PhraseRec* phrase : phrases_) delete phrase;
}

void LexEntry::add_phrase(const Heading& heading) {
  if (!heading.check_length() || has_phrase(heading.key)) return;
  auto* phrase = new PhraseRec{static_cast<std::uint8_t>(heading.left),
                               static_cast<std::uint8_t>(heading.right), heading.key};
  phrases_.append(phrase);
  ++phrase_count_;
  if (phrase_keys_) phrase_keys_->insert(phrase->key);
}

bool LexEntry::has_phrase(const std::string& phrase_key) {
  if (!phrase_keys_ && phrase_count_ >= kFewPhrases) {
    phrase_keys_ = std::make_unique<std::unordered_set<std::string_view, FoldHash, FoldEqual>>();
    for (const PhraseRec* phrase : phrases_) phrase_keys_->insert(phrase->key);
  }
  if (phrase_keys_) return phrase_keys_->contains(phrase_key);
  for (const PhraseRec* phrase : phrases_)
    if (FoldEqual()(phrase->key, phrase_key)) return true;
  return false;
}

CurrentEntry::CurrentEntry(World& world, LexEntry* entry)
    : current_(world.part<EntryInReading>().entry), outer_(std::exchange(current_, entry)) {}

CurrentEntry::~CurrentEntry() {
  current_ = outer_;
}

constinit const Offer offers::lex_entry{kKinds};

}  // namespace torvane
