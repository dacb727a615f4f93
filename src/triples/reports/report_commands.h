// The pages on entries, a file each.
#pragma once

namespace torvane {

class World;

void register_entry_in_html(World& world);
void register_entry_comparison(World& world);

}  // namespace torvane
