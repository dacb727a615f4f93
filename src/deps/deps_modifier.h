// What rewrites a finished tree.
#pragma once

#include "deps/rs_tree.h"
#include "support/value.h"

namespace torvane {

/// Objects of the type "TreeModifier" are of this kind: their tag has `tags::deps_modifier` as
/// base, and their values hold the pointer of this class.
class DepsModifier {
 public:
  virtual void modify(RSTree* root) = 0;
  virtual ~DepsModifier() = default;
};

namespace tags {
inline constexpr TypeTag deps_modifier{"TreeModifier*"};
}
template <>
struct ValueTraits<DepsModifier> : TagOf<DepsModifier, tags::deps_modifier> {};

}  // namespace torvane
