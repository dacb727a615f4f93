#include "engine/why.h"

#include <utility>

#include "engine/engine.h"
#include "engine/sentence_of.h"
#include "parser/torvane_parser.h"
#include "support/text.h"
#include "why/explain.h"

namespace torvane {
namespace {

/// Positions of the parser to words of a sentence, and back.
class WordNumbers {
 public:
  explicit WordNumbers(std::vector<int> word_of) : word_of_(std::move(word_of)) {}

  /// 0 for position 0, -1 for one that is in no word.
  int word(int position) const {
    if (position <= 0) return position;
    const auto at = static_cast<std::size_t>(position);
    return at < word_of_.size() && word_of_[at] > 0 ? word_of_[at] : -1;
  }
  /// Of the positions of a word the first that is the head of a reading, else the first; -1 for
  /// none.
  int position(int word, const LexAnalyzer& lex) const {
    if (word == 0) return 0;
    int found = -1;
    for (std::size_t i = 1; i < word_of_.size(); ++i) {
      if (word_of_[i] != word) continue;
      const int position = static_cast<int>(i);
      bool is_head = false;
      lex.for_each_item([&](const LexItem* item) {
        is_head = is_head || (item->head == position && item->vec());
      });
      if (is_head) return position;
      if (found < 0) found = position;
    }
    return found;
  }
  void renumber(WhyCosts& costs) const {
    for (WhyCost& row : costs.rows) {
      row.word = word(row.word);
      row.head = word(row.head);
    }
  }
  void renumber(std::vector<WhyReading>& readings) const {
    for (WhyReading& reading : readings) {
      reading.first = word(reading.first);
      reading.last = word(reading.last);
    }
  }

 private:
  std::vector<int> word_of_;
};

std::size_t count_words(std::string_view text) {
  std::size_t words = 0;
  for (std::size_t i = 0; i < text.size(); ++i)
    words += !is_space(text[i]) && (i == 0 || is_space(text[i - 1])) ? 1 : 0;
  return words;
}

}  // namespace

struct Engine::Explained {
  Sentence sentence;
  WordNumbers numbers;
  std::vector<LexLoss> losses;
  std::string fault;
};

void Engine::keep_forms() {
  world_.places.kept = true;
}

Engine::Explained Engine::parse_to_explain(std::string_view text) {
  Explained parsed{{}, WordNumbers({}), {}, {}};
  if (count_words(text) > max_words) {
    parsed.fault = "the sentence is too long to be parsed as one";
    return parsed;
  }
  TorvaneParser& parser = *current_parser(world_);
  parser.grammar._lex->losses = &parsed.losses;
  parsed.sentence = parse_piece(text);
  parser.grammar._lex->losses = nullptr;
  has_next_ = false;  // looking for reasons leaves the forest in another state
  if (parsed.sentence.words.empty()) {
    parsed.fault = "there is nothing to explain";
    return parsed;
  }
  std::vector<int> positions;
  sentence_of(*parser._deps, text, *labels_, &positions);
  parsed.numbers = WordNumbers(std::move(positions));
  return parsed;
}

WhyTree Engine::why(std::string_view text) {
  WorldScope here(world_);
  Explained parsed = parse_to_explain(text);
  WhyTree tree;
  tree.fault = parsed.fault;
  if (tree.fault.empty()) {
    TreeReasons reasons = explain_tree(*current_parser(world_));
    parsed.numbers.renumber(reasons.costs);
    tree.costs = std::move(reasons.costs);
    tree.words.resize(parsed.sentence.words.size());
    for (WhyWord& word : tree.words) word.head = -1;
    for (TreeReasons::Word& reason : reasons.words) {
      const int number = parsed.numbers.word(reason.word);
      if (number <= 0) continue;
      tree.words[static_cast<std::size_t>(number - 1)] = {parsed.numbers.word(reason.head),
                                                          std::move(reason.relation),
                                                          reason.cost,
                                                          reason.dearer,
                                                          parsed.numbers.word(reason.other_head),
                                                          std::move(reason.other_relation)};
    }
  }
  tree.sentence = std::move(parsed.sentence);
  return tree;
}

WhyPair Engine::why(std::string_view text, int modifier, int head) {
  WorldScope here(world_);
  Explained parsed = parse_to_explain(text);
  WhyPair pair;
  pair.modifier = modifier;
  pair.head = head;
  pair.fault = parsed.fault;
  const int count = static_cast<int>(parsed.sentence.words.size());
  if (pair.fault.empty() && (modifier < 1 || modifier > count || head < 0 || head > count))
    pair.fault = "the sentence has " + std::to_string(count) + " words";
  if (pair.fault.empty() && modifier == head) pair.fault = "a word cannot be under itself";
  if (pair.fault.empty()) {
    TorvaneParser& parser = *current_parser(world_);
    const LexAnalyzer& lex = *parser.grammar._lex;
    const int below = parsed.numbers.position(modifier, lex);
    const int above = parsed.numbers.position(head, lex);
    if (below < 0 || above < 0) {
      pair.fault = "the grammar does not see that word";
    } else {
      PairReasons reasons = explain_pair(parser, below, above, parsed.losses);
      pair.modifier_readings = std::move(reasons.modifier_readings);
      pair.head_readings = std::move(reasons.head_readings);
      pair.links = std::move(reasons.links);
      pair.answer = std::move(reasons.answer);
      pair.dearer = reasons.dearer;
      pair.chosen = std::move(reasons.chosen);
      pair.wanted = std::move(reasons.wanted);
      parsed.numbers.renumber(pair.modifier_readings);
      parsed.numbers.renumber(pair.head_readings);
      parsed.numbers.renumber(pair.chosen);
      parsed.numbers.renumber(pair.wanted);
      pair.own = parsed.numbers.word(reasons.own);
      pair.shown = parsed.sentence.words[static_cast<std::size_t>(modifier - 1)].head;
    }
  }
  pair.sentence = std::move(parsed.sentence);
  return pair;
}

}  // namespace torvane
