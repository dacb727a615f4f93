// How the similar words of a word are shown: as text that a source file could hold, and as a web
// page.
#pragma once

#include <ostream>
#include <vector>

#include "wordsim/sim_word_db.h"

namespace torvane {

/// A record with its lists, the members of a group side by side. Nothing for one without a list.
void print_similar_words(const SimWordDb& db, const SimRecord& record, std::ostream& out);

struct SimPageStyle {
  const char* url;                  ///< the front of each link, up to the word
  std::vector<const char*> colors;  ///< the first for words in no group, then one a group
};
/// The same in HTML: lists of more than four words, each word a link in the colours of its groups.
void print_similar_words_in_html(const SimWordDb& db, const SimRecord& record,
                                 const SimPageStyle& style, std::ostream& out);

}  // namespace torvane
