// The commands by which a grammar file declares types of vectors.
#include <memory>
#include <vector>

#include "att/aliases.h"
#include "att/att_args.h"
#include "att/attributes.h"
#include "shell/exec.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

namespace {

Value defattribute(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  const char* type = name ? form->get_str_val() : nullptr;
  if (!type) {
    messages() << "Missing argument: (defattribute <name> <type>)\n";
    return {};
  }
  std::unique_ptr<AttInterpreter> att = get_attitp(world, type);
  if (!att) return {};
  att->set_name(name);
  att->init(world, form);
  attributes(world).pending = std::move(att);
  return Value::of(attributes(world).pending.get());
}

Value def_att_list(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) {
    messages() << "Missing arguments in (def-att-list <name> ...)\n";
    return {};
  }
  AttInterpreterList* type = find_att_list(world, name, false);
  if (!type) type = make_att_list(world, name, form->length());
  while (auto item = form->pop_front()) {
    auto* att = world.interpreter.eval(*item).as<AttInterpreter>();
    if (att && att == attributes(world).pending.get()) type->add(std::move(attributes(world).pending));
  }
  attributes(world).current = type;
  return Value::of(type);
}

Value make_av(World& world, IRSlist* form) {
  Ref<AttVec>& last_made = attributes(world).last_made;  // lives until the next one
  last_made = read_vector(world, *form);
  return Value::of(last_made.get());
}

Value set_att_itp_list(World& world, IRSlist* form) {
  AttInterpreterList* type = find_att_list(world, form->get_str_val());
  if (type) attributes(world).current = type;
  return Value::of(type);
}

Value def_att_set(World& world, IRSlist* form) {
  if (form->length() < 2) {
    messages() << "(def-att-set type-of-attvec name att1 att2 ... attn)\n";
    return {};
  }
  AttInterpreterList* type = find_att_list(world, form->get_str_val());
  const char* name = form->get_str_val();
  if (!type || !name) return {};
  LBitSet set;
  type->make_att_set(set, form);
  type->add_att_set(name, std::move(set));
  return Value::of(type);
}

constexpr Command kCommands[] = {
    {"defattribute", defattribute,
     "(defattribute <att-name> <att-type> <other-parameters>) ---define an attribute"},
    {"def-att-list", def_att_list,
     "(def-att-list <type-of-attvec>\n  (defattribute ....)\n  (defattribute ....)\n  ....\n  ) "
     "--- "
     "\ndefine a new type of attribute value vector"},
    {"make-av", make_av, "(make-av [type-of-attvec] <attvec>) --- make an attribute value vector"},
    {"set-att-itp-list", set_att_itp_list, "(set-att-itp-list att-type) set the current att-type."},
    {"def-att-set", def_att_set,
     "(def-att-set att-type name att1 att2 ...) define a set of attribute values and assign it a "
     "name."},
};

}  // namespace

void register_attribute_commands(World& world) {
  register_attribute_types(world);
  world.interpreter.define(kCommands);
  register_alias_commands(world);
}

}  // namespace torvane
