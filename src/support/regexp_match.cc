#include <cstring>
#include <iostream>

#include "support/regexp.h"
#include "support/regexp_program.h"

namespace torvane {

using namespace regexp_program;

namespace {

// One walk over a text. What is still open stands on a stack of its own and not on the machine's,
// so that the length of a text never matters to the process: ways not yet tried, and slots to be
// put back.
class Matcher {
 public:
  Matcher(regexp& prog, const char* text, bool line_start)
      : prog_(prog), program_(prog.program.data()), text_(text), line_start_(line_start) {}

  bool search() {
    std::memset(prog_.startp, 0, sizeof prog_.startp);
    std::memset(prog_.endp, 0, sizeof prog_.endp);
    if (prog_.regmust && !std::strstr(text_, prog_.regmust)) return false;
    bool found = find();
    // A long text leaves a large stack behind, which the next one will hardly need.
    if (choices().capacity() > kKeptChoices) std::vector<Choice>().swap(choices());
    return found;
  }

 private:
  struct Choice {
    std::int32_t
        node;  // a BRANCH to try; a STAR or PLUS to shorten; below 0: the slot ~node to put back
    const char* at;
    const char* least;  // how far back a repetition may go
  };
  static constexpr std::size_t kMostChoices = 8u << 20;
  static constexpr std::size_t kKeptChoices = 1u << 14;
  static constexpr std::size_t kMostRecorded = std::size_t{1} << 29;

  static std::vector<Choice>& choices() {
    static std::vector<Choice> stack;
    return stack;
  }

  bool find() {
    if (prog_.reganch) return line_start_ && match_at(text_);
    const char* s = text_;
    if (prog_.regstart) {
      for (; !gave_up_ && (s = std::strchr(s, prog_.regstart)); ++s)
        if (match_at(s)) return true;
      return false;
    }
    do {
      if (match_at(s)) return true;
    } while (*s++ && !gave_up_);
    return false;
  }

  // A failure has put back every slot that it set.
  bool match_at(const char* start) {
    choices().clear();
    at_ = start;
    node_ = 1;
    if (!run()) return false;
    prog_.startp[0] = start;
    prog_.endp[0] = at_;
    return true;
  }

  bool run() {
    while (true) {
      if (program_[node_] == END) return true;
      if (!step() && !go_back()) return false;
    }
  }

  // Passes one node; false if the text does not fit it.
  bool step() {
    std::size_t node = node_;
    const char* operand = program_ + node + kNodeHead;
    auto opcode = static_cast<unsigned char>(program_[node]);
    node_ = next_node(program_, node);
    if (node_ == 0) regerror("corrupted pointers");
    switch (opcode) {
      case BOL:
        return at_ == text_ && line_start_;
      case EOL:
        return *at_ == '\0';
      case ANY:
        return *at_++ != '\0';
      case EXACTLY: {
        const char* s = at_;
        while (*operand && *operand == *s) {
          ++operand;
          ++s;
        }
        at_ = s;
        return *operand == '\0';
      }
      case ANYOF:
      case ANYBUT:
        return set_of(node).test(static_cast<unsigned char>(*at_++));
      case NOTHING:
      case BACK:
        return true;
      case BRANCH:
        return enter_branch(node);
      case STAR:
      case PLUS:
        return enter_repeat(node);
      default:
        if (opcode > OPEN && opcode < OPEN + kGroups) return set_slot(opcode - OPEN);
        if (opcode > CLOSE && opcode < CLOSE + kGroups) return set_slot(kGroups + opcode - CLOSE);
        regerror("memory corruption");
    }
  }

  const std::bitset<256>& set_of(std::size_t node) const {
    return prog_.sets[static_cast<std::size_t>(prog_.node_number[node])];
  }

  // The slots of the starts, then those of the ends. On the way back the old value returns, so that
  // the last repetition of a group is the one that stays.
  const char*& slot(int i) { return i < kGroups ? prog_.startp[i] : prog_.endp[i - kGroups]; }
  bool set_slot(int i) {
    if (!push({~i, slot(i), nullptr})) return false;
    slot(i) = at_;
    return true;
  }

  bool enter_branch(std::size_t node) {
    if (program_[node_] != BRANCH) {  // no choice
      node_ = node + kNodeHead;
      return true;
    }
    if (seen_before(node, at_)) return false;
    if (!push({static_cast<std::int32_t>(node_), at_, nullptr})) return false;
    node_ = node + kNodeHead;
    return true;
  }

  // Takes as many as there are; the fewer are tried on the way back.
  bool enter_repeat(std::size_t node) {
    const char* least = at_ + (program_[node] == PLUS ? 1 : 0);
    const char* most;
    if (record_.empty()) {
      most = run_of(node + kNodeHead);
      spend(most - at_);
    } else {
      if (is_recorded(node, at_)) return false;
      most = unrecorded_run_of(node);
    }
    return most >= least && settle_repeat(node, most, least);
  }

