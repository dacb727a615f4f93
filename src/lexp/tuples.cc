#include "lexp/tuples.h"

namespace torvane {

namespace tags {
const TypeTag two_args{"TwoArgs*", nullptr, Life::transient};  // lives in a comparison's frame
const TypeTag value_list{"Slist*", nullptr, Life::counted,
                         [](Word w) { reinterpret_cast<ValueList*>(w)->retain(); },
                         [](Word w) { reinterpret_cast<ValueList*>(w)->release(); }};
}  // namespace tags

}  // namespace torvane
