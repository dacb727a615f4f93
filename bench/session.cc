#include "bench/session.h"

#include <filesystem>

#include "engine/engine.h"

namespace torvane {

namespace {

Engine& engine() {
  static Engine& shared = *new Engine;
  static WorldScope here(shared.world());
  shared.world().interpreter.prompt = false;
  return shared;
}

}  // namespace

World& session() {
  return engine().world();
}

World& english() {
  static const bool loaded = [] {
    // The shipped start-up file names its files relative to a folder that holds `data`.
    std::filesystem::current_path(std::filesystem::path(TORVANE_DATA).parent_path());
    engine().start("./data");
    return true;
  }();
  (void)loaded;
  return engine().world();
}

void run_forms(const char* text) {
  session().interpreter.load_string(text);
}

}  // namespace torvane
