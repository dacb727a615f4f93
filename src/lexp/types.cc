#include "lexp/types.h"

#include <iterator>

#include "support/messages.h"

namespace torvane {

namespace {
// In the order of their numbers, which messages show.
constexpr const char* kOwnTypes[] = {
    "char*",           "TwoArgs*", "stream*",  "Match*",       "LexItem*", "int",     "Meaning*",
    "AntecedentList*", "AttVec*",  "LBitSet*", "LexAnalyzer*", "LExp*",    "RSTree*", "TreeMatch*",
    "Deps*",           "TRel*",    "SBnd*",    "PItem*",       "DepRel*"};
}  // namespace

int own_type_id(const char* name) {
  if (!name) return kAnyType;
  for (std::size_t i = 0; i < std::size(kOwnTypes); ++i)
    if (same_word(name, kOwnTypes[i])) return static_cast<int>(i) + 1;
  return 0;
}

Types::Types() {
  names_.append(nullptr);  // number 0 is no type
  for (const char* name : kOwnTypes) id(name);
}

int Types::id(const char* name) {
  if (!name) return kAnyType;
  if (auto* entry = ids_.find(name)) return entry->value;
  // Kept: misspelt-type
  int id = names_.count();
  names_.append(ids_.insert(name, id)->key);
  return id;
}

const char* Types::name(int id) const {
  if (id == kAnyType) return "void*";
  if (id <= 0) {
    messages() << "Unknown type id: " << id << '\n';
    return "";
  }
  return names_.at_or_zero(id);
}

}  // namespace torvane
