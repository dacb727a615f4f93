#include "bench/session.h"

#include <filesystem>

#include "app/init.h"
#include "shell/exec.h"

namespace torvane {

void session() {
  static bool once = [] {
    interpreter().prompt = false;
    register_modules();
    return true;
  }();
  (void)once;
}

void english() {
  static bool once = [] {
    // The shipped start-up file names its files relative to a folder that holds `data`.
    std::filesystem::current_path(std::filesystem::path(TORVANE_DATA).parent_path());
    init("./data");
    return true;
  }();
  (void)once;
}

void run_forms(const char* text) {
  interpreter().load_string(text);
}

}  // namespace torvane
