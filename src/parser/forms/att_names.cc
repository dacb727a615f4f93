#include "parser/forms/att_names.h"

#include "support/messages.h"

namespace torvane {
namespace {

void add_att(const IRSlist& name, const AttInterpreterList* type, const char* what, AttSet& atts) {
  int index = -1;
  if (name.is_atom() && type && type->lookup(name.atom, &index)) {
    atts.set(index);
    return;
  }
  messages() << what << ": ";
  name.print_item(messages());
  messages() << " is not an attribute name\n";
}

}  // namespace

AttSet read_atts(const IRSlist* names, const AttInterpreterList* type, const char* what) {
  AttSet atts;
  if (!names) return atts;
  if (names->is_atom()) add_att(*names, type, what, atts);
  for (const IRSlist* name : names->items) add_att(*name, type, what, atts);
  return atts;
}

AttSet all_atts(const AttInterpreterList* type) {
  AttSet atts;
  if (type && type->count() > 0) atts.set(0, type->count() - 1);
  return atts;
}

}  // namespace torvane
