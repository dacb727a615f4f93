// The world that all benchmarks of a run share, with every command registered and an own start-up.
// It runs in the thread that asked first.
#pragma once

#include "shell/world.h"

namespace torvane {

/// With everything registered, at the first call.
World& session();
/// The same with the shipped grammar and its parser, loaded at the first call.
World& english();
/// Runs forms of the configuration language.
void run_forms(const char* text);

}  // namespace torvane
