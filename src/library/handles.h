// What stands behind the handles of the C face.
#pragma once

#include <torvane/c.h>

#include <cstddef>
#include <string>
#include <vector>

#include "engine/document.h"

struct torvane_document {
  std::vector<torvane::Sentence> sentences;
  std::string error;
  // What is handed out: of each sentence, and of each of its words. Filled by `seal`.
  std::vector<torvane_sentence> sentence_rows;
  std::vector<std::vector<torvane_word>> word_rows;
};

namespace torvane {

/// Fills the rows of a document that does not change any more. Places are found in the text; none:
/// they are those of the sentences' own texts.
void seal(torvane_document& document, const char* text, std::size_t length);

/// A copy that `torvane_free` ends; null without memory. `length` may be null.
char* copy_of(const std::string& text, std::size_t* length);

}  // namespace torvane
