// Values made of values: the pair that `1/2` and `2/2` take apart, and what `list` gives.
#pragma once

#include "lexp/types.h"
#include "support/array.h"
#include "support/ref.h"
#include "support/value.h"

namespace torvane {

/// The input of `1/2` and `2/2`: two values, each with its type.
struct TwoArgs {
  Value first;
  int first_type = kAnyType;
  Value second;
  int second_type = kAnyType;
};

/// What `list` gives.
class ValueList : public Counted<ValueList> {
 public:
  Array<HeldValue> values;
};

namespace tags {
extern const TypeTag two_args;
extern const TypeTag value_list;
}  // namespace tags
template <>
struct ValueTraits<TwoArgs> : TagOf<TwoArgs, tags::two_args> {};
template <>
struct ValueTraits<ValueList> : TagOf<ValueList, tags::value_list> {};

}  // namespace torvane
