// What the parser's layer keeps for a world: its parsers, the handles of the attributes they read,
// and what all of them share.
#pragma once

#include <memory>
#include <vector>

#include "parser/grammar/syntax_atts.h"
#include "parser/torvane_parser.h"
#include "shell/tokenizer.h"
#include "shell/world.h"

namespace torvane {

class Parsing : public WorldPart {
 public:
  static constexpr Place kPlace = parser;

  SyntaxAtts atts;
  SharedCosts costs;
  /// Cuts a sentence into words and gaps.
  std::unique_ptr<Tokenizer> sentence_tokenizer;

  /// Makes a parser, which lives as long as the world and is the current one from now on.
  TorvaneParser& make_parser(World& world, int hashtable_size);
  /// The last one made, or null.
  TorvaneParser* current() const { return parsers_.empty() ? nullptr : parsers_.back().get(); }
  /// One of them has a sentence in hand.
  bool is_parsing() const;

 private:
  std::vector<std::unique_ptr<TorvaneParser>> parsers_;
};

inline Parsing& parsing(World& world) {
  return world.part<Parsing>();
}

}  // namespace torvane
