#include "lexp/tuples.h"

namespace torvane {

namespace tags {
const TypeTag two_args{"TwoArgs*", nullptr, Life::transient};  // lives in a comparison's frame
const TypeTag value_list = counted_tag<ValueList>("Slist*");
}  // namespace tags

}  // namespace torvane
