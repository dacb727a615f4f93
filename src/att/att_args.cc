#include "att/att_args.h"

#include "att/attributes.h"

namespace torvane {

AttInterpreterList* take_att_type(World& world, IRSlist& args) {
  const IRSlist* first = args.nth(0);
  AttInterpreterList* type = nullptr;
  if (first && first->is_atom()) type = find_att_list(world, args.get_str_val());
  return type ? type : attributes(world).current;
}

Ref<AttVec> read_vector(World& world, IRSlist& args) {
  AttInterpreterList* type = take_att_type(world, args);
  auto form = args.pop_front();
  return make_ref<AttVec>(form.get(), type);
}

}  // namespace torvane
