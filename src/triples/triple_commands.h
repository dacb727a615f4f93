// The commands on triple databases: making, filling, merging and dumping them.
#pragma once

namespace torvane {

class World;

/// Registers the commands on stores, on triple databases, and the queries and reports over them.
void register_triple_commands(World& world);

}  // namespace torvane
