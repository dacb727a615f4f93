// The morphology of the system: a flat ordered table of endings. Each says whether a surface form carries
// it and gives the candidate root; which one fired is recorded on the lexical item.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lexp/lexp.h"
#include "support/array.h"

namespace torvane {

class EndingTable;

/// A plain ending: suffix off, replacement on.
class Ending {
 public:
  virtual bool matches(const char* word, int length) const;
  /// The candidate root, in the table's work buffer until the next strip; null if there is none.
  virtual const char* strip(const char* word) const;
  virtual bool init(IRSlist* form);
  virtual ~Ending() = default;

  EndingTable* table = nullptr;  ///< the owner
  std::string name;              ///< the affix's name
  std::string suffix;
  std::string replacement;
  std::uint8_t suffix_length = 0;
  ExpPtr* condition = nullptr;  ///< owned by the table, may be null

 protected:
  const char* stripped(const char* word, int keep, const std::string& tail) const;
};

class EndingTable {
 public:
  EndingTable() = default;
  EndingTable(const EndingTable&) = delete;
  EndingTable& operator=(const EndingTable&) = delete;

  /// Reads conditions and endings, appending.
  void read(IRSlist* form);

  /// The walk over the endings that match a word.
  void start(const char* word);
  const Ending* current() const;
  void next();

  std::vector<std::unique_ptr<Ending>> endings;
  std::vector<std::pair<std::string, std::unique_ptr<ExpPtr>>> conditions;
  mutable std::string work;

 private:
  int cursor_ = 0;
  std::string word_;
};

namespace tags {
inline constexpr TypeTag ending_table{"EndingTable*"};
}
template <>
struct ValueTraits<EndingTable> : TagOf<EndingTable, tags::ending_table> {};

}  // namespace torvane
