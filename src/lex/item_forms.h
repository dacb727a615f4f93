// What an expression sees of a match and of a lexical item.
#pragma once

namespace torvane {

class World;

/// The accessors on matches and the predicates on lexical items.
void register_item_forms(World& world);

}  // namespace torvane
