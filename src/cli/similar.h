// Similar words out of a database of counts.
#pragma once

#include <cstddef>
#include <string>

namespace torvane {

struct SimilarChoice {
  std::string folder;  ///< has the database
  std::string output;  ///< gets the source of similar words
  std::size_t jobs = 1;
  std::size_t memory = 256;  ///< megabytes for comparing
  std::size_t most = 200;    ///< words a list
  float least = 0.5F;        ///< mutual information of what counts
};

/// Writes the similar words of all words. Empty, or what is wrong.
std::string find_similar_words(const SimilarChoice& choice, bool tells);

}  // namespace torvane
