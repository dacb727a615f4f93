// What the sources of the nested attributes share.
#pragma once

#include <ostream>

#include "att/att_vec.h"
#include "support/depth.h"

namespace torvane {

/// What the walks from vectors to those inside them share.
struct Nesting {
  static constexpr int kMostSteps = 1 << 20;

  DepthLimit limit{"Attribute vectors are nested too deep"};
  int steps_left = 0;
};
inline constinit thread_local Nesting nesting;

/// Entered at each step from a vector to one inside it. False when the walk must be given up, after
/// a message: it goes too deep, or too far, since vectors that share their values are as a tree of
/// any size.
class NestingGuard {
 public:
  NestingGuard() : guard_(nesting.limit) {
    if (nesting.limit.depth == 1) nesting.steps_left = Nesting::kMostSteps;
    if (--nesting.steps_left < 0) [[unlikely]]
      trip(nesting.limit);
  }
  explicit operator bool() const { return !has_tripped(nesting.limit); }

 private:
  DepthGuard guard_;
};

/// Writes each vector with `before` in front of it.
void print_vectors(std::ostream& out, const AttVec& vec, const char* before);
void print_vectors(std::ostream& out, const AttVecList& list, const char* before);

void pack_nested(const AttVec& vec, StrBufs& out);
/// False if the bytes are cut off or nest too deep.
bool unpack_nested(AttVec& vec, const char*& p, const char* end);

}  // namespace torvane
