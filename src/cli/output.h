// Where a command writes: whole sentences, so that what is there is complete at any moment.
#pragma once

#include <string>

namespace torvane {

class Output {
 public:
  /// Standard output for an empty name or "-".
  explicit Output(std::string name);
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /// To be appended to, a sentence at a time.
  std::string buffer;
  /// Writes what is in the buffer, if it has grown or `now`. False when nothing can be written any
  /// more.
  bool flush(bool now);
  /// Nothing can be written: nobody reads any more, or an error, which was told.
  bool is_shut() const { return shut_; }
  bool failed() const { return failed_; }
  bool is_terminal() const;

 private:
  void fail();

  std::string name_;
  int file_ = -1;
  bool shut_ = false;
  bool failed_ = false;
};

}  // namespace torvane
