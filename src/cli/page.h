// The options of formats that draw.
#pragma once

#include <cstddef>
#include <string>

#include "formats/format.h"

namespace CLI {
class App;
}

namespace torvane {

struct PageChoice {
  std::size_t width = 0;  ///< 0: that of the terminal, or 100
  bool ascii = false;
};

void declare_page(CLI::App& app, PageChoice& choice);
/// The page for what is written to a file of that name; empty, or "-": standard output.
Page page_of(const PageChoice& choice, const std::string& output);

}  // namespace torvane
