// What an expression sees of a lexical item.
#pragma once

namespace torvane {

class World;

/// The predicates on lexical items and on analysers.
void register_item_forms(World& world);

}  // namespace torvane
