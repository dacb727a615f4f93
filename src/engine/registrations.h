// What every module adds to the configuration language of a world.
#pragma once

#include <span>

namespace torvane {

class World;

/// One row of the start: a module's registration.
struct Registration {
  const char* what;
  void (*run)(World& world);
};

/// All rows, in the order in which they are run: it decides what is found first where names
/// collide.
std::span<const Registration> registrations();

}  // namespace torvane
