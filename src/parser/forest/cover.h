// The cheapest way to lay a row of result trees over a sentence.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace torvane {

struct TNode;

/// A word as the cover sees it.
struct CoverWord {
  float cost = 0;                   ///< of leaving it outside every tree
  bool is_punctuation = false;      ///< a single punctuation character: joining beside it is cheap
  bool starts_punctuation = false;  ///< dropped at the end of the sentence
};

/// A tree for a span.
struct CoverOffer {
  TNode* node;
  int low, high;
  float cost;
  std::size_t number;  ///< in order of arrival
};

class Cover {
 public:
  /// The table grows with the square of the words, and the work with the cube; where a text has
  /// more, the same is chosen in another way.
  static constexpr int kMostTableWords = 1000;

  explicit Cover(int most_table_words = kMostTableWords) : most_table_words_(most_table_words) {}

  /// Starts on a sentence. `words[0]` stands before the first word and is never covered.
  std::vector<CoverWord>& start(int word_slots);
  /// Offers a tree for its span. The cheapest one stays; of equals, the earliest.
  void offer(TNode* node, int low, int high, float cost);
  /// The chosen trees, from left to right; valid until the next call.
  const std::vector<TNode*>& choose();

  /// Trees of other spans cannot be laid over so many words.
  static bool takes(int low, int high, int word_slots) {
    return low >= 1 && low <= high && high < word_slots;
  }
  /// Behind the last word to be covered: punctuation at the end that no tree reaches is not.
  template <class StartsPunctuation>
  static int end_of_cover(int word_slots, int last_of_trees, StartsPunctuation starts_punctuation) {
    int end = word_slots;
    while (last_of_trees + 1 < end && starts_punctuation(end - 1)) --end;
    return end;
  }
  static float join_cost(const CoverWord& left, const CoverWord& right);
  static std::size_t cell_index(int low, int high) {
    return static_cast<std::size_t>((high + 3) * high / 2 - low);
  }
  static std::size_t cell_count(int words) {
    return static_cast<std::size_t>((words + 3) * words / 2);
  }

 private:
  struct Cell {
    TNode* node = nullptr;
    float cost = -1;  // -1: unset
    int split = 0;    // the last word of the left part; 0: none
  };

  void keep_best_offers();
  int end_of_offers() const;
  void choose_by_table(int end);
  void fill_cell(int low, int high);

  int most_table_words_;
  std::vector<CoverWord> words_;
  std::vector<CoverOffer> offers_;
  std::vector<Cell> cells_;
  std::vector<std::pair<int, int>> spans_;
  std::vector<TNode*> chosen_;
};

}  // namespace torvane
