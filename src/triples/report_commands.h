// The pages on entries, a file each.
#pragma once

namespace torvane {

void register_entry_in_html();
void register_entry_comparison();

}  // namespace torvane
