// What there is to say of a sentence that was parsed: of its tree, and of two of its words. Words
// are told by their positions in the parser.
#pragma once

#include <optional>
#include <vector>

#include "parser/torvane_parser.h"
#include "why/reasons.h"

namespace torvane {

struct TreeReasons {
  struct Word {
    int word = 0;
    int head = 0;
    std::string relation;
    float cost = 0;
    std::optional<float> dearer;  ///< with the best other head; no value: there is none
    int other_head = 0;
    std::string other_relation;
  };
  std::vector<Word> words;
  WhyCosts costs;
};
TreeReasons explain_tree(TorvaneParser& parser);

struct PairReasons {
  std::vector<WhyReading> modifier_readings, head_readings;
  std::vector<WhyLink> links;
  WhyReason answer;
  std::optional<float> dearer;
  WhyCosts chosen, wanted;
  int own = 0;  ///< the head that the modifier has; -1: none
};
/// Head 0: why the modifier is not the root.
PairReasons explain_pair(TorvaneParser& parser, int modifier, int head,
                         const std::vector<LexLoss>& losses);

}  // namespace torvane
