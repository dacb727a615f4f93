#include "counts/line_file.h"

#include <unistd.h>

#include <cerrno>

namespace torvane {

bool LineFile::fill() {
  buffer_.erase(0, at_);
  at_ = 0;
  const std::size_t had = buffer_.size();
  buffer_.resize(had + piece_);
  ssize_t got;
  do {
    got = read(file_, buffer_.data() + had, piece_);
  } while (got < 0 && errno == EINTR);
  if (got < 0) error_ = errno;
  buffer_.resize(had + (got > 0 ? static_cast<std::size_t>(got) : 0));
  return got > 0;
}

bool LineFile::line(std::string_view& text) {
  std::size_t end = buffer_.find('\n', at_);
  while (end == buffer_.npos) {
    const std::size_t searched = buffer_.size() - at_;
    if (!fill()) break;
    end = buffer_.find('\n', searched);
  }
  cut_ = end == buffer_.npos;
  if (cut_ && at_ == buffer_.size()) return false;
  text = std::string_view(buffer_).substr(at_, (cut_ ? buffer_.size() : end) - at_);
  at_ = cut_ ? buffer_.size() : end + 1;
  return true;
}

}  // namespace torvane
