// Regular expressions: from the text of one to its program.
#include <cstdlib>
#include <cstring>

#include "support/messages.h"
#include "support/regexp.h"
#include "support/regexp_program.h"

namespace torvane {

using namespace regexp_program;

namespace {

constexpr std::size_t kTooBig = 32767;
constexpr const char* kMeta = "^$.[()|?+*\\";

bool is_repeat(char c) {
  return c == '*' || c == '+' || c == '?';
}

// What is known of a piece of the expression.
struct Flags {
  bool has_width = false;    // cannot match the empty text
  bool simple = false;       // one byte wide, so that STAR and PLUS may repeat it
  bool starts_star = false;  // starts with "*" or "+"
};

class Compiler {
 public:
  explicit Compiler(const char* exp) : parse_(exp) { emit(kMagic); }

  std::unique_ptr<regexp> run() {
    Flags flags;
    reg(false, flags);
    if (size_ >= kTooBig) regerror("regexp too big");
    auto result = std::make_unique<regexp>();
    result->program = std::move(code_);
    optimize(*result, flags);
    result->steps = prepare_steps(*result);
    return result;
  }

 private:
  // Alternatives, up to the closing parenthesis or the end.
  std::size_t reg(bool in_group, Flags& flags) {
    flags = Flags{.has_width = true};
    std::size_t first = 0;
    int group = 0;
    if (in_group) {
      if (group_count_ >= kGroups) regerror("too many ()");
      group = group_count_++;
      first = node(OPEN + group);
    }
    while (true) {
      Flags of_branch;
      std::size_t alternative = branch(of_branch);
      if (first)
        set_tail(first, alternative);
      else
        first = alternative;
      flags.has_width = flags.has_width && of_branch.has_width;
      flags.starts_star = flags.starts_star || of_branch.starts_star;
      if (*parse_ != '|') break;
      ++parse_;
    }
    std::size_t ender = node(in_group ? CLOSE + group : END);
    set_tail(first, ender);
    for (std::size_t n = first; n; n = next(n)) set_operand_tail(n, ender);

    if (in_group ? *parse_ != ')' : *parse_ == ')') regerror("unmatched ()");
    if (in_group)
      ++parse_;
    else if (*parse_)
      regerror("junk on end");
    return first;
  }

  // One alternative: pieces one after the other.
  std::size_t branch(Flags& flags) {
    std::size_t first = node(BRANCH);
    std::size_t last = 0;
    while (*parse_ && *parse_ != '|' && *parse_ != ')') {
      Flags of_piece;
      std::size_t latest = piece(of_piece);
      flags.has_width = flags.has_width || of_piece.has_width;
      if (last)
        set_tail(last, latest);
      else
        flags.starts_star = of_piece.starts_star;
      last = latest;
    }
    if (!last) node(NOTHING);
    return first;
  }

  // An atom and its repetition.
  std::size_t piece(Flags& flags) {
    Flags of_atom;
    std::size_t result = atom(of_atom);
    char repeat = *parse_;
    if (!is_repeat(repeat)) {
      flags = of_atom;
      return result;
    }
    if (!of_atom.has_width && repeat != '?') regerror("*+ operand could be empty");
    flags = Flags{.has_width = repeat == '+', .starts_star = repeat != '+'};
    if (repeat != '?' && of_atom.simple) {
      insert_before(repeat == '*' ? STAR : PLUS, result);
    } else if (repeat == '*') {  // x* is (x again|)
      insert_before(BRANCH, result);
      set_operand_tail(result, node(BACK));
      set_operand_tail(result, result);
      set_tail(result, node(BRANCH));
      set_tail(result, node(NOTHING));
    } else if (repeat == '+') {  // x+ is x(again|)
      std::size_t again = node(BRANCH);
      set_tail(result, again);
      set_tail(node(BACK), result);
      set_tail(again, node(BRANCH));
      set_tail(result, node(NOTHING));
    } else {  // x? is (x|)
      insert_before(BRANCH, result);
      set_tail(result, node(BRANCH));
      std::size_t nothing = node(NOTHING);
      set_tail(result, nothing);
      set_operand_tail(result, nothing);
    }
    ++parse_;
    if (is_repeat(*parse_)) regerror("nested *?+");
    return result;
  }

