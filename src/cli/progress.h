// A line on the terminal while a long run goes on: what is done, how fast, and how long it takes.
#pragma once

#include <cstdint>

#include "cli/input.h"
#include "cli/summary.h"

namespace torvane {

class Progress {
 public:
  /// Silent unless `wanted` and standard error is a terminal.
  explicit Progress(bool wanted);
  /// To be called after each sentence; it writes now and then.
  void show(const Summary& summary, const Input& input);
  /// The same of a share of what there is to do; 0: not known.
  void show(std::uint64_t sentences, double seconds, double share);
  /// Takes the line away.
  void end();

 private:
  bool live_;
  bool shown_ = false;
  double next_ = 1;  // seconds from the start
};

}  // namespace torvane
