// The sentence that a finished parse gives: the parser's trees as one, with every word of the text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "deps/deps.h"
#include "engine/document.h"
#include "engine/labels.h"

namespace torvane {

/// The words are those that the parser saw; what it saw of the text and took into none is a word of
/// its own.
/// `positions`, if given, gets the number of the word that each of the parser's positions is in; 0:
/// none.
Sentence sentence_of(const Deps& deps, std::string_view text, const Labels& labels,
                     std::vector<int>* positions = nullptr);
/// The words are those given; the parser may have cut them further.
Sentence sentence_of(const Deps& deps, const std::vector<std::string>& words, const Labels& labels);

/// Makes one sentence of two: the tops of the second hang on the root of the first, and its text
/// goes on behind `gap`.
void append(Sentence& first, Sentence&& second, std::string_view gap);

}  // namespace torvane
