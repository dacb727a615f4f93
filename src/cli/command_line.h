// The command line: arguments to a command.
#pragma once

namespace torvane {

/// Runs what the arguments ask for; the status of the process.
int run_command_line(int argc, char** argv, const char* version);

}  // namespace torvane
