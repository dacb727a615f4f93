// The commands that set what a printed tree shows: `print-governor`, `print-deptree-weight`.
#include "deps/offers.h"
#include "deps/trees.h"

namespace torvane {
namespace {

Value set_print_weight(World& world, IRSlist* form) {
  trees(world).print_weight = form->get_long_val() != 0;
  return Value();
}

Value set_print_governor(World& world, IRSlist* form) {
  trees(world).print_governor = form->get_long_val() != 0;
  return Value();
}

constexpr Command kPrintFlagsCommands[] = {
    {"print-deptree-weight", set_print_weight,
     "(print-deptree-weight 0|1) set the PRINT_DEPTREE_WEIGHT flag"},
    {"print-governor", set_print_governor, "(print-governor 0|1) set the PRINT_GOV flag"},
};

}  // namespace

constinit const Offer offers::print_flags{kPrintFlagsCommands};

}  // namespace torvane
