#include "deps/dep_forms.h"

#include "deps/val_types.h"

namespace torvane {

void register_deps_forms() {
  static bool done = false;
  if (done) return;
  done = true;
  register_value_types();
  register_node_adaptors();
  register_walk_forms();
  register_prop_forms();
  register_trel_forms();
  register_deps_reading_forms();
  register_dep_print_forms();
}

}  // namespace torvane
