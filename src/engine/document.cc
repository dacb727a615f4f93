#include "engine/document.h"

namespace torvane {

void name_ranges(Sentence& sentence) {
  for (WordRange& range : sentence.ranges) {
    const std::size_t begin = sentence.words[static_cast<std::size_t>(range.first) - 1].begin;
    const std::size_t end = sentence.words[static_cast<std::size_t>(range.last) - 1].end;
    range.form = sentence.text.substr(begin, end - begin);
  }
}

}  // namespace torvane
