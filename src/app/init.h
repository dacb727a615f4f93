// The start of the interpreter: what every module adds to the configuration language, and the
// start-up file.
#pragma once

#include <span>

namespace torvane {

class World;

/// One row of the start: a module's registration. Each has a guard of its own.
struct Registration {
  const char* what;
  void (*run)();  ///< null for a module that this build does without
};

/// All rows, in the order in which they are run: it decides what is found first where names
/// collide.
std::span<const Registration> registrations();

/// Runs every registration.
void register_modules(World& world);

/// Sets the search path, registers the modules, and runs the start-up file `torvane.lsp`.
void init(const char* data_dir);

}  // namespace torvane
