// The search path of configuration files, and the opening of a file along it.
#pragma once

#include <optional>
#include <string>

#include "shell/streams.h"

namespace torvane {

inline constexpr char kDirSeparator = '/';

/// At start-up: the paths split at ";" ("." if null), then the empty string, which means the
/// working directory.
void set_search_path(const char* paths);
void add_search_path(const char* path);
void clear_search_path();

/// The name with the values of its "$(VAR)" references; nothing, after "syntax error in NAME", if a
/// reference is bad.
std::optional<std::string> expand_file_name(const char* name);
/// The first place along the path where the file-status call succeeds on the name, with "$(VAR)"
/// references expanded; nothing if there is none or a reference is bad (reported).
std::optional<std::string> find_file(const char* name);
/// The directory of the last file found, with a separator at its end, or empty. The next search
/// resets it.
const std::string& found_dir();
/// `find_file`, then opens. Null after a message: "The file NAME cannot be opened", or "The file
/// PATH exists, but cannot be opened".
Ref<Stream> open_file(const char* name);

}  // namespace torvane
