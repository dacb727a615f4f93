// What several formats need of a sentence.
#pragma once

#include <string>
#include <vector>

#include "engine/document.h"

namespace torvane {

/// The dependents of each word, in order; those of 0 are the roots. Words without a head are among
/// them.
std::vector<std::vector<int>> dependents_of(const Sentence& sentence);

/// A cost as figures, with two decimals at most.
std::string cost_text(float cost);

}  // namespace torvane
