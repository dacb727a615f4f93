// The interpreter that all benchmarks of a run share, with every command registered and an own
// start-up.
#pragma once

namespace torvane {

/// Registers everything, at the first call.
void session();
/// The shipped grammar and its parser, loaded at the first call.
void english();
/// Runs forms of the configuration language.
void run_forms(const char* text);

}  // namespace torvane
