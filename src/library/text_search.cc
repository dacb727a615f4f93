#include "library/text_search.h"

#include <algorithm>

#include "support/text.h"
#include "text/utf8.h"

namespace torvane {

void TextSearch::step() {
  if (character_end_ <= at_.byte) {
    const std::size_t length = utf8_length(text_.substr(at_.byte));
    character_end_ = at_.byte + std::max<std::size_t>(length, 1);
  }
  ++at_.byte;
  if (at_.byte == character_end_) ++at_.character;
}

std::vector<TextPlace> TextSearch::find(std::string_view piece) {
  std::vector<TextPlace> places;
  places.reserve(piece.size());
  for (char c : piece) {
    if (is_space(c)) {
      places.push_back(at_);
      continue;
    }
    while (at_.byte < text_.size() && text_[at_.byte] != c) step();
    places.push_back(at_);
    if (at_.byte < text_.size()) step();
  }
  return places;
}

}  // namespace torvane
