#include "check/source_file.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace torvane {
namespace {

constexpr std::size_t kMostNesting = 500;

bool is_white(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// Reads as the tokenizer of the configuration language does.
class Reader {
 public:
  Reader(SourceFile& file, std::string text) : file_(file), text_(std::move(text)) {}

  void read() {
    while (at_ < text_.size()) step();
    end();
  }

 private:
  struct Open {
    std::uint32_t line;
    std::uint32_t swallowed = 0;  ///< the first line that has a form in column 0 inside; 0: none
    SourceForm form;
  };

  void step() {
    const char c = text_[at_];
    if (is_white(c)) {
      take();
    } else if (c == ';') {
      while (at_ < text_.size() && text_[at_] != '\n') ++at_;
    } else if (c == '(') {
      open();
    } else if (c == ')') {
      close();
    } else if (c == '"') {
      read_string();
    } else {
      read_word();
    }
  }

  void take() {
    if (text_[at_++] == '\n') {
      ++line_;
      line_begin_ = at_;
    }
  }

  void open() {
    if (at_ == line_begin_ && !open_.empty() && open_.front().swallowed == 0)
      open_.front().swallowed = line_;
    ++at_;
    open_.push_back({line_, 0, {line_, true, {}, {}}});
  }

  void close() {
    ++at_;
    if (open_.empty()) {
      std::string text = "a stray parenthesis: no form is open";
      if (!file_.forms.empty())
        text += "; the last one began in line " + std::to_string(file_.forms.back().line);
      return report(line_, text);
    }
    Open closed = std::move(open_.back());
    open_.pop_back();
    if (open_.empty() && closed.swallowed != 0)
      report(closed.line, "a parenthesis may be missing: the form in column 0 of line " +
                              std::to_string(closed.swallowed) + " stands inside this one");
    add(std::move(closed.form));
  }

  void add(SourceForm form) {
    if (open_.empty()) long_string_ = 0;
    if (open_.empty())
      file_.forms.push_back(std::move(form));
    else if (open_.size() <= kMostNesting)
      open_.back().form.items.push_back(std::move(form));
  }

  void read_string() {
    const std::uint32_t first = line_;
    std::uint32_t swallowed = 0;
    std::string value;
    for (++at_; at_ < text_.size() && text_[at_] != '"'; take()) {
      if (text_[at_] == '(' && at_ == line_begin_ && swallowed == 0) swallowed = line_;
      if (text_[at_] == '\\' && at_ + 1 < text_.size()) take();
      value += text_[at_];
    }
    const bool is_open = at_ >= text_.size();
    at_ += is_open ? 0 : 1;
    // Behind a string without its end the others begin where they should end.
    if (line_ > first && long_string_ == 0) long_string_ = first;
    if ((is_open || swallowed != 0) && !string_reported_) {
      string_reported_ = true;
      report(long_string_ != 0 ? long_string_ : first,
             is_open && swallowed == 0
                 ? "a string that is still open at the end of the file"
                 : "a string that is not closed before the form in column 0 of line " +
                       std::to_string(swallowed));
    }
    add({first, false, std::move(value), {}});
  }

  // A comma stays in a word, but neither at its front nor at its end.
  void read_word() {
    auto ends = [this](std::size_t at) {
      const char c = at < text_.size() ? text_[at] : ' ';
      return is_white(c) || c == '(' || c == ')' || c == ';' || c == '"';
    };
    const std::size_t begin = at_++;
    while (text_[begin] != ',' && !ends(at_) &&
           !(text_[at_] == ',' && (ends(at_ + 1) || text_[at_ + 1] == ',')))
      ++at_;
    add({line_, false, text_.substr(begin, at_ - begin), {}});
  }

  void end() {
    if (open_.empty() || string_reported_) return;
    const Open& outermost = open_.front();
    std::string text = "a form that is still open at the end of the file";
    if (outermost.swallowed != 0)
      text += "; a parenthesis is likely missing before the form in column 0 of line " +
              std::to_string(outermost.swallowed);
    report(outermost.line, text);
    // As the engine does: it closes what is open.
    while (!open_.empty()) {
      SourceForm form = std::move(open_.back().form);
      open_.pop_back();
      add(std::move(form));
    }
  }

  void report(std::uint32_t line, const std::string& text) {
    file_.shape.push_back({file_.path, line, Severity::error, text});
  }

  SourceFile& file_;
  const std::string text_;
  std::size_t at_ = 0, line_begin_ = 0;
  std::uint32_t line_ = 1;
  std::vector<Open> open_;
  std::uint32_t long_string_ = 0;  // the first line of one of several lines in the form in hand
  bool string_reported_ = false;
};

}  // namespace

SourceFile read_source(const std::string& path) {
  SourceFile file;
  file.path = path;
  std::ifstream in(path, std::ios::binary);
  Reader(file, {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()}).read();
  return file;
}

}  // namespace torvane
