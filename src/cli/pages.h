// The reference pages of docs/ as they were when the program was built.
#pragma once

#include <span>
#include <string_view>

namespace torvane {

struct ReferencePage {
  std::string_view name;
  std::span<const std::string_view> lines;
};

std::span<const ReferencePage> all_pages();

}  // namespace torvane
