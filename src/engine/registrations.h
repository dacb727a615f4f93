// What every module adds to the configuration language of a world.
#pragma once

#include <span>

#include "shell/offer.h"

namespace torvane {

/// One row of the start: what a file offers, or a module's registration.
struct Registration {
  const Offer* offer;
  const char* what = nullptr;
  void (*run)(World& world) = nullptr;

  void enter(World& world) const {
    if (offer)
      offer->enter(world);
    else
      run(world);
  }
};

/// All rows, in the order in which they are entered: it decides what is found first where names
/// collide.
std::span<const Registration> registrations();

}  // namespace torvane
