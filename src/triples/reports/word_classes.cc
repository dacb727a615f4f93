#include "triples/reports/word_classes.h"

#include <sstream>

namespace torvane {

WordClasses::WordClasses(std::istream& in) {
  for (std::string line, word; std::getline(in, line);) {
    std::vector<const char*> members;
    std::istringstream words(line);
    while (words >> word) {
      const auto* entry = class_numbers_.find(word.c_str());
      if (!entry) entry = class_numbers_.insert(word.c_str(), static_cast<int>(classes_.size()));
      members.push_back(entry->key);
    }
    if (!members.empty()) classes_.push_back(std::move(members));
  }
}

std::span<const char* const> WordClasses::class_of(const char* word) const {
  const auto* entry = class_numbers_.find(word);
  if (!entry) return {};
  return classes_[static_cast<std::size_t>(entry->value)];
}

}  // namespace torvane
