// Why a word stands under its head and not under another one, as plain data. The words and heads
// here are those of the grammar's own tree: what tree rules make of it afterwards is another matter
// (`WhyPair::shown` says so where they differ).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/document.h"
#include "why/reasons.h"

namespace torvane {

struct WhyPair {
  Sentence sentence;  ///< as it was parsed, after the tree rules
  int modifier = 0, head = 0;
  std::string fault;  ///< why there is no answer, such as a word that is not there; or empty
  std::vector<WhyReading> modifier_readings, head_readings;
  std::vector<WhyLink> links;  ///< those that came furthest first
  /// The answer in a few words: the reason of the first link, or that there is no such link.
  WhyReason answer;
  /// Where a tree has it: how much dearer it is (0: it is the chosen one), and the costs of the
  /// two.
  std::optional<float> dearer;
  WhyCosts chosen, wanted;
  /// The head of the modifier in the sentence as it is shown, and in the grammar's own tree, which
  /// the costs are about.
  int shown = 0, own = 0;
};

struct WhyWord {
  int head = 0;  ///< in the grammar's own tree; -1: in no tree, or a part of another word's reading
  std::string relation;
  float cost = 0;  ///< of its dependency, or of the root
  /// The best other head that it could have had: how much dearer the whole tree is then. No value:
  /// there is none.
  std::optional<float> dearer;
  int other_head = 0;
  std::string other_relation;
};

struct WhyTree {
  Sentence sentence;           ///< as it was parsed, after the tree rules
  std::vector<WhyWord> words;  ///< beside those of the sentence
  WhyCosts costs;
  std::string fault;  ///< why there is no answer, or empty
};

}  // namespace torvane
