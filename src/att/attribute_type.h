// How a value class of attributes comes under the name by which `defattribute` finds it.
#pragma once

#include <memory>

#include "att/att_interpreter.h"
#include "shell/offer.h"
#include "shell/world.h"

namespace torvane {

// Kept: att-intepreter
inline constexpr const char* kAttributeTypes = "AttIntepreter";  // as grammar files know it

/// The row of a value class, with its `kType` and `kUsage`, for its file's table.
template <class Class>
constexpr Prototype attribute_type() {
  return {kAttributeTypes, Class::kType, Class::kUsage, nullptr,
          [](World& world, const Prototype& row) {
            world.families.open(kAttributeTypes, nullptr, nullptr);
            auto* prototype = world.own(std::make_unique<Class>());
            world.families.add_proto(row.family, row.name, Value::of<AttInterpreter>(prototype),
                                     row.doc);
          }};
}

}  // namespace torvane
