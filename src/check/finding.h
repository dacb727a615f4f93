// What is wrong with a grammar, and where.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace torvane {

enum class Severity : std::uint8_t { error, warning };

struct Finding {
  std::string file;
  std::uint32_t line = 1;  ///< from 1 on
  Severity severity = Severity::error;
  std::string text;
};

using Findings = std::vector<Finding>;

}  // namespace torvane
