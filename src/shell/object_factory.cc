#include "shell/object_factory.h"

#include "shell/offers.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/regexp.h"

namespace torvane {

namespace {

Value classes(World& world, IRSlist* form) {
  world.families.print(world.out(), form->get_str_val());
  return Value();
}

Value objects(World& world, IRSlist* form) {
  const char* object_regexp = form->get_str_val();
  const char* family_regexp = form->get_str_val();
  world.families.list_objects(world.out(), object_regexp, family_regexp);
  return Value();
}

constexpr Command kObjectFactoryCommands[] = {
    {"classes", classes, "(classes cl) list the classes in the Object Factory"},
    {"objects", objects, "(objects obj cl) list the objects belonging to cl in the Object Factory"},
};

}  // namespace

ObjFactory* Families::add(const char* family, const char* title, ObjFactory::Maker maker) {
  return table_.insert(family, std::make_unique<ObjFactory>(maker), title)->value.get();
}

ObjFactory& Families::open(const char* family, const char* title, ObjFactory::Maker maker) {
  ObjFactory* there = find(family);
  return there ? *there : *add(family, title, maker);
}

ObjFactory* Families::find(const char* name) const {
  const auto* entry = table_.find(name);
  return entry ? entry->value.get() : nullptr;
}

bool Families::add_proto(const char* family_name, const char* name, Value prototype,
                         const char* doc) {
  ObjFactory* family = find(family_name);
  if (!family) {
    messages() << "ObjFactory::proto no maker for '" << or_empty(family_name) << "'\n";
    return false;
  }
  bool added;
  family->insert(name, prototype, doc, &added);
  return added;
}

void Families::print(std::ostream& out, const char* family_regexp) const {
  print_help(out, table_, family_regexp);
}

void Families::list_objects(std::ostream& out, const char* object_regexp,
                            const char* family_regexp) const {
  NameFilter family_filter(family_regexp);
  table_.for_each([&](const auto& entry) {
    if (family_filter.passes(entry.key)) print_help(out, *entry.value, object_regexp);
  });
}

constinit const Offer offers::object_factory{kObjectFactoryCommands};

}  // namespace torvane