  // Goes on behind a repetition that ends at `most` or as little before it as lets the next node
  // fit.
  bool settle_repeat(std::size_t node, const char* most, const char* least) {
    std::size_t following = next_node(program_, node);
    if (program_[following] == EXACTLY) {
      char wanted = program_[following + kNodeHead];
      while (*most != wanted) {
        if (most == least) return false;
        --most;
      }
    }
    if (most > least && !push({static_cast<std::int32_t>(node), most - 1, least})) return false;
    at_ = most;
    node_ = following;
    return true;
  }

  // The end of the run of bytes that fit a simple node.
  const char* run_of(std::size_t simple) const {
    const char* s = at_;
    if (program_[simple] == ANY) return s + std::strlen(s);
    if (program_[simple] == EXACTLY) {
      while (*s && *s == program_[simple + kNodeHead]) ++s;
      return s;
    }
    const std::bitset<256>& set = set_of(simple);
    while (set.test(static_cast<unsigned char>(*s))) ++s;
    return s;
  }

  bool fits(std::size_t simple, char c) const {
    if (program_[simple] == ANY) return c != '\0';
    if (program_[simple] == EXACTLY) return c != '\0' && c == program_[simple + kNodeHead];
    return set_of(simple).test(static_cast<unsigned char>(c));
  }

  bool push(Choice choice) {
    std::vector<Choice>& stack = choices();
    if (stack.size() >= kMostChoices) {
      if (!gave_up_) std::cerr << "regexp: the text is too long to be matched\n";
      gave_up_ = true;
      return false;
    }
    stack.push_back(choice);
    return true;
  }

  // Takes up the latest way that is still open.
  bool go_back() {
    std::vector<Choice>& stack = choices();
    spend(1);
    while (!stack.empty() && !gave_up_) {
      Choice choice = stack.back();
      stack.pop_back();
      if (choice.node < 0) {
        slot(~choice.node) = choice.at;
        continue;
      }
      auto node = static_cast<std::size_t>(choice.node);
      if (program_[node] != BRANCH) {
        if (settle_repeat(node, choice.at, choice.least)) return true;
        continue;
      }
      // The alternatives behind this one go back on the stack.
      at_ = choice.at;
      std::size_t following = next_node(program_, node);
      if (following && program_[following] == BRANCH &&
          !push({static_cast<std::int32_t>(following), at_, nullptr}))
        return false;
      node_ = node + kNodeHead;
      return true;
    }
    return false;
  }

  // An expression like (a|aa)*b can fail in more ways than the process has time for. Once a search
  // has cost much, each choice point is walked at most once at each place of the text: what was
  // there before has failed, or else is still open further down the stack.
  static constexpr std::ptrdiff_t kEffortBeforeRecord = 100000;
  void spend(std::ptrdiff_t effort) {
    effort_ += effort;
    if (effort_ < kEffortBeforeRecord || places_ > 0) return;
    places_ = std::strlen(text_) + 1;
    std::size_t bits = places_ * static_cast<std::size_t>(prog_.choice_count);
    if (bits <= kMostRecorded) record_.assign(bits, false);
  }
  std::vector<bool>::reference place(std::size_t node, const char* at) {
    auto number = static_cast<std::size_t>(prog_.node_number[node]);
    return record_[number * places_ + static_cast<std::size_t>(at - text_)];
  }
  bool is_recorded(std::size_t node, const char* at) { return place(node, at); }
  bool seen_before(std::size_t node, const char* at) {
    if (record_.empty()) return false;
    if (is_recorded(node, at)) return true;
    place(node, at) = true;
    return false;
  }
  // Wherever in a run a repetition begins, it can go on only where one from the run's front can. So
  // a run is recorded as a whole, and ends where an earlier one began.
  const char* unrecorded_run_of(std::size_t node) {
    const char* s = at_;
    for (; !is_recorded(node, s); ++s) {
      place(node, s) = true;
      if (!fits(node + kNodeHead, *s)) break;
    }
    return s;
  }

  regexp& prog_;
  const char* program_;
  const char* text_;
  bool line_start_;
  const char* at_ = nullptr;
  std::size_t node_ = 0;
  bool gave_up_ = false;
  std::ptrdiff_t effort_ = 0;
  std::size_t places_ = 0;
  std::vector<bool> record_;
};

}  // namespace

int regexec(regexp* prog, const char* text, bool line_start) {
  if (!prog || !text) regerror("NULL parameter");
  if (prog->program.empty() || prog->program[0] != kMagic) regerror("corrupted program");
  return Matcher(*prog, text, line_start).search() ? 1 : 0;
}

void regsub(const regexp* prog, const char* source, std::string& dest) {
  if (!prog || !source) regerror("NULL parm to regsub");
  if (prog->program.empty() || prog->program[0] != kMagic) regerror("damaged regexp fed to regsub");
  for (const char* s = source; *s; ++s) {
    int group = -1;
    if (*s == '&') {
      group = 0;
    } else if (*s == '\\' && s[1] >= '0' && s[1] <= '9') {
      group = *++s - '0';
    } else if (*s == '\\' && (s[1] == '\\' || s[1] == '&')) {
      ++s;
    }
    if (group < 0) {
      dest += *s;
    } else if (const char* start = prog->startp[group], *end = prog->endp[group]; start && end) {
      if (end < start) regerror("damaged match string");
      dest.append(start, end);
    }
  }
}

}  // namespace torvane
