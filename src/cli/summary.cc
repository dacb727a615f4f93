#include "cli/summary.h"

namespace torvane {

std::string with_commas(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

Outcome outcome_of(const Sentence& sentence) {
  if (!sentence.cut.empty()) return Outcome::cut;
  return sentence.is_whole() ? Outcome::whole : Outcome::parts;
}

double Summary::seconds() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

std::string Summary::text() const {
  std::string text = with_commas(sentences()) +
                     (sentences() == 1 ? " sentence, " : " sentences, ") + with_commas(counts_[0]) +
                     " whole, " + with_commas(counts_[1]) + " in parts, " +
                     with_commas(counts_[2]) + " cut";
  if (const double took = seconds(); took > 0)
    text += "; " +
            with_commas(static_cast<std::uint64_t>(static_cast<double>(sentences()) / took)) +
            " a second";
  return text;
}

}  // namespace torvane
