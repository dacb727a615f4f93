#include "shell/object_factory.h"

#include <iostream>

#include "shell/exec.h"
#include "support/regexp.h"

namespace torvane {

namespace {

NameTable<ObjFactory*>& families() {
  static auto& table = *new NameTable<ObjFactory*>(1979);
  return table;
}

Value classes(IRSlist* form) {
  print_help(std::cout, families(), form->get_str_val());
  return Value();
}

Value objects(IRSlist* form) {
  const char* object_regexp = form->get_str_val();
  const char* family_regexp = form->get_str_val();
  ObjFactory::list_objects(std::cout, object_regexp, family_regexp);
  return Value();
}

constexpr Command kCommands[] = {
    {"classes", classes, "(classes cl) list the classes in the Object Factory"},
    {"objects", objects, "(objects obj cl) list the objects belonging to cl in the Object Factory"},
};

}  // namespace

ObjFactory* ObjFactory::add_family(const char* family, const char* title, Maker maker) {
  bool added;
  auto made = std::make_unique<ObjFactory>(maker);
  auto* entry = families().insert(family, made.get(), title, &added);
  if (added) made.release();
  return entry->value;
}

ObjFactory* ObjFactory::family(const char* name) {
  const auto* entry = families().find(name);
  return entry ? entry->value : nullptr;
}

bool ObjFactory::proto(const char* family_name, const char* name, Value prototype,
                       const char* doc) {
  ObjFactory* factory = family(family_name);
  if (!factory) {
    std::cerr << "ObjFactory::proto no maker for '" << or_empty(family_name) << "'\n";
    return false;
  }
  bool added;
  factory->insert(name, prototype, doc, &added);
  return added;
}

void ObjFactory::list_objects(std::ostream& out, const char* object_regexp,
                              const char* family_regexp) {
  NameFilter family_filter(family_regexp);
  families().for_each([&](const auto& entry) {
    if (family_filter.passes(entry.key)) print_help(out, *entry.value, object_regexp);
  });
}

void register_object_factory_commands() {
  static bool registered = false;
  if (std::exchange(registered, true)) return;
  interpreter().define(kCommands);
}

}  // namespace torvane
