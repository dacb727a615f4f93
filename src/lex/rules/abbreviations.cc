#include "lex/rules/abbreviations.h"

#include <algorithm>
#include <iterator>

#include "att/contract.h"
#include "lex/rules/offers.h"
#include "lex/rules/rule_actions.h"
#include "lexp/form.h"
#include "support/text.h"

namespace torvane {

namespace {

// How far a spelled-out name reaches from the abbreviation.
constexpr int kMostWords = 10;

bool may_be_passed_over(const char* word) {
  if (word[0] == contract::kHyphen && word[1] == '\0') return true;
  return std::any_of(std::begin(contract::kSmallWords), std::end(contract::kSmallWords),
                     [word](std::string_view small) { return same_word(word, small.data()); });
}

std::string letters_of(const char* abbreviation) {
  std::string letters;
  for (const char* c = abbreviation; *c; ++c)
    if (!is_punct(*c) && !is_space(*c)) letters += lower(*c);
  return letters;
}

// Which numbers of letters can be used up once a row of words is spelled: bit n of `used` for n
// letters.
class SpellWalk {
 public:
  explicit SpellWalk(std::string letters)
      : letters_(std::move(letters)), used_(letters_.size() + 1) {
    used_[0] = true;
  }
  // Every way on over one more word.
  void step(const char* word, bool may_pass) {
    std::vector<bool> next(used_.size());
    for (std::size_t n = 0; n < used_.size(); ++n) {
      if (!used_[n]) continue;
      if (may_pass) next[n] = true;
      spell(word, n, next);
    }
    used_ = std::move(next);
  }
  bool all_used() const { return used_.back(); }

 private:
  // The word gives its first letter, then those of its later ones that come next.
  void spell(const char* word, std::size_t n, std::vector<bool>& next) const {
    if (n == letters_.size() || lower(word[0]) != letters_[n]) return;
    next[++n] = true;
    for (const char* c = word + 1; *c && n < letters_.size(); ++c)
      if (lower(*c) == letters_[n]) next[++n] = true;
  }

  std::string letters_;
  std::vector<bool> used_;
};

bool spells(const std::vector<const char*>& words, std::size_t first, std::size_t count,
            const std::string& letters, SpelledAt side) {
  SpellWalk walk(letters);
  std::size_t far = side == SpelledAt::end ? 0 : count - 1;
  for (std::size_t i = 0; i < count; ++i) {
    const char* word = words[first + i];
    walk.step(word, i != far && may_be_passed_over(word));
  }
  return walk.all_used();
}

// What an abbreviation with its definition covers.
struct Definition {
  int low, high;            ///< the whole
  int name_low, name_high;  ///< the words spelled out
  int abbreviation;         ///< the position of the abbreviation
  int head;
};

LexItem* make_definition(LexAnalyzer& chart, const Definition& d, Meaning* meaning) {
  const Slist<const char*> no_affixes;
  auto make = [&](int low, int high, const char* root) {
    LexItem* item = chart.make_item(root, meaning, low, high, no_affixes);
    item->head = static_cast<std::int16_t>(d.head);
    return item;
  };
  const char* name = chart.surface(d.name_low, d.name_high);
  LexItem* whole = make(d.low, d.high, name);
  LexItem* abbreviation = make(d.abbreviation, d.abbreviation, chart.word(d.abbreviation));
  LexItem* spelled = make(d.name_low, d.name_high, name);
  chart.delete_smaller(d.low, d.high);
  abbreviation->role = chart.pool_copy(contract::kAbbreviation);
  spelled->role = chart.pool_copy(contract::kSpelledOut);
  chart.add_component(whole, abbreviation);
  chart.add_component(whole, spelled);
  return chart.add_item(whole, true);
}

std::vector<const char*> words_between(const LexAnalyzer& chart, int low, int high) {
  std::vector<const char*> words;
  for (int i = low; i <= high; ++i) words.push_back(or_empty(chart.word(i)));
  return words;
}

// The name, then the match: a bracket, the abbreviation.
LexItem* abbrev_def(Match* match, Meaning* meaning) {
  if (!match || !meaning) return nullptr;
  LexAnalyzer& chart = *match->analyzer;
  int p = match->low;
  const char* abbreviation = chart.word(p + 1);
  if (!abbreviation || match->high < p + 1 || match->high > chart.last_position()) return nullptr;
  auto words = words_between(chart, std::max(1, p - kMostWords), p - 1);
  int k = spelled_out(words, abbreviation, SpelledAt::end);
  if (k == 0) return nullptr;
  return make_definition(chart, {p - k, match->high, p - k, p - 1, p + 1, p - 1}, meaning);
}

// The match: the abbreviation, a bracket; then the name.
LexItem* abbrev_with_def(Match* match, Meaning* meaning) {
  if (!match || !meaning) return nullptr;
  LexAnalyzer& chart = *match->analyzer;
  int p = match->high;
  const char* abbreviation = chart.word(p - 1);
  if (!abbreviation || match->low > p - 1 || match->low < 1) return nullptr;
  auto words = words_between(chart, p + 1, std::min(chart.last_position(), p + kMostWords));
  int k = spelled_out(words, abbreviation, SpelledAt::start);
  if (k == 0) return nullptr;
  return make_definition(chart, {match->low, p + k, p + 1, p + k, p - 1, p + k}, meaning);
}

constexpr Prototype kAbbreviationsForms[] = {
    function<abbrev_def>("abbrev-def",
                         "`(abbrev-def exp)` a long name and its abbreviation in brackets become "
                         "one item of the meaning that `exp` gives"),
    function<abbrev_with_def>(
        "abbrev-with-def", "`(abbrev-with-def exp)` the same where the abbreviation stands first"),
};

}  // namespace

int spelled_out(const std::vector<const char*>& words, const char* abbreviation, SpelledAt side) {
  std::string letters = letters_of(abbreviation);
  if (letters.empty()) return 0;
  for (std::size_t count = words.size(); count > 0; --count) {
    std::size_t first = side == SpelledAt::end ? words.size() - count : 0;
    if (spells(words, first, count, letters, side)) return static_cast<int>(count);
  }
  return 0;
}

constinit const Offer offers::abbreviations{kAbbreviationsForms};

}  // namespace torvane
