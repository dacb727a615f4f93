// One reading of a stretch of the sentence: a word sense, an inflected form, a phrase, or what a
// rule made.
#pragma once

#include <cstdint>
#include <memory>

#include "lex/lexicon/meaning.h"
#include "support/slist.h"

namespace torvane {

class LexAnalyzer;
struct LexEntry;

/// Items live in the analyser's pool: a reset empties and in time recycles them, and never gives
/// the memory back, so a stale pointer reads an empty item.
class LexItem {
 public:
  std::int16_t high = 0, low = 0;  ///< inclusive span; an empty item has high = low - 1
  std::int16_t head = 0;           ///< position of the head word
  std::int16_t weight = 0;
  std::unique_ptr<Meaning> meaning;  ///< a clone, may be null
  Slist<const char*> affixes;        ///< names of endings, in the analyser's pool
  Slist<LexItem*> components;        ///< ordered by low
  const char* root = nullptr;        ///< in the pool
  const char* role = nullptr;        ///< label of a component, in the pool, may be null
  const char* category = nullptr;    ///< in the pool, may be null
  const char* entry_key = nullptr;  ///< in the pool: the key of the entry it came from, may be null
  LexAnalyzer* analyzer = nullptr;

  bool is_empty() const { return high < low; }
  bool in_chart() const { return chart_low_ >= 0; }
  /// Taken out of the chart.
  bool is_deleted() const { return deleted_; }
  /// Back to an item of no sentence, which no chart takes.
  void clear() {
    *this = LexItem();
    high = -1;
    deleted_ = true;
  }
  /// The vector of an AVMeaning, else null.
  AttVec* vec() const {
    AVMeaning* avm = as_avm(meaning.get());
    return avm ? avm->vec.get() : nullptr;
  }

 private:
  friend class LexAnalyzer;

  std::int16_t chart_low_ = -1;   // where it stands among those that start together; -1: nowhere
  std::int16_t chart_high_ = -1;  // the same of those that end together
  bool deleted_ = false;
};

namespace tags {
extern const TypeTag lex_item;
inline constexpr TypeTag lex_analyzer{"LexAnalyzer*"};
}  // namespace tags
template <>
struct ValueTraits<LexItem> : TagOf<LexItem, tags::lex_item> {};

}  // namespace torvane
