#include "cli/line_reader.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iostream>
#include <type_traits>
#include <utility>

#ifdef TORVANE_LIBEDIT
#include <dlfcn.h>
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

/// libedit, which is loaded when somebody sits at a terminal: no other run waits for it.
struct Libedit {
  decltype(&::el_init) el_init = nullptr;
  decltype(&::el_end) el_end = nullptr;
  decltype(&::el_set) el_set = nullptr;
  decltype(&::el_get) el_get = nullptr;
  decltype(&::el_gets) el_gets = nullptr;
  decltype(&::el_line) el_line = nullptr;
  decltype(&::el_insertstr) el_insertstr = nullptr;
  decltype(&::el_source) el_source = nullptr;
  decltype(&::history_init) history_init = nullptr;
  decltype(&::history_end) history_end = nullptr;
  decltype(&::history) history = nullptr;

  /// Null if it cannot be had.
  static const Libedit* get() {
    static Libedit functions;
    static const bool is_there = functions.load();
    return is_there ? &functions : nullptr;
  }

 private:
  bool load() {
    void* library = dlopen(TORVANE_LIBEDIT, RTLD_NOW);
    bool all = library != nullptr;
    const auto find = [&](auto& function, const char* name) {
      if (library)
        function = reinterpret_cast<std::decay_t<decltype(function)>>(dlsym(library, name));
      all = all && function;
    };
    find(el_init, "el_init");
    find(el_end, "el_end");
    find(el_set, "el_set");
    find(el_get, "el_get");
    find(el_gets, "el_gets");
    find(el_line, "el_line");
    find(el_insertstr, "el_insertstr");
    find(el_source, "el_source");
    find(history_init, "history_init");
    find(history_end, "history_end");
    find(history, "history");
    return all;
  }
};

constexpr int kKeptLines = 1000;

class EditedLines : public LineReader {
 public:
  EditedLines(const Libedit& library, Completions completions, std::string file)
      : library_(library), completions_(std::move(completions)), file_(std::move(file)) {
    history_ = library_.history_init();
    HistEvent event;
    library_.history(history_, &event, H_SETSIZE, kKeptLines);
    library_.history(history_, &event, H_SETUNIQUE, 1);
    if (!file_.empty()) library_.history(history_, &event, H_LOAD, file_.c_str());
    edit_ = library_.el_init("torvane", stdin, stdout, stderr);
    library_.el_set(edit_, EL_CLIENTDATA, this);
    library_.el_set(edit_, EL_PROMPT, &EditedLines::prompt_of);
    library_.el_set(edit_, EL_EDITOR, "emacs");
    library_.el_set(edit_, EL_HIST, library_.history, history_);
    library_.el_set(edit_, EL_ADDFN, "torvane-complete", "Complete the word",
                    &EditedLines::complete);
    library_.el_set(edit_, EL_ADDFN, "torvane-take-back", "Take the line back",
                    &EditedLines::take_back);
    library_.el_source(edit_, nullptr);
    library_.el_set(edit_, EL_SETTY, "-d", "-isig", nullptr);
    library_.el_set(edit_, EL_BIND, "^I", "torvane-complete", nullptr);
    library_.el_set(edit_, EL_BIND, "^C", "torvane-take-back", nullptr);
    library_.el_set(edit_, EL_BIND, "^R", "em-inc-search-prev", nullptr);
  }
  ~EditedLines() override {
    HistEvent event;
    if (!file_.empty()) library_.history(history_, &event, H_SAVE, file_.c_str());
    library_.el_end(edit_);
    library_.history_end(history_);
  }

  bool read(const char* prompt, std::string& line) override {
    prompt_ = prompt;
    taken_back_ = false;
    int length = 0;
    const char* text = library_.el_gets(edit_, &length);
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
      library_.history(history_, &event, H_ENTER, line.c_str());
    return true;
  }

 private:
  static EditedLines& self(EditLine* edit) {
    void* data = nullptr;
    Libedit::get()->el_get(edit, EL_CLIENTDATA, &data);
    return *static_cast<EditedLines*>(data);
  }
  static const char* prompt_of(EditLine* edit) { return self(edit).prompt_; }

  static unsigned char take_back(EditLine* edit, int) {
    self(edit).taken_back_ = true;
    return CC_NEWLINE;
  }

  static unsigned char complete(EditLine* edit, int) {
    const LineInfo* info = self(edit).library_.el_line(edit);
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
      self(edit).library_.el_insertstr(edit, common.c_str() + typed);
      return CC_REFRESH;
    }
    constexpr std::size_t kMostShown = 60;
    std::cout << '\n';
    for (std::size_t i = 0; i < std::min(all.size(), kMostShown); ++i) std::cout << all[i] << "  ";
    std::cout << (all.size() > kMostShown ? "...\n" : "\n") << std::flush;
    return CC_REDISPLAY;
  }

  const Libedit& library_;
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
    if (const Libedit* library = Libedit::get())
      return std::make_unique<EditedLines>(*library, std::move(completions), history);
#endif
  return std::make_unique<PlainLines>();
}

}  // namespace torvane
