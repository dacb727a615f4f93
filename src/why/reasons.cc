#include "why/reasons.h"

namespace torvane {

const char* name_of(WhyKind kind) {
  switch (kind) {
    case WhyKind::no_reading:
      return "no-reading";
    case WhyKind::lost_reading:
      return "lost-reading";
    case WhyKind::wrong_side:
      return "wrong-side";
    case WhyKind::no_item:
      return "no-item";
    case WhyKind::not_neighbours:
      return "not-neighbours";
    case WhyKind::passed:
      return "passed";
    case WhyKind::required_empty:
      return "required-empty";
    case WhyKind::too_far:
      return "too-far";
    case WhyKind::isolated:
      return "isolated";
    case WhyKind::condition:
      return "condition";
    case WhyKind::attribute:
      return "attribute";
    case WhyKind::frame:
      return "frame";
    case WhyKind::moved:
      return "moved";
    case WhyKind::case_mark:
      return "case-mark";
    case WhyKind::incomplete:
      return "incomplete";
    case WhyKind::cut:
      return "cut";
    case WhyKind::equal_item:
      return "equal-item";
    case WhyKind::no_result:
      return "no-result";
    case WhyKind::elsewhere:
      return "elsewhere";
    case WhyKind::dearer:
      return "dearer";
    case WhyKind::chosen:
      return "chosen";
  }
  return "";
}

}  // namespace torvane
