// From a word to lexical items: the entries it may come from, their meanings, and the phrases
// around it.

#include <unordered_set>

#include "lex/chart/lex_analyzer.h"
#include "lex/lexicon/phrase_match.h"
#include "lexp/form.h"
#include "support/depth.h"
#include "support/messages.h"

namespace torvane {

/// What one reading of a word is expanded to.
struct LexAnalyzer::Expansion {
  struct Place {
    const LexEntry* entry;
    int low;
    int high;
    friend bool operator==(const Place&, const Place&) = default;
  };
  struct PlaceHash {
    std::size_t operator()(const Place& place) const {
      auto span =
          static_cast<std::uint32_t>(place.low) << 16 ^ static_cast<std::uint32_t>(place.high);
      return std::hash<const LexEntry*>()(place.entry) ^ int_hash(span);
    }
  };

  Slist<const char*> affixes;
  std::vector<LexItem*> items;
  // Where entries with phrases were expanded: a phrase may lead back to its head.
  std::unordered_set<Place, PlaceHash> seen;
};

void LexAnalyzer::lookup(const char* text, int low, int high) {
  if (!text || !*text) return;
  Lexicon::Pin pin(*lexicon_);
  std::vector<EntryReading> readings = std::move(readings_);
  readings.clear();
  lexicon_->get_entries(text, readings);
  for (const EntryReading& reading : readings) {
    Expansion expansion;
    if (reading.ending) expansion.affixes.append(reading.ending->name().c_str());
    entry_items(*reading.entry, low, high, expansion);
    for (LexItem* item : expansion.items) add_item(item, true);
  }
  readings_ = std::move(readings);
}

bool LexAnalyzer::selects(const LexEntry& entry, const Meaning& meaning) const {
  return !meaning_selector ||
         passes(meaning_selector, entry.meaning_value(&meaning), type_id_of<Meaning>());
}

void LexAnalyzer::entry_items(const LexEntry& entry, int low, int high, Expansion& expansion) {
  static thread_local DepthLimit limit{"LexAnalyzer: phrases lead to phrases without end"};
  DepthGuard guard(limit);
  if (!guard) return;
  if (!entry.phrases().empty() && !expansion.seen.insert({&entry, low, high}).second) return;

  const char* root = nullptr;
  const char* key = nullptr;
  for (const Meaning* meaning : entry.meanings()) {
    if (!selects(entry, *meaning)) continue;
    if (!root) {
      std::string natural = natural_order(entry.key);
      root = pool_.copy(natural.c_str());
      key = natural == entry.key ? root : pool_.copy(entry.key.c_str());
    }
    LexItem* item = make_item(nullptr, meaning, low, high, expansion.affixes);
    item->root = root;
    item->entry_key = key;
    expansion.items.push_back(item);
  }
  for (const PhraseRec* phrase : entry.phrases()) {
    if (!phrase_at(*phrase, low)) continue;
    if (const LexEntry* found = lexicon_->get_entry(phrase->key.c_str()))
      entry_items(*found, low - phrase->left, low + phrase->right, expansion);
    else
      messages() << "Phrasal entry '" << phrase->key << "' is not found\n";
  }
}

bool LexAnalyzer::phrase_at(const PhraseRec& phrase, int position) const {
  int low = position - phrase.left;
  int high = position + phrase.right;
  if (low < 0 || high >= word_count()) return false;
  const char* cursor = after_head(phrase.key.c_str());
  for (int i = position + 1; i <= high; ++i)
    if (!word_in_key(cursor, word(i))) return false;
  for (int i = low; i < position; ++i)
    if (!word_in_key(cursor, word(i))) return false;
  return true;
}

}  // namespace torvane
