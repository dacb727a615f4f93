// The cover of a text that is too long for a table of all its spans: the choice that the table
// would make. A span that has a tree is not split, so that a row of trees may be out of reach: each
// way to put it together, two neighbours at a time, leads through such spans. A span wider than
// every tree has nothing in its way any more; so those up to that width are held, and of the wider
// ones only costs, and only for those that reach to one end of the text.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "parser/forest/cover.h"

namespace torvane {

class LongCover {
 public:
  /// Covers the words before `end`. Borrows both; of the trees, a span has one, and they are in
  /// order.
  LongCover(const std::vector<CoverWord>& words, const std::vector<CoverOffer>& offers, int end);
  /// The chosen trees from left to right.
  std::vector<TNode*> choose();

 private:
  /// For the spans that are held. A tree wider than the room allows may be chosen, but is not seen
  /// to stand in the way.
  static constexpr int kMostCells = 1 << 22;
  static constexpr int kPiece = 0;
  static constexpr int kUnknown = -1;
  struct Cell {
    float cost = 0;
    int left = kUnknown;  ///< words of the left part; `kPiece`: a tree or a single word
  };

  Cell& cell(int low, int high) { return cells_[cell_index(low, high)]; }
  const Cell& cell(int low, int high) const { return cells_[cell_index(low, high)]; }
  std::size_t cell_index(int low, int high) const {
    return static_cast<std::size_t>(low) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(high - low);
  }
  bool is_held(int low, int high) const { return high - low < width_; }
  const CoverOffer* tree_over(int low, int high) const;
  void split(int low, int high);

  // Mirrored, the text is seen from behind: the last word is the first.
  float join_after(int word, bool mirrored) const;
  float held_cost(int low, int high, bool mirrored) const;
  template <class Visit>
  void for_each_piece(int low, int end, bool mirrored, Visit visit) const;
  std::vector<double> costs_to(int end, bool mirrored) const;
  std::vector<double> costs_of_first_wide(int end, bool mirrored) const;

  int read_rest(int low);
  void read_front(int low, int high, int outer);
  void read(int low, int high);

  const std::vector<CoverWord>& words_;
  int n_;
  int width_ = 1;
  std::vector<std::vector<const CoverOffer*>> starting_, ending_;  // trees of several words
  std::vector<TNode*> word_trees_;
  std::vector<Cell> cells_;
  std::vector<int>
      trees_to_;  // while the cells are filled: by its first word, the tree that ends now
  std::vector<double> rest_;   // by its first word: what the text from there on costs
  std::vector<double> front_;  // the same of a text that ends sooner, mirrored
  std::vector<std::pair<int, TNode*>> found_;
};

}  // namespace torvane
