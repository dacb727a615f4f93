// The look-up of a span as one word, and of a hyphenated compound under the keys that a lexicon may
// have it by.
#include <algorithm>
#include <string>
#include <vector>

#include "att/contract.h"
#include "lex/rules/offers.h"
#include "lex/rules/rule_actions.h"
#include "lexp/form.h"

namespace torvane {

namespace {

bool is_hyphen(const std::string& word) {
  return word.size() == 1 && word[0] == contract::kHyphen;
}

// The words joined, with a blank in place of each hyphen that stands between two.
std::string join_at_hyphens(const std::vector<std::string>& words) {
  std::string text;
  bool pending = false;
  for (const std::string& word : words) {
    if (is_hyphen(word)) {
      pending = !text.empty();
      continue;
    }
    if (pending) text += ' ';
    pending = false;
    text += word;
  }
  return text;
}

void look_up_compound(LexAnalyzer& chart, const WordSpan& span, std::vector<std::string> words,
                      std::string text) {
  std::replace(text.begin(), text.end(), contract::kHyphen, ' ');
  chart.lookup(text.c_str(), span.low, span.high);

  std::string joined;
  for (const std::string& word : words)
    if (!is_hyphen(word)) joined += word;
  std::string last = words.back();
  words.pop_back();
  chart.lookup((last + ", " + join_at_hyphens(words)).c_str(), span.low, span.high);
  chart.lookup(joined.c_str(), span.low, span.high);
}

void look_up(Match* match, Word low, Word high, const char* text) {
  if (!match) return;
  LexAnalyzer& chart = *match->analyzer;
  WordSpan span(chart, low, high);
  if (span.low != low || span.high != high || span.low > span.high) return;
  if (text) {
    chart.lookup(text, span.low, span.high);
    return;
  }
  std::vector<std::string> words;
  std::string joined;
  bool has_hyphen = false;
  for (int i = std::max(span.low, 1); i <= span.high; ++i) {
    const char* word = chart.word(i);
    if (!word) return;
    words.emplace_back(word);
    joined += word;
    has_hyphen = has_hyphen || word[0] == contract::kHyphen;
  }
  chart.lookup(joined.c_str(), span.low, span.high);
  if (has_hyphen) look_up_compound(chart, span, std::move(words), std::move(joined));
}

constexpr Prototype kCompoundLookUpForms[] = {
    function<look_up>("look-up",
                      "`(look-up low high [text])` enters the lexicon's items for the span; "
                      "without a text also its hyphenated spellings"),
};

}  // namespace

constinit const Offer offers::compound_look_up{kCompoundLookUpForms};

}  // namespace torvane
