#include "cli/input.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <utility>

#include "cli/interrupt.h"
#include "text/utf8.h"

namespace torvane {

namespace {
constexpr std::size_t kInputBlock = 1 << 16;
}

Input::Input(std::vector<std::string> names) : names_(std::move(names)) {
  if (names_.empty()) names_.emplace_back("-");
}

Input::~Input() {
  if (file_ > 0) close(file_);
}

bool Input::open_next() {
  while (next_ < names_.size()) {
    if (line_number_ > 0) before_ = {name_, line_number_};
    name_ = names_[next_++];
    line_number_ = 0;
    const bool standard = name_ == "-";
    file_ = standard ? 0 : open(name_.c_str(), O_RDONLY | O_CLOEXEC);
    if (standard) name_ = "standard input";
    if (file_ >= 0) return true;
    std::cerr << "torvane: " << name_ << ": " << std::strerror(errno) << '\n';
    failed_ = true;
  }
  return false;
}

bool Input::fill() {
  buffer_.erase(0, at_);
  at_ = 0;
  const std::size_t had = buffer_.size();
  buffer_.resize(had + kInputBlock);
  ssize_t got = -1;
  do {
    pollfd wait_for[] = {{file_, POLLIN, 0}, {interrupt_descriptor(), POLLIN, 0}};
    poll(wait_for, 2, -1);
    errno = EINTR;
    if (!is_interrupted()) got = read(file_, buffer_.data() + had, kInputBlock);
  } while (got < 0 && errno == EINTR && !is_interrupted());
  if (got < 0 && errno != EINTR) {
    std::cerr << "torvane: " << name_ << ": " << std::strerror(errno) << '\n';
    failed_ = true;
  }
  if (got > 0) bytes_read_ += static_cast<std::uint64_t>(got);
  buffer_.resize(had + (got > 0 ? static_cast<std::size_t>(got) : 0));
  return got > 0;
}

bool Input::line(std::string& text) {
  text.clear();
  while (!is_interrupted()) {
    if (file_ < 0 && !open_next()) return false;
    std::size_t from = at_;
    std::size_t end = buffer_.find('\n', from);
    while (end == buffer_.npos) {
      from = buffer_.size() - at_;  // what was searched already, from where fill() puts it
      if (!fill()) break;
      end = buffer_.find('\n', from);
    }
    if (end == buffer_.npos && at_ == buffer_.size()) {
      if (file_ > 0) close(file_);
      file_ = -1;
      buffer_.clear();
      at_ = 0;
      continue;
    }
    const std::size_t stop = end == buffer_.npos ? buffer_.size() : end;
    text.assign(buffer_, at_, stop - at_);
    at_ = end == buffer_.npos ? stop : end + 1;
    ++line_number_;
    trim(text, line_number_ == 1);
    if (!told_of_bytes_) look_at_bytes(text);
    return true;
  }
  return false;
}

void Input::look_at_bytes(const std::string& text) {
  if (is_utf8(text)) return;
  told_of_bytes_ = true;
  std::cerr << "torvane: " << place() << ": bytes that are no UTF-8 go through as they are\n";
}

std::string Input::place() const {
  return name_ + ':' + std::to_string(line_number_);
}

void Input::tell(std::size_t lines_back, const std::string& fault) {
  has_faults_ = true;
  const bool is_here = lines_back < line_number_;
  std::cerr << "torvane: " << (is_here ? name_ : before_.name) << ':'
            << (is_here ? line_number_ : before_.lines + line_number_) - lines_back << ": " << fault
            << ": the sentence is left out\n";
}

bool Input::is_waiting() const {
  if (buffer_.find('\n', at_) != buffer_.npos) return true;
  if (file_ < 0) return next_ < names_.size();
  pollfd poll_for{file_, POLLIN, 0};
  return poll(&poll_for, 1, 0) > 0;
}

double Input::share_read() const {
  std::uint64_t all = 0;
  for (const std::string& name : names_) {
    struct stat status;
    const bool known = name == "-" ? fstat(0, &status) == 0 : stat(name.c_str(), &status) == 0;
    if (!known) continue;
    if (!S_ISREG(status.st_mode)) return 0;
    all += static_cast<std::uint64_t>(status.st_size);
  }
  // What waits in the buffer is not yet done.
  const std::uint64_t done = bytes_read_ - (buffer_.size() - at_);
  return all > 0 ? std::min(static_cast<double>(done) / static_cast<double>(all), 1.0) : 0;
}

bool Input::is_terminal() const {
  return file_ >= 0 && isatty(file_) == 1;
}

}  // namespace torvane
