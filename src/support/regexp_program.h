// The byte program of a regular expression, as its compiler writes it and its matcher reads it: a
// magic byte, then nodes. A node is an opcode, the two-byte big-endian distance to the node that
// follows it in sequence (0 for none; of a BACK node, backwards), and its operand.
#pragma once

#include <cstddef>

#include "support/big_endian.h"

namespace torvane::regexp_program {

inline constexpr char kMagic = static_cast<char>(0234);
inline constexpr int kGroups = 10;  // the whole match and nine groups
inline constexpr std::size_t kNodeHead = 3;

enum Opcode : unsigned char {
  END = 0,
  BOL = 1,
  EOL = 2,
  ANY = 3,
  ANYOF = 4,    // zero-terminated set
  ANYBUT = 5,   // zero-terminated set
  BRANCH = 6,   // an alternative: the nodes behind it, or else the next node
  BACK = 7,     // the next node lies before this one
  EXACTLY = 8,  // zero-terminated literal
  NOTHING = 9,
  STAR = 10,  // the simple node behind it, repeated
  PLUS = 11,
  OPEN = 20,   // + number of the group
  CLOSE = 30,  // + number of the group
};

/// The offset of the node that follows `node`, 0 for none.
inline std::size_t next_node(const char* program, std::size_t node) {
  std::size_t distance = load_be16(program + node + 1);
  if (distance == 0) return 0;
  return program[node] == BACK ? node - distance : node + distance;
}

}  // namespace torvane::regexp_program
