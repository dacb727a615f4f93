// The morphology of the system: a flat ordered table of endings. Each says whether a surface form
// carries it and gives the candidate root; which one fired is recorded on the lexical item.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lexp/lexp.h"

namespace torvane {

class EndingTable;

/// A plain ending: suffix off, replacement on.
class Ending {
 public:
  virtual bool matches(const char* word, int length) const;
  /// The candidate root, in the table's work buffer until the next strip; null if there is none.
  virtual const char* strip(const char* word) const;
  /// Reads `suffix name replacement condition`, the last ones optional. False after a message.
  virtual bool init(World& world, IRSlist* form);
  virtual ~Ending() = default;

  EndingTable* table = nullptr;  ///< the owner
  std::string name;              ///< the affix's name
  std::string suffix;            ///< in lower case
  std::string replacement;
  std::uint8_t suffix_length = 0;
  LExp* condition = nullptr;  ///< on the candidate; the table's, may be null

 protected:
  /// Reads `suffix name replacement`.
  bool read_change(IRSlist* form);
  /// The first `keep` bytes of the word and `tail`, if the condition allows it.
  const char* candidate(const char* word, std::size_t keep, std::string_view tail) const;
};

/// An ending that needs one of certain characters three from the end: the "es" of "boxes".
class EndingES : public Ending {
 public:
  bool matches(const char* word, int length) const override;
  bool init(World& world, IRSlist* form) override;

  std::string before;
};

/// An ending before which a consonant was doubled: the "ing" of "running".
class EndingDouble : public Ending {
 public:
  bool matches(const char* word, int length) const override;
  const char* strip(const char* word) const override;
};

class EndingTable {
 public:
  EndingTable() { endings.reserve(50); }
  EndingTable(const EndingTable&) = delete;
  EndingTable& operator=(const EndingTable&) = delete;

  /// Reads `(:conditions ((NAME ...) LEXP) ...)` and endings, appending.
  void read(World& world, IRSlist* form);
  /// The condition of a name, or null.
  LExp* condition(const char* name) const;

  std::vector<std::unique_ptr<Ending>> endings;
  std::vector<std::pair<std::string, std::shared_ptr<LExp>>> conditions;
  mutable std::string work;

 private:
  void read_conditions(World& world, IRSlist* form);
  void read_ending(World& world, IRSlist* form);
};

/// A walk over the endings of a table that match a word, in table order.
class EndingWalk {
 public:
  EndingWalk(const EndingTable& table, const char* word);
  /// Null at the end.
  const Ending* current() const;
  void next();

 private:
  const EndingTable& table_;
  const char* word_;
  int length_;
  std::size_t cursor_ = 0;
};

namespace tags {
inline constexpr TypeTag ending_table{"EndingTable*"};
}
template <>
struct ValueTraits<EndingTable> : TagOf<EndingTable, tags::ending_table> {};

}  // namespace torvane
