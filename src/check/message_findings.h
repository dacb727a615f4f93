// What the engine itself says while it loads a grammar, as findings.
#pragma once

#include "check/finding.h"
#include "check/known_names.h"
#include "shell/placed_messages.h"

namespace torvane {

/// Adds what messages tell; those of progress are left out. `first` is where one stands that has no
/// place.
void add_messages(const World& world, const std::vector<PlacedMessage>& messages,
                  const KnownNames& names, const std::string& first, Findings& found);

}  // namespace torvane
