// Abbreviations and the words they stand for.
#pragma once

#include <string>
#include <vector>

namespace torvane {

/// From which side of a row of words the spelled-out ones are taken.
enum class SpelledAt : unsigned char { end, start };

/// How many words at that side of the row spell the abbreviation, 0 for none. Each word gives its
/// first letter, and may give later ones; small words may be passed over; punctuation in the
/// abbreviation does not count. Of several answers it is the one with the most words.
int spelled_out(const std::vector<const char*>& words, const char* abbreviation, SpelledAt side);

}  // namespace torvane
