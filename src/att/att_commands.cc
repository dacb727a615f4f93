// The commands by which a grammar file declares types of vectors.
#include <memory>
#include <utility>
#include <vector>

#include "att/aliases.h"
#include "att/att_args.h"
#include "att/attributes.h"
#include "att/offers.h"
#include "shell/macro.h"
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
  Value made = Value::of(att.get());
  Attributes& state = attributes(world);
  if (state.of_item)
    state.of_item->push_back(std::move(att));
  else
    state.pending = std::move(att);
  return made;
}

// A macro stands for all the attributes that it expands to.
void add_attributes(World& world, AttInterpreterList& type, IRSlist& item) {
  const bool is_macro = world.macros.find(item) != nullptr;
  Attributes::Made made;
  Attributes::Made* outer = std::exchange(attributes(world).of_item, &made);
  const auto* result = world.interpreter.eval(item).as<AttInterpreter>();
  attributes(world).of_item = outer;
  for (auto& att : made)
    if (is_macro || att.get() == result) type.add(std::move(att));
}

Value def_att_list(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) {
    messages() << "Missing arguments in (def-att-list <name> ...)\n";
    return {};
  }
  // Also one whose name another object has: vectors may be made of it from here on.
  AttInterpreterList* type = find_att_list(world, name, false);
  if (!type) type = make_att_list(world, name, form->length());
  while (auto item = form->pop_front()) add_attributes(world, *type, *item);
  attributes(world).current = type;
  return Value::of(type);
}

Value make_av(World& world, IRSlist* form) {
  Ref<AttVec> vec = read_vector(world, *form);
  lend(*vec);
  return Value::of(vec.get());
}

Value set_att_itp_list(World& world, IRSlist* form) {
  AttInterpreterList* type = find_att_list(world, form->get_str_val());
  if (type) attributes(world).current = type;
  return Value::of(type);
}

Value def_att_set(World& world, IRSlist* form) {
  if (form->empty()) {
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

constexpr Command kAttCommands[] = {
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

constinit const Offer offers::att_commands{kAttCommands};

}  // namespace torvane
