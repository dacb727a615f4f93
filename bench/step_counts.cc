// What steps the parse of a sentence takes, on average over the sentences of the input, a line
// each.
#include "support/step_counts.h"

#include <algorithm>
#include <iostream>
#include <string>

#include "bench/session.h"
#include "parser/parsing.h"
#include "parser/torvane_parser.h"

int main() {
  using namespace torvane;
  TorvaneParser* parser = current_parser(english());
  std::uint64_t at_start[kSteps];
  std::copy_n(step_counts, kSteps, at_start);
  int sentences = 0;
  for (std::string line; std::getline(std::cin, line); ++sentences)
    parser->parse(line.c_str(), nullptr);
  for (int i = 0; i < kSteps && sentences > 0; ++i)
    std::cout << kStepNames[i] << '\t'
              << (step_counts[i] - at_start[i]) / static_cast<std::uint64_t>(sentences) << '\n';
}
