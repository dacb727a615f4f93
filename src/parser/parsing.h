// What the parser's layer keeps for a world: its parsers, the handles of the attributes they read,
// and what all of them share.
#pragma once

#include <memory>
#include <vector>

#include "parser/dist_table.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"
#include "shell/tokenizer.h"
#include "shell/world.h"

namespace torvane {

class Parsing : public WorldPart {
 public:
  static constexpr Place kPlace = parser;

  /// The table of distances, read when it is first asked for.
  const DistTable& distances(World& world);

  TorvaneParser* current = nullptr;  ///< the last one made, or null
  bool busy = false;                 ///< a sentence is in hand
  long debug_weight = 0;
  SyntaxAtts atts;
  /// Cuts a sentence into words and gaps.
  std::unique_ptr<Tokenizer> sentence_tokenizer;
  std::vector<std::unique_ptr<TorvaneParser>> parsers;

 private:
  std::unique_ptr<DistTable> distances_;
};

inline Parsing& parsing(World& world) {
  return world.part<Parsing>();
}

}  // namespace torvane
