// Sentences as trees of numbers, for the formats that draw.
#pragma once

#include <vector>

#include "engine/document.h"

namespace torvane {

/// The dependents of each word, in order; those of 0 are the roots. Words without a head are among
/// them.
std::vector<std::vector<int>> dependents_of(const Sentence& sentence);

}  // namespace torvane
