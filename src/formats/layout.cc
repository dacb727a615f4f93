#include "formats/layout.h"

#include <array>
#include <charconv>
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

std::string cost_text(float cost) {
  std::array<char, 64> digits;
  const std::to_chars_result end = std::to_chars(digits.data(), digits.data() + digits.size(), cost,
                                                 std::chars_format::fixed, 2);
  std::string text(digits.data(), end.ptr);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

}  // namespace torvane
