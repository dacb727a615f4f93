// Regular expressions: running a program over a text.
#include <cstring>

#include "support/messages.h"
#include "support/regexp.h"
#include "support/regexp_program.h"

namespace torvane {

using namespace regexp_program;

namespace {

// What is still open in a walk: a BRANCH whose alternatives are to be tried; a repetition that may
// be shorter; a slot to be put back.
struct Open {
  const RegexpStep* step;
  const char* at;     // of a slot, its value
  const char* least;  // how far back a repetition may go
};

// One walk over a text. What is open stands on a stack of its own and not on the machine's, so that
// the length of a text never matters to the process.
class Matcher {
 public:
  Matcher(regexp& prog, const char* text, bool line_start)
      : prog_(prog), steps_(*prog.steps), text_(text), line_start_(line_start), open_(stack()) {}

  bool search() {
    clear_slots();
    if (prog_.regmust && !std::strstr(text_, prog_.regmust)) return false;
    bool found = find();
    // A long text leaves a large stack behind, which the next one will hardly need.
    if (open_.capacity() > kKept) std::vector<Open>().swap(open_);
    return found;
  }

 private:
  static constexpr std::size_t kMostOpen = 8u << 20;
  static constexpr std::size_t kKept = 1u << 14;

  // One a thread, for its memory.
  static std::vector<Open>& stack() {
    static thread_local std::vector<Open> open;
    return open;
  }

  static unsigned char byte_at(const char* at) { return static_cast<unsigned char>(*at); }

  void clear_slots() {
    if (steps_.group_count == 0) {
      prog_.startp[0] = prog_.endp[0] = nullptr;
      return;
    }
    std::memset(prog_.startp, 0, sizeof prog_.startp);
    std::memset(prog_.endp, 0, sizeof prog_.endp);
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
      if (steps_.start[byte_at(s)] && match_at(s)) return true;
    } while (*s++ && !gave_up_);
    return false;
  }

  bool match_at(const char* start) {
    open_.clear();
    const char* end = run(start);
    if (!end) {
      spend(0);
      if (steps_.group_count > 0) clear_slots();
      return false;
    }
    prog_.startp[0] = start;
    prog_.endp[0] = end;
    return true;
  }

  // The end of the match that begins at `at`, or null.
  const char* run(const char* at) {
    const RegexpStep* step = steps_.first;
    while (true) {
      bool fits;
      switch (step->opcode) {
        case END:
          return at;
        case BOL:
          fits = at == text_ && line_start_;
          break;
        case EOL:
          fits = *at == '\0';
          break;
        case ANYOF:
          while ((fits = step->set[byte_at(at++)]) && step->set_follows) ++step;
          break;
        case EXACTLY: {
          const char* literal = step->literal;
          for (; *literal && *literal == *at; ++literal) ++at;
          fits = *literal == '\0';
          break;
        }
        case OPEN:
          fits = set_slot(*step, at);
          break;
        case BRANCH: {
          const RegexpStep* alternative = choose(step, at);
          fits = alternative != nullptr;
          if (fits) step = alternative;
          break;
        }
        case STAR:
        case PLUS:
          fits = enter_repeat(*step, at);
          break;
        default:
          regerror("memory corruption");
      }
      if (fits)
        step = step->next;
      else if (!go_back(step, at))
        return nullptr;
    }
  }

  // The slots of the starts, then those of the ends.
  const char*& slot(int i) { return i < kGroups ? prog_.startp[i] : prog_.endp[i - kGroups]; }

  // On the way back the old value returns, so that the last repetition of a group is the one that
  // stays.
  bool set_slot(const RegexpStep& step, const char* at) {
    const char*& value = slot(step.number);
    if (!open_.empty() && !push({&step, value, nullptr})) return false;
    value = at;
    return true;
  }

