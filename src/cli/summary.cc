#include "cli/summary.h"

namespace torvane {
namespace {

std::string with_commas(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

}  // namespace

void Summary::count(const Sentence& sentence) {
  ++sentences_;
  if (!sentence.cut.empty()) {
    ++cut_;
  } else if (sentence.is_whole()) {
    ++whole_;
  } else {
    ++parts_;
  }
}

std::string Summary::text() const {
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start_;
  std::string text = with_commas(sentences_) + (sentences_ == 1 ? " sentence, " : " sentences, ") +
                     with_commas(whole_) + " whole, " + with_commas(parts_) + " in parts, " +
                     with_commas(cut_) + " cut";
  if (took.count() > 0)
    text +=
        "; " +
        with_commas(static_cast<std::uint64_t>(static_cast<double>(sentences_) / took.count())) +
        " a second";
  return text;
}

}  // namespace torvane
