#include "formats/layout.h"

#include <cstddef>

namespace torvane {

std::vector<std::vector<int>> dependents_of(const Sentence& sentence) {
  std::vector<std::vector<int>> dependents(sentence.words.size() + 1);
  int number = 0;
  for (const SentenceWord& word : sentence.words) {
    ++number;
    const bool has_head = word.head > 0 && static_cast<std::size_t>(word.head) < dependents.size();
    dependents[has_head ? static_cast<std::size_t>(word.head) : 0].push_back(number);
  }
  return dependents;
}

}  // namespace torvane
