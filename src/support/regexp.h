// A small backtracking regular expression engine: compiled into a compact byte program and
// interpreted.
//
// Alternatives by "|", groups by parentheses, "*", "+" and "?" after an atom; atoms are ".", "^",
// "$",
// "[...]", "[^...]", "\x" for a literal x, and literal bytes. At most nine groups.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace torvane {

struct RegexpSteps;  // the program made ready for walking

struct regexp {
  regexp();
  ~regexp();

  const char* startp[10] =
      {};  ///< start and end of the match (0) and of up to nine groups; null: unset
  const char* endp[10] = {};
  char regstart = 0;  ///< a byte every match must start with, 0 if unknown
  char reganch = 0;   ///< non-zero if anchored at the beginning
  const char* regmust =
      nullptr;  ///< a literal every match must contain, into `program`; may be null
  int regmlen = 0;
  std::vector<char> program;  ///< a magic byte, then nodes
  std::unique_ptr<RegexpSteps> steps;
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
