#include "deps/dep_forms.h"

#include "deps/val_types.h"

namespace torvane {

void register_deps_forms(World& world) {
  register_node_adaptors(world);
  register_walk_forms(world);
  register_prop_forms(world);
  register_trel_forms(world);
  register_deps_reading_forms(world);
  register_dep_print_forms(world);
}

}  // namespace torvane
