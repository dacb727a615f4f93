// How the key of a phrase, which begins with its head, meets the words of a sentence.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

/// The key as it is read: `York, New` is `New York`. A comma without a blank belongs to a word.
std::string natural_order(std::string_view key);

/// The place in a phrase's key after its head.
const char* after_head(const char* key);

/// True if the key goes on with the word at `cursor`, which then moves after it. A word of the key
/// may stand for several of the sentence, since apostrophes and hyphens are words of their own
/// there.
bool word_in_key(const char*& cursor, const char* word);

}  // namespace torvane
