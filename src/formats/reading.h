// What the readers of trees share.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "engine/document.h"

namespace torvane {

/// Something wrong in a sentence, which is left out for it.
struct ReadFault {
  std::size_t lines_back;  ///< how many lines before the last one it stands
  std::string text;
};

/// The number of a word from which heads lead round in a circle; 0 if there is none. Heads are
/// those of words, 0 or -1.
std::size_t find_circle(const std::vector<SentenceWord>& words);

}  // namespace torvane
