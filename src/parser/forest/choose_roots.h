// Which of the results of a sentence become its tree.
#pragma once

#include "parser/forest/cover.h"
#include "parser/forest/parse_forest.h"

namespace torvane {

/// Leaves those roots in the forest that cover the sentence at the least cost. `word_weight`: what
/// a word costs that no root covers.
void choose_roots(const Grammar& grammar, const ExpPtr& word_weight, ParseForest& forest,
                  Cover& cover);

}  // namespace torvane
