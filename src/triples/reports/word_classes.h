// Classes of words that may stand for one another, read from a file: a class on each line, its
// members apart by white space. Case does not count. A word of several classes is in the first.
#pragma once

#include <istream>
#include <span>
#include <string>
#include <vector>

#include "support/name_table.h"

namespace torvane {

class WordClasses {
 public:
  explicit WordClasses(std::istream& in);

  /// The members of the word's class, the word among them; empty if it has none.
  std::span<const char* const> class_of(const char* word) const;

 private:
  NameTable<int> class_numbers_{20011};
  std::vector<std::vector<const char*>> classes_;
};

}  // namespace torvane
