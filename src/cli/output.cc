#include "cli/output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <utility>

namespace torvane {

namespace {
constexpr std::size_t kOutputBlock = 1 << 16;
}

Output::Output(std::string name) : name_(std::move(name)) {
  if (name_.empty() || name_ == "-") {
    name_ = "standard output";
    file_ = 1;
    return;
  }
  file_ = open(name_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file_ < 0) fail();
}

Output::~Output() {
  flush(true);
  if (file_ > 2) close(file_);
}

bool Output::is_terminal() const {
  return isatty(file_) == 1;
}

void Output::fail() {
  shut_ = true;
  if (errno == EPIPE) return;
  failed_ = true;
  std::cerr << "torvane: " << name_ << ": " << std::strerror(errno) << '\n';
}

bool Output::flush(bool now) {
  if (shut_ || (!now && buffer.size() < kOutputBlock)) return !shut_;
  std::size_t done = 0;
  while (done < buffer.size() && !shut_) {
    const ssize_t wrote = write(file_, buffer.data() + done, buffer.size() - done);
    if (wrote >= 0) {
      done += static_cast<std::size_t>(wrote);
    } else if (errno != EINTR) {
      fail();
    }
  }
  buffer.clear();
  return !shut_;
}

}  // namespace torvane
