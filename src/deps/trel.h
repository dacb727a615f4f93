// A named relation with its triples, made by an expression and asserted of a tree.
#pragma once

#include <string>
#include <vector>

#include "deps/deps.h"

namespace torvane {

class TRel : public Counted<TRel> {
 public:
  struct Triple {
    std::string left;
    std::string right;
    float weight;
  };

  explicit TRel(std::string property) : name(std::move(property)) {}
  /// As an assertion of a tree, with the texts in its storage.
  void assert_in(Deps& deps) const;

  std::string name;
  std::vector<Triple> triples;
};

namespace tags {
extern const TypeTag trel;  // counted
}
template <>
struct ValueTraits<TRel> : TagOf<TRel, tags::trel> {};

}  // namespace torvane
