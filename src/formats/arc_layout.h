// Sentences as words on lines with arcs above them: where each stands, for whoever draws them. A
// unit is what the caller measures in; places are in reading direction.
#pragma once

#include <cstddef>
#include <vector>

#include "engine/document.h"

namespace torvane {

/// What a drawing needs to know of its words and labels.
struct ArcMeasures {
  std::vector<int> words;   ///< widths
  std::vector<int> labels;  ///< widths of the labels of the arcs that end at the words
  int line = 0;             ///< width of a line, if no word is wider
  int gap = 0;              ///< between two words
  int label_gap = 0;        ///< on each side of a label
  int shift = 0;            ///< from the middle of a head to where its arcs start on each side
};

struct ArcWord {
  std::size_t line = 0;
  int x = 0;  ///< of its middle
};

/// An arc, or what one line has of it. Arcs of one head that leave the line on the same side are
/// one from there on.
struct ArcPiece {
  std::size_t line = 0;
  int left = 0, right = 0;
  int level = 0;  ///< from 1, the lowest
  /// The word that it ends at, from 1, and the one that its label belongs to; 0: it leads on to
  /// other lines, from its head or past.
  int dependent = 0;
  bool is_root = false;                           ///< straight down to the word, from nowhere
  bool comes_from_left = false, goes_on = false;  ///< open at the left, at the right
  bool ends_left = false;  ///< the dependent is at the left end, else at the right one
};

struct ArcLine {
  std::size_t first = 0, last = 0;  ///< words, from 0; the last one is within
  int levels = 0;
};

struct ArcLayout {
  std::vector<ArcWord> words;
  std::vector<ArcLine> lines;
  std::vector<ArcPiece> pieces;  ///< by lines
  int width = 0;                 ///< of the widest line
};

ArcLayout lay_out_arcs(const Sentence& sentence, const ArcMeasures& measures);

}  // namespace torvane
