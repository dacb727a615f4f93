#include "counts/range_input.h"

#include <algorithm>
#include <utility>

namespace torvane {
namespace {

constexpr std::size_t kRangePiece = std::size_t{1} << 16;
constexpr std::size_t kKnownBegins = 4096;
constexpr const char* kBlankBytes = " \t\r\f\v";

bool is_blank(std::string_view text) {
  return text.find_first_not_of(kBlankBytes) == text.npos;
}

}  // namespace

TextUnit unit_of(const std::string& from) {
  return from == "lines" || from == "tokens" ? TextUnit::line : TextUnit::paragraph;
}

RangeInput::RangeInput(std::vector<FileRange> ranges, TextUnit unit, Tell tell)
    : ranges_(std::move(ranges)), unit_(unit), tell_(std::move(tell)) {}

bool RangeInput::open_next() {
  while (next_ < ranges_.size()) {
    const std::string& name = ranges_[next_++].file;
    file_ = std::make_unique<CorpusFile>(name);
    buffer_.clear();
    buffer_at_ = 0;
    ended_ = in_paragraph_ = false;
    at_ = range().begin;
    const std::string fault = file_->open();
    starts_ = true;
    if (fault.empty() && go_to_begin()) return true;
    if (!fault.empty()) {
      has_faults_ = true;
      tell_(fault);
    }
    close(fault.empty());
  }
  return false;
}

void RangeInput::close(bool at_end) {
  const std::string fault = file_->close(at_end);
  if (!fault.empty()) {
    has_faults_ = true;
    tell_(fault);
  }
  done_ += range().end - range().begin;
  file_.reset();
}

/// Goes to the first line that starts in the range; false where there is none.
bool RangeInput::go_to_begin() {
  after_blank_ = true;
  if (range().begin == 0) return true;
  const bool at_line = file_->is_compressed() ? read_up_to_begin() : look_back();
  if (at_line) return true;
  const bool was_blank = after_blank_;
  if (!raw_line()) return false;
  after_blank_ = was_blank && is_blank(text_);
  return true;
}

/// Whether a line starts where the range does; `after_blank_` says whether what stands before it,
/// or before it in the same line, is blank.
bool RangeInput::look_back() {
  std::uint64_t at = range().begin;
  char byte = 0;
  const bool at_line = file_->read_at(at - 1, byte) && byte == '\n';
  if (at_line) --at;
  for (; after_blank_ && at > 0 && file_->read_at(at - 1, byte) && byte != '\n'; --at)
    after_blank_ = is_blank({&byte, 1});
  file_->seek(range().begin);
  return at_line;
}

/// The same of a file that can only be read from its start.
bool RangeInput::read_up_to_begin() {
  bool at_line = true, is_blank_so_far = true;
  for (std::uint64_t left = range().begin; left > 0 && !ended_;) {
    buffer_.clear();
    ended_ =
        !file_->read(buffer_, static_cast<std::size_t>(std::min<std::uint64_t>(left, kRangePiece)));
    left -= buffer_.size();
    for (char byte : buffer_) {
      if (at_line) is_blank_so_far = true;
      at_line = byte == '\n';
      if (!at_line && !is_blank({&byte, 1})) is_blank_so_far = false;
    }
  }
  buffer_.clear();
  after_blank_ = is_blank_so_far;
  return at_line;
}

bool RangeInput::raw_line() {
  std::size_t end = buffer_.find('\n', buffer_at_);
  while (end == buffer_.npos && !ended_) {
    buffer_.erase(0, std::exchange(buffer_at_, 0));
    const std::size_t searched = buffer_.size();
    ended_ = !file_->read(buffer_, kRangePiece);
    end = buffer_.find('\n', searched);
  }
  const std::size_t stop = std::min(end, buffer_.size());
  line_begin_ = at_;
  if (end == buffer_.npos && buffer_at_ == stop) return false;
  text_.assign(buffer_, buffer_at_, stop - buffer_at_);
  buffer_at_ = end == buffer_.npos ? stop : end + 1;
  at_ += text_.size() + (end == buffer_.npos ? 0 : 1);
  return true;
}

/// The next line that belongs to the range that is open, in `text_`; else the range is closed.
bool RangeInput::line_of_range() {
  while (raw_line()) {
    const bool blank = is_blank(text_);
    const bool is_behind = line_begin_ >= range().end && !in_paragraph_;
    if (is_behind) return close(false), false;
    if (unit_ == TextUnit::line) return true;
    const bool begins = !in_paragraph_ && !blank && after_blank_;
    const bool is_ours = in_paragraph_ || begins;
    in_paragraph_ = is_ours && !blank;
    after_blank_ = blank;
    if (is_ours) return true;
  }
  close(true);
  return false;
}

bool RangeInput::line(std::string& text) {
  while (file_ || open_next()) {
    if (!line_of_range()) continue;
    is_first_ = std::exchange(starts_, false);
    told_name_ = range().file;
    begins_.push_back(line_begin_);
    if (begins_.size() > kKnownBegins) begins_.pop_front();
    text = text_;
    trim(text, line_begin_ == 0);
    return true;
  }
  return false;
}

std::uint64_t RangeInput::bytes_done() const {
  return done_ + (file_ ? std::min(at_, range().end) - range().begin : 0);
}

void RangeInput::tell(std::size_t lines_back, const std::string& fault) {
  has_faults_ = true;
  const std::size_t known = std::min(lines_back + 1, begins_.size());
  const std::uint64_t begin = known > 0 ? begins_[begins_.size() - known] : 0;
  tell_(told_name_ + ": at byte " + std::to_string(begin) + ": " + fault +
        ": the sentence is left out");
}

}  // namespace torvane
