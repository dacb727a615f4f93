// Suffix stripping for English words by the table-driven method of M. F. Porter, "An algorithm for
// suffix stripping", Program 14(3), 1980, with the table that the system has always used.
#pragma once

namespace torvane {

/// Stems `word` in place. 1 on success; 0 at the first byte that is not a letter, with the letters
/// before it folded to lower case.
int stem(char* word);

}  // namespace torvane