  std::size_t atom(Flags& flags) {
    std::size_t result;
    switch (*parse_++) {
      case '^':
        return node(BOL);
      case '$':
        return node(EOL);
      case '.':
        flags.has_width = flags.simple = true;
        return node(ANY);
      case '[':
        flags.has_width = flags.simple = true;
        return set();
      case '(': {
        Flags inner;
        result = reg(true, inner);
        flags.has_width = inner.has_width;
        flags.starts_star = inner.starts_star;
        return result;
      }
      case '\0':
      case '|':
      case ')':
        regerror("internal urp");
      case '?':
      case '+':
      case '*':
        regerror("?+* follows nothing");
      case '\\':
        if (*parse_ == '\0') regerror("trailing \\");
        flags.has_width = flags.simple = true;
        result = node(EXACTLY);
        emit(*parse_++);
        emit('\0');
        return result;
      default:
        --parse_;
        return literal(flags);
    }
  }

  // A run of literal bytes; the last one before a repetition stays out of the run.
  std::size_t literal(Flags& flags) {
    std::size_t length = std::strcspn(parse_, kMeta);
    if (length == 0) regerror("internal disaster");
    if (length > 1 && is_repeat(parse_[length])) --length;
    flags.has_width = true;
    flags.simple = length == 1;
    std::size_t result = node(EXACTLY);
    while (length-- > 0) emit(*parse_++);
    emit('\0');
    return result;
  }

  std::size_t set() {
    bool negated = *parse_ == '^';
    if (negated) ++parse_;
    std::size_t result = node(negated ? ANYBUT : ANYOF);
    if (*parse_ == ']' || *parse_ == '-') emit(*parse_++);
    while (*parse_ && *parse_ != ']') {
      if (*parse_ != '-' || parse_[1] == ']' || parse_[1] == '\0') {
        emit(*parse_++);
        continue;
      }
      int from = static_cast<unsigned char>(parse_[-1]) + 1;
      int to = static_cast<unsigned char>(parse_[1]);
      if (from > to + 1) regerror("invalid [] range");
      for (; from <= to; ++from) emit(static_cast<char>(from));
      parse_ += 2;
    }
    emit('\0');
    if (*parse_ != ']') regerror("unmatched []");
    ++parse_;
    return result;
  }

  // Writing the program. Past the size limit nothing is stored, only counted.
  void emit(char c) {
    if (++size_ < kTooBig) code_.push_back(c);
  }
  std::size_t node(int opcode) {
    std::size_t at = size_;
    emit(static_cast<char>(opcode));
    emit('\0');
    emit('\0');
    return at;
  }
  void insert_before(Opcode opcode, std::size_t operand) {
    size_ += kNodeHead;
    if (size_ >= kTooBig) return;
    const char head[kNodeHead] = {static_cast<char>(opcode), 0, 0};
    code_.insert(code_.begin() + static_cast<std::ptrdiff_t>(operand), head, head + kNodeHead);
  }
  std::size_t next(std::size_t at) const {
    return size_ < kTooBig ? next_node(code_.data(), at) : 0;
  }
  // The last node of the sequence that begins at `at` leads on to `target`.
  void set_tail(std::size_t at, std::size_t target) {
    if (size_ >= kTooBig) return;
    while (std::size_t following = next(at)) at = following;
    std::size_t distance = code_[at] == BACK ? at - target : target - at;
    store_be16(&code_[at + 1], static_cast<std::uint16_t>(distance));
  }
  void set_operand_tail(std::size_t at, std::size_t target) {
    if (size_ < kTooBig && code_[at] == BRANCH) set_tail(at + kNodeHead, target);
  }

  // What lets the matcher say no early: a first byte, an anchor, a literal that must occur.
  void optimize(regexp& result, const Flags& flags) const {
    const char* program = result.program.data();
    std::size_t first = 1;
    if (program[next_node(program, first)] != END) return;  // more than one alternative
    first += kNodeHead;
    if (program[first] == EXACTLY)
      result.regstart = program[first + kNodeHead];
    else if (program[first] == BOL)
      result.reganch = 1;
    if (!flags.starts_star) return;
    for (std::size_t n = first; n; n = next_node(program, n)) {
      if (program[n] != EXACTLY) continue;
      int length = static_cast<int>(std::strlen(program + n + kNodeHead));
      if (length < result.regmlen) continue;
      result.regmust = program + n + kNodeHead;
      result.regmlen = length;
    }
  }

  const char* parse_;
  std::vector<char> code_;
  std::size_t size_ = 0;
  int group_count_ = 1;
};

}  // namespace

std::unique_ptr<regexp> regcomp(const char* exp) {
  if (!exp) regerror("NULL argument");
  return Compiler(exp).run();
}

void regerror(const char* message) {
  // Kept: bad-regexp-ends-the-run
  messages() << "regexp(3): " << message << '\n';
  end_process(EXIT_FAILURE);
}

}  // namespace torvane
