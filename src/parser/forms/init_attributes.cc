// The command that looks up the attributes with a role in the parser.
#include <cstring>

#include "att/attributes.h"
#include "parser/forms/offers.h"
#include "parser/grammar/contract.h"
#include "parser/parsing.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {
namespace {

using contract::Use;

bool keeps_pointer(const AttInterpreter& att) {
  return std::strcmp(att.type_name(), "VecAtt") == 0 || as_str_att(&att) || as_ent_att(&att) ||
         as_list_att(&att) || as_trace_att(&att);
}

bool usable(const AttInterpreter& att, Use use) {
  switch (use) {
    case Use::truth:
      return true;
    case Use::number:
      return !keeps_pointer(att);
    case Use::text:
      return as_str_att(&att) != nullptr;
    case Use::entity:
      return as_ent_att(&att) != nullptr;
    case Use::list:
      return as_list_att(&att) != nullptr;
    case Use::trace:
      return as_trace_att(&att) != nullptr;
  }
  return false;
}

int find_att(World& world, const AttInterpreterList* type, const contract::Role& role) {
  int index = get_att(world, contract::kAttType, role.name);
  const AttInterpreter* att = type ? type->at(index) : nullptr;
  if (!att) return -1;
  if (usable(*att, role.use)) return index;
  messages() << "init-attributes: " << role.name << " cannot be of the class " << att->type_name()
             << '\n';
  return -1;
}

Value init_attributes(World& world, IRSlist*) {
  SyntaxAtts found;
  found.type = find_att_list(world, contract::kAttType, false);
  for (const contract::Role& role : contract::kRoles)
    found.*role.index = find_att(world, found.type, role);
  found.wh = get_att(world, contract::kAttType, contract::kDisplacedAtt, contract::kWh);
  for (const contract::Category& category : contract::kCategories)
    found.*category.value =
        get_att(world, contract::kAttType, contract::kCategoryAtt, category.letter);
  SyntaxAtts& handles = parsing(world).atts;
  if (handles.type) handles.type->roles = nullptr;
  handles = found;
  if (handles.type) handles.type->roles = &handles;
  return Value();
}

constexpr Command kInitAttributesCommands[] = {
    {"init-attributes", init_attributes, nullptr,
     "`(init-attributes)` looks up the attributes of the type `syn` that the parser uses"},
};

}  // namespace

constinit const Offer offers::init_attributes{kInitAttributesCommands};

}  // namespace torvane
