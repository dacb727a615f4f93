// What the readers of bytes share.
#pragma once

#include <iostream>
#include <sstream>
#include <string>

#include "engine/engine.h"

namespace torvane {

/// What a target does with an input; it aborts where a reader is at fault. The error stream is
/// shut.
void read_input(const std::string& bytes);

/// The world in which a target reads, with all modules.
inline World& world() {
  static Engine& engine = *new Engine;
  static WorldScope here(engine.world());
  return engine.world();
}

/// Runs commands that define types of vectors, and what else is to be there.
inline void define(const std::string& commands) {
  world().interpreter.prompt = false;
  world().interpreter.load_string(commands.c_str());
}

/// What a thing prints of itself.
template <class Thing>
std::string printed(Thing& thing) {
  std::ostringstream out;
  thing.print(out);
  return out.str();
}

}  // namespace torvane
