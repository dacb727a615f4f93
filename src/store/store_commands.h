// The commands on cached stores: linking to a file, writing back, listing, copying, checking.
#pragma once

namespace torvane {

void register_store_commands();

}  // namespace torvane
