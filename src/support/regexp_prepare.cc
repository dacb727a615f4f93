// Regular expressions: what is found out about a program before it runs.
#include <cstring>
#include <optional>

#include "support/regexp_program.h"

namespace torvane {

using namespace regexp_program;

regexp::regexp() = default;
regexp::~regexp() = default;

namespace {

class Preparer {
 public:
  explicit Preparer(const std::vector<char>& program)
      : program_(program.data()), index_(program.size(), -1), first_(program.size()) {}

  std::unique_ptr<RegexpSteps> run() {
    auto steps = std::make_unique<RegexpSteps>();
    number_nodes(*steps);
    steps->row.resize(nodes_.size());
    row_ = steps->row.data();
    for (std::size_t i = nodes_.size(); i-- > 0;) fill_step(*steps, row_[i], nodes_[i]);
    steps->first = step_at(skip(1));
    steps->start = first_bytes(1);
    return steps;
  }

 private:
  char opcode(std::size_t node) const { return program_[node]; }
  const char* operand(std::size_t node) const { return program_ + node + kNodeHead; }
  std::size_t next(std::size_t node) const { return next_node(program_, node); }
  static bool is_open(int op) { return op > OPEN && op < OPEN + kGroups; }
  static bool is_close(int op) { return op > CLOSE && op < CLOSE + kGroups; }

  // One byte wide.
  bool is_simple(std::size_t node) const {
    char op = opcode(node);
    return op == ANY || op == ANYOF || op == ANYBUT || (op == EXACTLY && operand(node)[1] == '\0');
  }

  // All nodes that become steps, from the front of the program to its back.
  void number_nodes(RegexpSteps& steps) {
    for (std::size_t node = 1; node < index_.size(); node += kNodeHead) {
      char op = opcode(node);
      if (op != NOTHING && op != BACK) {
        index_[node] = static_cast<std::int32_t>(nodes_.size());
        nodes_.push_back(node);
      }
      steps.group_count += is_open(op);
      if (op == EXACTLY || op == ANYOF || op == ANYBUT) node += std::strlen(operand(node)) + 1;
    }
  }

  // The first node at or behind this one that has something to do.
  std::size_t skip(std::size_t node) const {
    while (true) {
      if (opcode(node) == NOTHING || opcode(node) == BACK)
        node = next(node);
      else if (opcode(node) == BRANCH && opcode(next(node)) != BRANCH)
        node += kNodeHead;  // no choice
      else
        return node;
    }
  }

  const RegexpStep* step_at(std::size_t node) const { return row_ + index_[node]; }

  void fill_step(RegexpSteps& steps, RegexpStep& step, std::size_t node) {
    step.opcode = static_cast<unsigned char>(opcode(node));
    if (step.opcode == END) return;
    step.next = step_at(skip(next(node)));
    if (step.opcode == BRANCH) {
      step.number = steps.choice_count++;
      step.next = step_at(skip(node + kNodeHead));
      step.set = first_bytes(node + kNodeHead);
      step.exclusive = true;
      if (opcode(next(node)) == BRANCH) {
        step.other = step_at(next(node));
        step.exclusive = (step.set & first_bytes(next(node))).none();
      }
    } else if (step.opcode == STAR || step.opcode == PLUS) {
      step.number = steps.choice_count++;
      step.set = simple_set(node + kNodeHead);
      step.any_byte = opcode(node + kNodeHead) == ANY;
      step.follow = first_bytes(next(node));
      step.never_shorter = (step.set & step.follow).none();
    } else if (is_simple(node)) {
      step.opcode = ANYOF;
      step.set = simple_set(node);
      step.set_follows = step.next == &step + 1 && step.next->opcode == ANYOF;
    } else if (step.opcode == EXACTLY) {
      step.literal = operand(node);
    } else if (is_open(step.opcode)) {
      step.number = step.opcode - OPEN;
      step.opcode = OPEN;
    } else if (is_close(step.opcode)) {
      step.number = kGroups + step.opcode - CLOSE;
      step.opcode = OPEN;
    }
  }

  ByteSet simple_set(std::size_t node) const {
    ByteSet set;
    switch (opcode(node)) {
      case ANY:
        set.set();
        break;
      case EXACTLY:
        set.set(static_cast<unsigned char>(*operand(node)));
        break;
      case ANYOF:
      case ANYBUT:
        for (const char* c = operand(node); *c; ++c) set.set(static_cast<unsigned char>(*c));
        if (opcode(node) == ANYBUT) set.flip();
        break;
      default:
        regerror("internal foulup");
    }
    set.reset(0);
    return set;
  }

  // The bytes with which the rest of a match may begin from a node on.
  const ByteSet& first_bytes(std::size_t node) {
    std::optional<ByteSet>& known = first_[node];
    if (known) return *known;
    known.emplace().set();  // for a way that comes round to this node
    ByteSet set;
    switch (opcode(node)) {
      case END:
        set.set();
        break;
      case EOL:
        set.set(0);
        break;
      case BRANCH:
        set = first_bytes(node + kNodeHead);
        if (opcode(next(node)) == BRANCH) set |= first_bytes(next(node));
        break;
      case STAR:
        set = simple_set(node + kNodeHead) | first_bytes(next(node));
        break;
      case PLUS:
        set = simple_set(node + kNodeHead);
        break;
      case ANY:
      case ANYOF:
      case ANYBUT:
      case EXACTLY:
        set = simple_set(node);
        break;
      default:
        set = first_bytes(next(node));
    }
    known = set;
    return *known;
  }

  const char* program_;
  std::vector<std::int32_t> index_;            // by offset: the number of the step
  std::vector<std::optional<ByteSet>> first_;  // by offset
  std::vector<std::size_t> nodes_;
  RegexpStep* row_ = nullptr;
};

}  // namespace

std::unique_ptr<RegexpSteps> prepare_steps(const regexp& compiled) {
  return Preparer(compiled.program).run();
}

}  // namespace torvane
