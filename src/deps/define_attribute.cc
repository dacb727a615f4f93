// The command `define-attribute`, by which a start-up file defines a property of nodes, and the
// types of values that it names.
#include "deps/offers.h"
#include "deps/trees.h"
#include "deps/val_types.h"
#include "shell/named_objects.h"
#include "shell/world.h"

namespace torvane {

namespace {

constexpr const char* kValType = "ValType";

Value define_attribute(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  const auto* type = world.objects.find_as<ValType>(form->get_str_val(), kValType, true);
  if (name && type) trees(world).properties.define(name, type);
  return Value();
}

constexpr Command kDefineAttributeCommands[] = {
    {"define-attribute", define_attribute, "(define-attribute name-of-attribute type-of-val)"},
};

template <class T>
void own_type(World& world, const char* name) {
  world.own_object<T, ValType>(name, std::make_unique<T>(), kValType);
}

void own_types(World& world) {
  own_type<IntValue>(world, "IntValue");
  own_type<StrValue>(world, "StrValue");
  own_type<StrListValue>(world, "StrListValue");
  own_type<DepTreeValue>(world, "DepTreeValue");
}

}  // namespace

constinit const Offer offers::define_attribute{std::span<const Prototype>(),
                                               kDefineAttributeCommands, own_types};

}  // namespace torvane
