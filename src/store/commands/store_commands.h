// The commands on cached stores: linking to a file, writing back, listing, copying, checking.
#pragma once

namespace torvane {

class World;

void register_store_commands(World& world);

}  // namespace torvane