  // The first alternative, from `branch` on, that can begin here; null if there is none.
  const RegexpStep* choose(const RegexpStep* branch, const char* at) {
    const RegexpStep* chosen = next_alternative(branch, at);
    ++effort_;
    if (!chosen || (chosen->exclusive && record_.empty())) return chosen;
    if (seen_before(*chosen, at)) return nullptr;
    const RegexpStep* later = next_alternative(chosen->other, at);
    if (later && !push({later, at, nullptr})) return nullptr;
    return chosen;
  }
  const RegexpStep* next_alternative(const RegexpStep* branch, const char* at) const {
    while (branch && !branch->set[byte_at(at)]) branch = branch->other;
    return branch;
  }

  // Takes as many as there are; the fewer are tried on the way back.
  bool enter_repeat(const RegexpStep& step, const char*& at) {
    const char* least = step.opcode == PLUS ? at + 1 : at;
    const char* most = at;
    if (!record_.empty()) {
      if (place(step, at)) return false;
      most = unrecorded_run(step, at);
    } else if (step.any_byte) {
      most += std::strlen(at);
    } else {
      while (step.set[byte_at(most)]) ++most;
    }
    spend(most - at);
    return most >= least && settle(step, most, least, at);
  }

  // Goes on behind a repetition that ends at `most`, or as little before it as lets what follows
  // begin.
  bool settle(const RegexpStep& step, const char* most, const char* least, const char*& at) {
    while (!step.follow[byte_at(most)]) {
      if (most == least || step.never_shorter) return false;
      --most;
    }
    if (most > least && !step.never_shorter && !push({&step, most - 1, least})) return false;
    at = most;
    return true;
  }

  bool push(Open open) {
    if (open_.size() >= kMostOpen) {
      if (!gave_up_) messages() << "regexp: the text is too long to be matched\n";
      gave_up_ = true;
      return false;
    }
    open_.push_back(open);
    return true;
  }

  // Takes up the latest way that is still open.
  bool go_back(const RegexpStep*& step, const char*& at) {
    while (!open_.empty() && !gave_up_) {
      Open open = open_.back();
      open_.pop_back();
      if (open.step->opcode == OPEN) {
        slot(open.step->number) = open.at;
        continue;
      }
      spend(1);
      step = open.step;
      at = open.at;
      if (step->opcode == BRANCH)
        step = choose(step, at);
      else if (!settle(*step, open.at, open.least, at))
        step = nullptr;
      if (!step) continue;
      step = step->next;
      return true;
    }
    return false;
  }

  // An expression like (a|aa)*b can fail in more ways than the process has time for. Once a search
  // has cost much, each choice point is walked at most once at each place of the text: what was
  // there before has failed, or else is still open further down the stack.
  static constexpr std::ptrdiff_t kEffortBeforeRecord = 100000;
  static constexpr std::size_t kMostRecorded = std::size_t{1} << 29;
  void spend(std::ptrdiff_t effort) {
    effort_ += effort;
    if (effort_ >= kEffortBeforeRecord && places_ == 0) [[unlikely]]
      start_record();
  }
  void start_record() {
    places_ = std::strlen(text_) + 1;
    std::size_t bits = places_ * static_cast<std::size_t>(steps_.choice_count);
    if (bits <= kMostRecorded) record_.assign(bits, false);
  }
  std::vector<bool>::reference place(const RegexpStep& step, const char* at) {
    return record_[static_cast<std::size_t>(step.number) * places_ +
                   static_cast<std::size_t>(at - text_)];
  }
  bool seen_before(const RegexpStep& step, const char* at) {
    if (record_.empty()) return false;
    if (place(step, at)) return true;
    place(step, at) = true;
    return false;
  }
  // Wherever in a run a repetition begins, it can go on only where one from the run's front can. So
  // a run is recorded as a whole, and ends where an earlier one began.
  const char* unrecorded_run(const RegexpStep& step, const char* at) {
    for (; !place(step, at); ++at) {
      place(step, at) = true;
      if (!step.set[byte_at(at)]) break;
    }
    return at;
  }

  regexp& prog_;
  const RegexpSteps& steps_;
  const char* text_;
  bool line_start_;
  bool gave_up_ = false;
  std::ptrdiff_t effort_ = 0;  // about how many nodes were walked
  std::size_t places_ = 0;
  std::vector<bool> record_;
  std::vector<Open>& open_;
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
