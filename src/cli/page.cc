#include "cli/page.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>

namespace torvane {

void declare_page(CLI::App& app, PageChoice& choice) {
  app.add_option("--width", choice.width,
                 "Characters of a line of a drawing; none: the terminal's, or 100")
      ->check(CLI::Range(20, 10000));
  app.add_flag("--ascii", choice.ascii, "Draw for the terminal in plain ASCII signs");
}

Page page_of(const PageChoice& choice, const std::string& output) {
  Page page;
  page.ascii = choice.ascii;
  winsize window{};
  const bool standard = output.empty() || output == "-";
  if (choice.width > 0) {
    page.width = choice.width;
  } else if (standard && ioctl(STDOUT_FILENO, TIOCGWINSZ, &window) == 0 && window.ws_col > 0) {
    page.width = window.ws_col;
  }
  return page;
}

}  // namespace torvane
