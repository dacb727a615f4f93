// The byte program of a regular expression, as its compiler writes it and its matcher reads it: a
// magic byte, then nodes. A node is an opcode, the two-byte big-endian distance to the node that
// follows it in sequence (0 for none; of a BACK node, backwards), and its operand.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "support/big_endian.h"
#include "support/regexp.h"

namespace torvane {

namespace regexp_program {

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

}  // namespace regexp_program

/// Bytes that may stand at a place of the text; the zero byte stands for its end.
using ByteSet = std::bitset<256>;

/// A node as the matcher walks it: without the nodes that only lead on, with its targets found, and
/// with what a look at the next byte can decide.
struct RegexpStep {
  /// An opcode; ANYOF stands for all that is one byte wide, OPEN for setting any slot.
  unsigned char opcode = regexp_program::END;
  bool set_follows = false;  ///< the step behind this ANYOF stands next in the row, and is one too
  bool any_byte = false;     ///< a repetition of ANY
  bool exclusive = false;    ///< a BRANCH that shares no byte with those behind it
  /// A repetition of bytes of which none can begin what follows: to end it sooner is of no use.
  bool never_shorter = false;
  std::int32_t number = 0;  ///< of a slot (the starts, then the ends), or of a choice point
  const RegexpStep* next = nullptr;   ///< the step behind; of BRANCH, where its alternative begins
  const RegexpStep* other = nullptr;  ///< the next BRANCH to choose from, or null
  const char* literal = nullptr;
  ByteSet set;     ///< the bytes of ANYOF or of a repetition; those that may begin an alternative
  ByteSet follow;  ///< those that may stand behind a repetition
};

struct RegexpSteps {
  std::vector<RegexpStep> row;
  const RegexpStep* first = nullptr;
  ByteSet start;  ///< the bytes with which a match may begin
  int choice_count = 0;
  int group_count = 0;
};

std::unique_ptr<RegexpSteps> prepare_steps(const regexp& compiled);

}  // namespace torvane
