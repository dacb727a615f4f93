#include "shell/offer.h"

#include "shell/world.h"

namespace torvane {

void Offer::enter(World& world) const {
  if (before) before(world);
  for (const Prototype& row : prototypes) row.enter(world, row);
  world.interpreter.define(commands);
}

void enter_all(World& world, std::initializer_list<const Offer*> all) {
  for (const Offer* offer : all) offer->enter(world);
}

}  // namespace torvane
