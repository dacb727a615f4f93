// How often a parse takes its steps. Only the build for bench/step_counts.cc counts
// (TORVANE_COUNT); in any other nothing is left of it.
#pragma once

#include <cstdint>

namespace torvane {

enum class Step {
  offer,
  refused_modifier,
  refused_head,
  foreseen,
  item,
  given_back,
  merge,
  refused_argument,
  refused_moved,
  refused_reach,
  refused_unification,
  refused_gap,
  refused_merged,
  refused_case,
  condition,
  equal_item,
  stored,
  vector_copied,
  byte_copied
};
inline constexpr int kSteps = static_cast<int>(Step::byte_copied) + 1;
inline constexpr const char* kStepNames[kSteps] = {
    "items offered to a link",
    "- refused by the modifier's condition",
    "- refused by the head's condition",
    "- whose projection was not worth making",
    "items made",
    "- taken back at once",
    "merges tried",
    "- refused: an argument",
    "- refused: what was moved",
    "- refused: distance or span",
    "- refused: unification",
    "- refused: no room for a gap",
    "- refused by the merged item's condition",
    "- refused: case",
    "conditions evaluated",
    "equal items found",
    "items stored",
    "vectors copied",
    "bytes of them",
};

#ifdef TORVANE_COUNT
inline thread_local std::uint64_t step_counts[kSteps] = {};
inline void count(Step step, std::uint64_t n = 1) {
  step_counts[static_cast<int>(step)] += n;
}
#else
inline void count(Step, std::uint64_t = 1) {}
#endif

/// What a test says, counted as the step if it refuses.
inline bool tested(bool passed, Step refusal) {
  if (!passed) count(refusal);
  return passed;
}

}  // namespace torvane
