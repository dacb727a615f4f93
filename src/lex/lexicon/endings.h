// The morphology of the system: a flat ordered table of endings. Each says whether a surface form
// carries it and gives the candidate root; which one fired is recorded on the lexical item.
#pragma once

#include <cstddef>
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
  explicit Ending(const EndingTable& owner) : table_(owner) {}
  virtual ~Ending() = default;
  virtual bool matches(const char* word, std::size_t length) const;
  /// The candidate root, in the table's work buffer until the next strip; null if there is none.
  virtual const char* strip(const char* word) const;
  /// Reads `suffix name replacement condition`, the last ones optional. False after a message.
  virtual bool init(IRSlist* form);

  /// The affix's name.
  const std::string& name() const { return name_; }

 protected:
  /// Reads `suffix name replacement`.
  bool read_change(IRSlist* form);
  /// The first `keep` bytes of the word and `tail`, if the condition allows it.
  const char* candidate(const char* word, std::size_t keep, std::string_view tail) const;
  std::size_t suffix_length() const { return suffix_.size(); }

 private:
  const EndingTable& table_;
  std::string name_;
  std::string suffix_;  // in lower case
  std::string replacement_;
  LExp* condition_ = nullptr;  // on the candidate; the table's, may be null
};

/// An ending that needs one of certain characters three from the end: the "es" of "boxes".
class EndingES : public Ending {
 public:
  using Ending::Ending;
  bool matches(const char* word, std::size_t length) const override;
  bool init(IRSlist* form) override;

 private:
  std::string before_;
};

/// An ending before which a consonant was doubled: the "ing" of "running".
class EndingDouble : public Ending {
 public:
  using Ending::Ending;
  bool matches(const char* word, std::size_t length) const override;
  const char* strip(const char* word) const override;
};

class EndingTable {
 public:
  EndingTable() { endings_.reserve(50); }
  EndingTable(const EndingTable&) = delete;
  EndingTable& operator=(const EndingTable&) = delete;

  /// Reads `(:conditions ((NAME ...) LEXP) ...)` and endings, appending.
  void read(World& world, IRSlist* form);
  /// The condition of a name, or null.
  LExp* condition(const char* name) const;
  const std::vector<std::unique_ptr<Ending>>& endings() const { return endings_; }

 private:
  friend class Ending;

  void read_conditions(World& world, IRSlist* form);
  void read_ending(IRSlist* form);

  std::vector<std::unique_ptr<Ending>> endings_;
  std::vector<std::pair<std::string, std::shared_ptr<LExp>>> conditions_;
  mutable std::string work_;  // the current candidate
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
  std::size_t length_;
  std::size_t cursor_ = 0;
};

namespace tags {
inline constexpr TypeTag ending_table{"EndingTable*"};
}
template <>
struct ValueTraits<EndingTable> : TagOf<EndingTable, tags::ending_table> {};

}  // namespace torvane
