// A small backtracking regular expression engine: compiled into a compact byte program and
// interpreted.
//
// Alternatives by "|", groups by parentheses, "*", "+" and "?" after an atom; atoms are ".", "^",
// "$",
// "[...]", "[^...]", "\x" for a literal x, and literal bytes. At most nine groups.
#pragma once

#include <bitset>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace torvane {

struct regexp {
  const char* startp[10];  ///< start and end of the match (0) and of up to nine groups; null: unset
  const char* endp[10];
  char regstart;        ///< a byte every match must start with, 0 if unknown
  char reganch;         ///< non-zero if anchored at the beginning
  const char* regmust;  ///< a literal every match must contain, into `program`; may be null
  int regmlen;
  std::vector<char> program;  ///< a magic byte, then nodes

  // For speed: the sets of the program as tables, and where each node's one is; the choice points
  // of the program numbered, for the record of those that failed.
  std::vector<std::bitset<256>> sets;
  std::vector<std::int16_t> node_number;  ///< by offset: number of its set, or of the choice point
  int choice_count = 0;
};

/// Compiles; on a fault `regerror` reports and ends the process. Never null otherwise.
std::unique_ptr<regexp> regcomp(const char* exp);
/// 1 on a match, with the slots set. `line_start` false: `^` does not match at the front of `text`.
int regexec(regexp* prog, const char* text, bool line_start = true);
/// Appends `source` to `dest` with "&" and "\0" replaced by the match and "\1" to "\9" by the
/// groups of the last match.
void regsub(const regexp* prog, const char* source, std::string& dest);
/// "regexp(3): MESSAGE" on the error stream, and the end of the process with status 1.
[[noreturn]] void regerror(const char* message);

}  // namespace torvane
