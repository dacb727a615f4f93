// Triples to be counted, out of what a grammar prints and out of given trees. Words are counted
// without case, as databases of triples know none.
#pragma once

#include <string_view>

#include "counts/count_sorter.h"
#include "engine/document.h"

namespace torvane {

/// Counts the rows `relation TAB head TAB modifier` of a text; other lines are none.
void count_printed_rows(std::string_view printed, CountSorter& counts);
/// Counts the dependencies of a sentence: `UPOS:relation:UPOS` between base forms, or forms where
/// there are none.
void count_tree(const Sentence& sentence, CountSorter& counts);

}  // namespace torvane
