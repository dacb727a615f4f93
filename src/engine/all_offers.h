// What every module adds to the configuration language of a world, in one row.
#pragma once

#include <span>

#include "shell/offer.h"

namespace torvane {

/// What all files offer, in the order in which it is entered: that decides what is found first
/// where names collide.
std::span<const Offer* const> all_offers();

}  // namespace torvane
