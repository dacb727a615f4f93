#include "cli/line_reader.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iostream>
#include <utility>

#ifdef TORVANE_LIBEDIT
#include <histedit.h>
#endif

namespace torvane {
namespace {

class PlainLines : public LineReader {
 public:
  bool read(const char* prompt, std::string& line) override {
    if (isatty(STDIN_FILENO) == 1) std::cout << prompt << std::flush;
    if (std::getline(std::cin, line)) {
      if (line.ends_with('\r')) line.pop_back();
      return true;
    }
    return false;
  }
};

#ifdef TORVANE_LIBEDIT

constexpr int kKeptLines = 1000;

class EditedLines : public LineReader {
 public:
  EditedLines(Completions completions, std::string file)
      : completions_(std::move(completions)), file_(std::move(file)) {
    history_ = history_init();
    HistEvent event;
    history(history_, &event, H_SETSIZE, kKeptLines);
    history(history_, &event, H_SETUNIQUE, 1);
    if (!file_.empty()) history(history_, &event, H_LOAD, file_.c_str());
    edit_ = el_init("torvane", stdin, stdout, stderr);
    el_set(edit_, EL_CLIENTDATA, this);
    el_set(edit_, EL_PROMPT, &EditedLines::prompt_of);
    el_set(edit_, EL_EDITOR, "emacs");
    el_set(edit_, EL_HIST, history, history_);
    el_set(edit_, EL_ADDFN, "torvane-complete", "Complete the word", &EditedLines::complete);
    el_set(edit_, EL_ADDFN, "torvane-take-back", "Take the line back", &EditedLines::take_back);
    el_source(edit_, nullptr);
    el_set(edit_, EL_SETTY, "-d", "-isig", nullptr);
    el_set(edit_, EL_BIND, "^I", "torvane-complete", nullptr);
    el_set(edit_, EL_BIND, "^C", "torvane-take-back", nullptr);
    el_set(edit_, EL_BIND, "^R", "em-inc-search-prev", nullptr);
  }
  ~EditedLines() override {
    HistEvent event;
    if (!file_.empty()) history(history_, &event, H_SAVE, file_.c_str());
    el_end(edit_);
    history_end(history_);
  }

  bool read(const char* prompt, std::string& line) override {
    prompt_ = prompt;
    taken_back_ = false;
    int length = 0;
    const char* text = el_gets(edit_, &length);
    if (!text || length <= 0) {
      std::cout << '\n';
      return false;
    }
    line.assign(text, static_cast<std::size_t>(length));
    while (line.ends_with('\n') || line.ends_with('\r')) line.pop_back();
    if (taken_back_) {
      std::cout << "^C" << std::endl;
      line.clear();
      return true;
    }
    HistEvent event;
    if (line.find_first_not_of(" \t") != line.npos)
      history(history_, &event, H_ENTER, line.c_str());
    return true;
  }

 private:
  static EditedLines& self(EditLine* edit) {
    void* data = nullptr;
    el_get(edit, EL_CLIENTDATA, &data);
    return *static_cast<EditedLines*>(data);
  }
  static const char* prompt_of(EditLine* edit) { return self(edit).prompt_; }

  static unsigned char take_back(EditLine* edit, int) {
    self(edit).taken_back_ = true;
    return CC_NEWLINE;
  }

  static unsigned char complete(EditLine* edit, int) {
    const LineInfo* info = el_line(edit);
    const std::string line(info->buffer, info->cursor);
    const std::size_t blank = line.find_last_of(" \t(");
    const std::size_t word = blank == line.npos ? 0 : blank + 1;
    std::vector<std::string> all = self(edit).completions_(line, word);
    if (all.empty()) return CC_REFRESH_BEEP;
    std::string common = all.front();
    for (const std::string& one : all) {
      const auto [end, other] = std::mismatch(common.begin(), common.end(), one.begin(), one.end());
      common.erase(end, common.end());
    }
    if (all.size() == 1) common += ' ';
    const std::size_t typed = line.size() - word;
    if (common.size() > typed) {
      el_insertstr(edit, common.c_str() + typed);
      return CC_REFRESH;
    }
    constexpr std::size_t kMostShown = 60;
    std::cout << '\n';
    for (std::size_t i = 0; i < std::min(all.size(), kMostShown); ++i) std::cout << all[i] << "  ";
    std::cout << (all.size() > kMostShown ? "...\n" : "\n") << std::flush;
    return CC_REDISPLAY;
  }

  Completions completions_;
  std::string file_;
  History* history_;
  EditLine* edit_;
  const char* prompt_ = "";
  bool taken_back_ = false;
};

#endif

}  // namespace

std::unique_ptr<LineReader> make_line_reader([[maybe_unused]] Completions completions,
                                             [[maybe_unused]] const std::string& history) {
#ifdef TORVANE_LIBEDIT
  if (isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1)
    return std::make_unique<EditedLines>(std::move(completions), history);
#endif
  return std::make_unique<PlainLines>();
}

}  // namespace torvane
