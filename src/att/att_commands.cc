// The commands by which a grammar file declares types of vectors.
#include <iostream>
#include <memory>
#include <utility>
#include <vector>

#include "att/aliases.h"
#include "att/att_args.h"
#include "shell/exec.h"
#include "shell/macro.h"

namespace torvane {

namespace {

using Attributes = std::vector<std::unique_ptr<AttInterpreter>>;

// Where attributes go until their type takes them over.
struct Pending {
  Attributes* of_item = nullptr;  // those that the item of a `def-att-list` makes
  std::unique_ptr<AttInterpreter> last;
};
Pending& pending() {
  static auto& made = *new Pending;
  return made;
}

Value defattribute(IRSlist* form) {
  const char* name = form->get_str_val();
  const char* type = name ? form->get_str_val() : nullptr;
  if (!type) {
    std::cerr << "Missing argument: (defattribute <name> <type>)\n";
    return {};
  }
  std::unique_ptr<AttInterpreter> att = get_attitp(type);
  if (!att) return {};
  att->set_name(name);
  att->init(form);
  Value made = Value::of(att.get());
  if (Attributes* of_item = pending().of_item)
    of_item->push_back(std::move(att));
  else
    pending().last = std::move(att);
  return made;
}

// A macro stands for all the attributes that it expands to.
void add_attributes(AttInterpreterList& type, IRSlist& item) {
  const bool is_macro = find_macro(item) != nullptr;
  Attributes made;
  Attributes* outer = std::exchange(pending().of_item, &made);
  const auto* result = interpreter().eval(item).as<AttInterpreter>();
  pending().of_item = outer;
  for (auto& att : made)
    if (is_macro || att.get() == result) type.add(std::move(att));
}

Value def_att_list(IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) {
    std::cerr << "Missing arguments in (def-att-list <name> ...)\n";
    return {};
  }
  AttInterpreterList* type = AttInterpreterList::find(name, false);
  if (!type) {
    // Also one whose name another object has: vectors may be made of it from here on.
    static auto& types = *new std::vector<std::unique_ptr<AttInterpreterList>>;
    types.push_back(std::make_unique<AttInterpreterList>(name, form->length()));
    type = types.back().get();
  }
  while (auto item = form->pop_front()) add_attributes(*type, *item);
  AttInterpreterList::set_current(type);
  return Value::of(type);
}

Value make_av(IRSlist* form) {
  Ref<AttVec> vec = read_vector(*form);
  lend(*vec);
  return Value::of(vec.get());
}

Value set_att_itp_list(IRSlist* form) {
  AttInterpreterList* type = AttInterpreterList::find(form->get_str_val());
  if (type) AttInterpreterList::set_current(type);
  return Value::of(type);
}

Value def_att_set(IRSlist* form) {
  if (form->empty()) {
    std::cerr << "(def-att-set type-of-attvec name att1 att2 ... attn)\n";
    return {};
  }
  AttInterpreterList* type = AttInterpreterList::find(form->get_str_val());
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

void register_attribute_commands() {
  static bool done = false;
  if (done) return;
  done = true;
  register_attribute_types();
  interpreter().define(kCommands);
  register_alias_commands();
}

}  // namespace torvane
