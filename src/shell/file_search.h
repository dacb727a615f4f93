// The search path of configuration files, and the opening of a file along it.
#pragma once

#include <list>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "shell/streams.h"

namespace torvane {

inline constexpr char kDirSeparator = '/';

/// The name with the values of its "$(VAR)" references; nothing, after "syntax error in NAME", if a
/// reference is bad.
std::optional<std::string> expand_file_name(const char* name);

/// A world's search path.
class FileSearch {
 public:
  /// At start-up: adds the paths split at ";" ("." if null), then the empty string, which means the
  /// working directory.
  void set(const char* paths);
  void add(const char* path);
  /// These folders alone: the working directory is not looked at unless it is one of them.
  void only(const std::vector<std::string>& folders);
  void clear() { path_.clear(); }

  /// The first place along the path where the file-status call succeeds on the name, with "$(VAR)"
  /// references expanded; nothing if there is none or a reference is bad (reported).
  std::optional<std::string> find(const char* name);
  /// The directory of the last file found, with a separator at its end, or empty. The next search
  /// resets it.
  const std::string& found_dir() const { return found_dir_; }
  /// All that was found so far.
  const std::set<std::string>& all_found() const { return all_found_; }
  /// `find`, then opens. Null after a message: "The file NAME cannot be opened", or "The file PATH
  /// exists, but cannot be opened".
  Ref<Stream> open(const char* name);

 private:
  std::list<std::string> path_;
  bool here_first_ = true;  ///< the working directory stands in front of all
  std::string found_dir_;
  std::set<std::string> all_found_;
};

}  // namespace torvane
