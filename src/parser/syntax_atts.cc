#include "parser/syntax_atts.h"

#include <cstring>

#include "att/attributes.h"
#include "parser/parsing.h"
#include "shell/exec.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {
namespace {

constexpr char kTypeName[] = "syn";

/// What the parser does with a value decides which classes of attribute it can work with.
enum class Use { truth, number, text, entity, list, trace };

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

struct Role {
  const char* name;
  int SyntaxAtts::*index;
  Use use;
};
constexpr Role kRoles[] = {
    {"args", &SyntaxAtts::args, Use::list},
    {"cm", &SyntaxAtts::cm, Use::truth},
    {"cat", &SyntaxAtts::cat, Use::number},
    {"cform", &SyntaxAtts::cform, Use::text},
    {"check", &SyntaxAtts::check, Use::number},
    {"control", &SyntaxAtts::control, Use::truth},
    {"govern", &SyntaxAtts::govern, Use::truth},
    {"guest", &SyntaxAtts::guest, Use::truth},
    {"head_final", &SyntaxAtts::head_final, Use::truth},
    {"last_conj", &SyntaxAtts::last_conj, Use::number},
    {"lexitem", &SyntaxAtts::lexitem, Use::entity},
    {"move", &SyntaxAtts::move, Use::list},
    {"node", &SyntaxAtts::node, Use::text},
    {"opt", &SyntaxAtts::opt, Use::truth},
    {"pform", &SyntaxAtts::pform, Use::text},
    {"rare", &SyntaxAtts::rare, Use::truth},
    {"ref", &SyntaxAtts::ref, Use::text},
    {"role", &SyntaxAtts::role, Use::text},
    {"slash", &SyntaxAtts::slash, Use::number},
    {"trace", &SyntaxAtts::trace, Use::trace},
};

struct CategoryValue {
  const char* name;
  AttWord SyntaxAtts::*value;
};
constexpr CategoryValue kCategories[] = {
    {"a", &SyntaxAtts::cat_a}, {"c", &SyntaxAtts::cat_c}, {"d", &SyntaxAtts::cat_d},
    {"i", &SyntaxAtts::cat_i}, {"j", &SyntaxAtts::cat_j}, {"n", &SyntaxAtts::cat_n},
    {"p", &SyntaxAtts::cat_p}, {"v", &SyntaxAtts::cat_v},
};

int find_att(World& world, const AttInterpreterList* type, const Role& role) {
  int index = get_att(world, kTypeName, role.name);
  const AttInterpreter* att = type ? type->at(index) : nullptr;
  if (!att) return -1;
  if (usable(*att, role.use)) return index;
  messages() << "init-attributes: " << role.name << " cannot be of the class " << att->type_name()
             << '\n';
  return -1;
}

Value init_attributes(World& world, IRSlist*) {
  SyntaxAtts found;
  found.type = find_att_list(world, kTypeName, false);
  for (const Role& role : kRoles) found.*role.index = find_att(world, found.type, role);
  found.wh = get_att(world, kTypeName, "slash", "wh");
  for (const CategoryValue& category : kCategories)
    found.*category.value = get_att(world, kTypeName, "cat", category.name);
  SyntaxAtts& handles = parsing(world).atts;
  if (handles.type) handles.type->roles = nullptr;
  handles = found;
  if (handles.type) handles.type->roles = &handles;
  return Value();
}

}  // namespace

void register_init_attributes(World& world) {
  world.interpreter.define("init-attributes", init_attributes, nullptr);
}

}  // namespace torvane
