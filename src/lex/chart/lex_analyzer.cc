#include "lex/chart/lex_analyzer.h"

#include <algorithm>
#include <cstring>

#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

const TypeTag tags::lex_item{.name = "LexItem*", .life = Life::sentence, .era_of = [](Word word) {
                               const LexAnalyzer* analyzer =
                                   reinterpret_cast<const LexItem*>(word)->analyzer;
                               return analyzer ? analyzer->eras.now() : nullptr;
                             }};

LexAnalyzer::LexAnalyzer(Lexicon* of, int sentence_length)
    : suggested_length(std::clamp(sentence_length, 0, kMostWords)), lexicon(of) {
  words.reserve(suggested_length);
  gaps.reserve(suggested_length);
  pos_tags.reserve(suggested_length);
  all_items.reserve(6 * suggested_length);
}

void LexAnalyzer::add_sentinel() {
  if (!words.empty()) return;
  words.append(nullptr);
  pos_tags.append(nullptr);
  gaps.append(nullptr);
}

void LexAnalyzer::add_word(const char* text) {
  if (!text) return;
  if (words.count() > kMostWords) {
    if (!overfull_)
      messages() << "The sentence has more than " << kMostWords << " words: the rest is left out\n";
    overfull_ = true;
    return;
  }
  add_sentinel();
  if (focus_marker && *text == focus_marker) {
    ++text;
    focus.set(words.count());
  }
  char* word = pool.copy(text);
  char* tag = pos_marker ? std::strchr(word, pos_marker) : nullptr;
  if (tag) *tag++ = '\0';
  words.append(word);
  while (gaps.count() < words.count()) gaps.append("");
  pos_tags.append(tag);
}

void LexAnalyzer::add_gap(const char* text) {
  if (!text || overfull_) return;
  add_sentinel();
  int next = words.count();
  while (gaps.count() < next) gaps.append("");
  if (gaps.count() > next)
    gaps[next] = pool.concat(gaps[next], text);
  else
    gaps.append(pool.copy(text));
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
  if (analyzing) return;
  mixed_case = 1;
  for (LBitSet* set : {&focus, &first_conjunctions, &last_conjunctions, &adverbs, &skipped})
    set->reset();
  ends_at.clear();
  starts_at.clear();
  words.clear();
  gaps.clear();
  pos_tags.clear();
  overfull_ = false;
  forget_items();
  eras.renew();
}

// What an expression may still have of a sentence that is over.
struct LexAnalyzer::Forgotten {
  LexAnalyzer& analyzer;
  StrBufs pool, join;
  Array<LexItem*> items;  // empty, and not used again for now
  std::vector<std::unique_ptr<Meaning>> meanings;

  ~Forgotten() { analyzer.recycle(items); }
};

void LexAnalyzer::forget_items() {
  std::vector<std::unique_ptr<Meaning>> meanings;
  const bool may_be_read = lifetimes().expression_waits();
  for (LexItem* item : all_items) {
    if (may_be_read) meanings.push_back(std::move(item->meaning));
    item->clear();
  }
  if (may_be_read) {
    std::unique_ptr<Forgotten> forgotten(
        new Forgotten{*this, std::move(pool), std::move(join), all_items, std::move(meanings)});
    retire(std::move(forgotten), eras.birth());
  } else {
    pool.reset();
    join.reset();
    recycle(all_items);
  }
  all_items.clear();
}

void LexAnalyzer::recycle(const Array<LexItem*>& items) {
  free_items_.insert(free_items_.end(), items.begin(), items.end());
}

void LexAnalyzer::analyze() {
  if (analyzing) return;
  analyzing = true;
  split_last_word();
  need_positions(word_count() + 1);
  for (int i = 1; i <= last_position(); ++i) lookup(word(i), i, i);
  if (rules) rules->apply(*this);
  if (pos_marker)
    for (int i = 1; i <= last_position(); ++i)
      if (pos_tags.at_or_zero(i)) prune_by_tag(i);
  analyzing = false;
}

int LexAnalyzer::last_real_word() const {
  int p = last_position();
  for (; p > 0; --p) {
    const char* text = or_empty(word(p));
    if (is_alnum(text[0])) break;
    if (text[0] && text[1] && std::strchr("$#'", text[0])) break;
  }
  return p;
}

void LexAnalyzer::split_last_word() {
  int p = last_real_word();
  // Kept: last-word-is-split
  if (p == 0 || lexicon->get_entry(word(p))) return;
  const char* text = word(p);
  std::size_t end = std::strlen(text);
  while (end > 1 && !is_alnum(text[end - 1])) --end;
  if (end == 1 || text[end] == '\0') return;
  insert_word(p + 1, text + end);
  words[p] = pool.copy(std::string_view(text, end));
}

void LexAnalyzer::insert_word(int at, const char* text) {
  for (int i = last_position(); i >= at; --i) {
    if (!focus.test(i)) continue;
    focus.clear(i);
    focus.set(i + 1);
  }
  words.insert_at(at, pool.copy(text));
  gaps.insert_at(at, "");
  pos_tags.insert_at(at, nullptr);
}

void LexAnalyzer::prune_by_tag(int position) {
  const char* tag = pos_tags[position];
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
  join.open();
  for (int i = low; i <= high; ++i) {
    if (i > low && *gap(i)) join.add_char(' ');
    join.add_string(word(i));
  }
  return join.finish();
}

}  // namespace torvane
