#include "att/att_args.h"

namespace torvane {

AttInterpreterList* take_att_type(IRSlist& args) {
  const IRSlist* first = args.nth(0);
  AttInterpreterList* type = nullptr;
  if (first && first->is_atom()) type = AttInterpreterList::find(args.get_str_val());
  return type ? type : AttInterpreterList::current();
}

Ref<AttVec> read_vector(IRSlist& args) {
  AttInterpreterList* type = take_att_type(args);
  auto form = args.pop_front();
  return make_ref<AttVec>(form.get(), type);
}

}  // namespace torvane
