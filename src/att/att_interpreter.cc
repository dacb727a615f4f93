#include "att/att_interpreter.h"

#include "att/att_interpreter_list.h"
#include "shell/object_factory.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

AttWord AttInterpreter::bad_value(const char* value) const {
  messages() << "Oops! The attribute '" << name << "' cannot have '" << or_empty(value)
             << "' as value\n";
  return 0;
}

void AttInterpreter::init(World&, IRSlist* facets) {
  if (facets && !facets->empty()) unknown_facets(*facets);
}

void AttInterpreter::unknown_facets(const IRSlist& facets) const {
  messages() << "Unrecognized facet specification for attribute " << name << ' ';
  facets.print_item(messages());
  messages() << '\n';
}

void AttInterpreter::generalize(AttVec* a, const AttVec* b) const {
  if (!a->has(index)) return;
  if (!b->has(index) || compare(get(a), get(b)) != Subsumption::equal) a->undefine(index);
}

void AttInterpreter::subtract(AttVec* a, const AttVec* b) const {
  if (a->has(index) && b->has(index) && compare(get(a), get(b)) == Subsumption::equal)
    a->undefine(index);
}

bool AttInterpreter::unify(AttVec* vec, int at, AttWord value, bool store) const {
  if (vec->has(at)) return get(vec) == value;
  if (store) vec->set(at, value);
  return true;
}

void AttInterpreter::modify(AttVec* vec, int at, AttWord value) const {
  vec->set(at, value);
}

Subsumption AttInterpreter::compare(AttWord a, AttWord b) const {
  return a == b ? Subsumption::equal : Subsumption::incomparable;
}

float AttInterpreter::similarity(AttWord a, AttWord b) const {
  return compare(a, b) == Subsumption::equal ? weight : 0.0f;
}

void AttInterpreter::print(std::ostream& out, const AttVec* vec) const {
  std::string scratch;
  const char* text = str_val(get(vec), scratch);
  if (!text) return;
  if (*text == '+' || *text == '-' || *text == '~')
    out << *text << name;
  else
    out << '(' << name << ' ' << text << ')';
}

const char* AttInterpreter::str_val(AttWord, std::string&) const {
  messages() << "invalid AttType for AttVec::str_val\n";
  return nullptr;
}

AttWord AttInterpreter::make_val(IRSlist* form) const {
  const char* text = form->is_atom() ? form->atom : form->nth_str_val(0);
  if (text && *text == '~') return 0;
  return bad_form("AttInterpreter " + name + " doesn't know how to make value: ", *form);
}

AttWord AttInterpreter::bad_form(std::string_view complaint, const IRSlist& form) {
  messages() << complaint;
  if (form.is_atom())
    form.print_item(messages());
  else
    form.print(messages());
  messages() << '\n';
  return 0;
}

AttWord AttInterpreter::get_val(const char*) const {
  messages() << "AttInterpreter::get_val(const char* value) should not be called by " << type_name()
             << '\n';
  return static_cast<AttWord>(-1);
}

void AttInterpreter::set_name(const char* new_name) {
  if (new_name)
    name = new_name;
  else
    messages() << "AttInterpreter::name(<name>): <name> must not be nil.\n";
}

std::unique_ptr<AttInterpreter> get_attitp(World& world, const char* type) {
  auto* entry = world.families.find("AttIntepreter")->find(type);
  if (entry)
    if (auto* prototype = entry->value.as<AttInterpreter>()) return prototype->clone();
  messages() << "AttInterpreter::get_attitp:  unknown type: " << or_empty(type) << '\n';
  return nullptr;
}

}  // namespace torvane
