#include "support/array.h"

#include <iostream>

#include "support/messages.h"

namespace torvane {

void report_bounds(int index, int count) {
  // Kept: out-of-bounds-goes-on
  messages() << "Array index out of bounds: " << index << " It should be between 0 and "
             << count - 1 << std::endl;
}

}  // namespace torvane
