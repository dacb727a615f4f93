#include "cli/progress.h"

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <iostream>
#include <string>

namespace torvane {
namespace {

constexpr double kInterval = 0.25;

std::string time_text(double seconds) {
  const auto whole = static_cast<std::uint64_t>(std::llround(seconds));
  if (whole < 90) return std::to_string(whole) + " s";
  if (whole < 5400) return std::to_string((whole + 30) / 60) + " min";
  return std::to_string((whole + 1800) / 3600) + " h";
}

}  // namespace

Progress::Progress(bool wanted) : live_(wanted && isatty(STDERR_FILENO) == 1) {}

void Progress::end() {
  if (shown_) std::cerr << "\r\033[K" << std::flush;
}

void Progress::show(const Summary& summary, const Input& input) {
  if (live_) show(summary.sentences(), summary.seconds(), input.share_read());
}

void Progress::show(std::uint64_t sentences, double seconds, double share) {
  if (!live_ || seconds < next_) return;
  next_ = seconds + kInterval;
  shown_ = true;
  std::cerr << '\r' << with_commas(sentences) << " sentences, "
            << with_commas(static_cast<std::uint64_t>(static_cast<double>(sentences) / seconds))
            << " a second";
  if (share > 0) std::cerr << ", " << time_text(seconds * (1 - share) / share) << " left";
  std::cerr << "\033[K" << std::flush;
}

}  // namespace torvane
