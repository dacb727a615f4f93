#include "lex/chart/lex_analyzer.h"

#include <algorithm>
#include <cstring>

#include "att/contract.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

const TypeTag tags::lex_item{.name = "LexItem*", .life = Life::sentence, .era_of = [](Word word) {
                               const LexAnalyzer* analyzer =
                                   reinterpret_cast<const LexItem*>(word)->analyzer;
                               return analyzer ? analyzer->era() : nullptr;
                             }};

LexAnalyzer::LexAnalyzer(Lexicon* lexicon, int sentence_length) : lexicon_(lexicon) {
  const int size = std::clamp(sentence_length, 0, kMostWords);
  words_.reserve(size);
  gaps_.reserve(size);
  pos_tags_.reserve(size);
  all_items_.reserve(6 * size);
}

void LexAnalyzer::add_sentinel() {
  if (!words_.empty()) return;
  words_.append(nullptr);
  pos_tags_.append(nullptr);
  gaps_.append(nullptr);
}

void LexAnalyzer::add_word(const char* text) {
  if (!text) return;
  if (words_.count() > kMostWords) {
    if (!overfull_)
      messages() << "The sentence has more than " << kMostWords << " words: the rest is left out\n";
    overfull_ = true;
    return;
  }
  add_sentinel();
  if (focus_marker && *text == focus_marker) {
    ++text;
    focus_.set(words_.count());
  }
  char* word = pool_.copy(text);
  char* tag = pos_marker ? std::strchr(word, pos_marker) : nullptr;
  if (tag) *tag++ = '\0';
  words_.append(word);
  while (gaps_.count() < words_.count()) gaps_.append("");
  pos_tags_.append(tag);
}

void LexAnalyzer::add_gap(const char* text) {
  if (!text || overfull_) return;
  add_sentinel();
  int next = words_.count();
  while (gaps_.count() < next) gaps_.append("");
  if (gaps_.count() > next)
    gaps_[next] = pool_.concat(gaps_[next], text);
  else
    gaps_.append(pool_.copy(text));
}

void LexAnalyzer::add_sentence(const IRSlist* sentence) {
  if (!sentence) return;
  for (const IRSlist* item : sentence->items) {
    if (!item->is_atom()) continue;
    add_gap(" ");
    add_word(item->atom);
  }
}

void LexAnalyzer::reset() {
  if (analyzing_) return;
  mixed_case = true;
  for (LBitSet* set : {&focus_, &first_conjunctions, &last_conjunctions, &adverbs, &skipped})
    set->reset();
  ends_at_.clear();
  starts_at_.clear();
  words_.clear();
  gaps_.clear();
  pos_tags_.clear();
  overfull_ = false;
  drop_items();
  eras_.renew();
}

// What an expression may still have of a sentence that is over.
struct LexAnalyzer::Dropped {
  LexAnalyzer& analyzer;
  StrBufs pool, join;
  Array<LexItem*> items;  // empty, and not used again for now
  std::vector<std::unique_ptr<Meaning>> meanings;

  ~Dropped() { analyzer.take_back(items); }
};

void LexAnalyzer::drop_items() {
  if (lifetimes().expression_waits()) {
    set_aside();
  } else {
    for (LexItem* item : all_items_) item->clear();
    pool_.reset();
    join_.reset();
    take_back(all_items_);
  }
  all_items_.clear();
}

void LexAnalyzer::set_aside() {
  std::vector<std::unique_ptr<Meaning>> meanings;
  for (LexItem* item : all_items_) {
    meanings.push_back(std::move(item->meaning));
    item->clear();
  }
  std::unique_ptr<Dropped> dropped(
      new Dropped{*this, std::move(pool_), std::move(join_), all_items_, std::move(meanings)});
  drop(std::move(dropped), eras_.birth());
}

void LexAnalyzer::take_back(const Array<LexItem*>& items) {
  free_items_.insert(free_items_.end(), items.begin(), items.end());
}

void LexAnalyzer::analyze() {
  if (analyzing_) return;
  analyzing_ = true;
  split_last_word();
  need_positions(word_count() + 1);
  for (int i = 1; i <= last_position(); ++i) lookup(word(i), i, i);
  if (rules) rules->apply(*this);
  if (pos_marker)
    for (int i = 1; i <= last_position(); ++i)
      if (pos_tags_.at_or_zero(i)) prune_by_tag(i);
  analyzing_ = false;
}

int LexAnalyzer::last_real_word() const {
  int p = last_position();
  for (; p > 0; --p) {
    const char* text = or_empty(word(p));
    if (is_alnum(text[0])) break;
    if (text[0] && text[1] && std::strchr(contract::kWordMarks, text[0])) break;
  }
  return p;
}

void LexAnalyzer::split_last_word() {
  int p = last_real_word();
  // Kept: last-word-is-split
  if (p == 0 || lexicon_->get_entry(word(p))) return;
  const char* text = word(p);
  std::size_t end = std::strlen(text);
  while (end > 1 && !is_alnum(text[end - 1])) --end;
  if (end == 1 || text[end] == '\0') return;
  insert_word(p + 1, text + end);
  words_[p] = pool_.copy(std::string_view(text, end));
}

void LexAnalyzer::insert_word(int at, const char* text) {
  for (int i = last_position(); i >= at; --i) {
    if (!focus_.test(i)) continue;
    focus_.clear(i);
    focus_.set(i + 1);
  }
  words_.insert_at(at, pool_.copy(text));
  gaps_.insert_at(at, "");
  pos_tags_.insert_at(at, nullptr);
}

void LexAnalyzer::prune_by_tag(int position) {
  const char* tag = pos_tags_[position];
  std::vector<LexItem*> others;
  bool tagged = false;
  for (LexItem* item : ending_at(position)) {
    if (item->low != position) continue;
    if (item->category && byte_compare(item->category, tag) == 0)
      tagged = true;
    else
      others.push_back(item);
  }
  if (!tagged) return;
  for (LexItem* item : others) delete_item(item);
}

const char* LexAnalyzer::surface(int low, int high) {
  if (low == high) return word(low);
  low = std::max(low, 1);
  high = std::min(high, last_position());
  join_.open();
  for (int i = low; i <= high; ++i) {
    if (i > low && *gap(i)) join_.add_char(' ');
    join_.add_string(word(i));
  }
  return join_.finish();
}

}  // namespace torvane
