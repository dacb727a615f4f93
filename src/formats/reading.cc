#include "formats/reading.h"

namespace torvane {

std::size_t find_circle(const std::vector<SentenceWord>& words) {
  enum State : char { kNew, kOnTheWay, kLeadsOut };
  std::vector<State> state(words.size() + 1, kNew);
  state[0] = kLeadsOut;
  for (std::size_t i = 1; i <= words.size(); ++i) {
    std::vector<std::size_t> way;
    std::size_t at = i;
    while (state[at] == kNew) {
      state[at] = kOnTheWay;
      way.push_back(at);
      const int head = words[at - 1].head;
      at = head > 0 ? static_cast<std::size_t>(head) : 0;
    }
    if (state[at] == kOnTheWay) return at;
    for (std::size_t one : way) state[one] = kLeadsOut;
  }
  return 0;
}

}  // namespace torvane
