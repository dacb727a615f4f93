#include "shell/file_search.h"

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>

#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

bool exists(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0;
}

}  // namespace

void FileSearch::set(const char* paths) {
  if (!paths) {
    add(nullptr);
  } else {
    while (const char* end = std::strchr(paths, ';')) {
      add(std::string(paths, end).c_str());
      paths = end + 1;
    }
    if (*paths) add(paths);
  }
  path_.emplace_back();
}

void FileSearch::add(const char* path) {
  if (path_.empty()) path_.emplace_back(".");
  if (path) path_.emplace_back(path);
}

void FileSearch::only(const std::vector<std::string>& folders) {
  path_.assign(folders.begin(), folders.end());
  here_first_ = false;
}

std::optional<std::string> expand_file_name(const char* name) {
  std::string expanded;
  for (const char* p = name; *p; ++p) {
    if (*p != '$') {
      expanded += *p;
      continue;
    }
    const char* end = p[1] == '(' ? std::strchr(p, ')') : nullptr;
    if (!end) {
      messages() << "syntax error in " << name << '\n';
      return std::nullopt;
    }
    expanded += or_empty(std::getenv(std::string(p + 2, end).c_str()));
    p = end;
  }
  return expanded;
}

std::optional<std::string> FileSearch::find(const char* name) {
  found_dir_.clear();
  std::optional<std::string> expanded;
  if (name) expanded = expand_file_name(name);
  if (!expanded) return std::nullopt;
  if (here_first_) {
    if (path_.empty()) path_.emplace_back(".");
    if (!path_.front().empty()) path_.emplace_front();
  }
  for (const std::string& element : path_) {
    std::string dir = element;
    if (!dir.empty() && dir.back() != kDirSeparator) dir += kDirSeparator;
    std::string candidate = element.empty() ? *expanded : element + kDirSeparator + *expanded;
    if (!exists(candidate)) continue;
    found_dir_ = dir + expanded->substr(0, expanded->rfind(kDirSeparator) + 1);
    all_found_.insert(candidate);
    return candidate;
  }
  return std::nullopt;
}

Ref<Stream> FileSearch::open(const char* name) {
  std::optional<std::string> path = find(name);
  if (!path) {
    messages() << "The file " << or_empty(name) << " cannot be opened\n";
    return Ref<Stream>();
  }
  Ref<Stream> stream = Stream::open_input(path->c_str());
  if (stream->good()) return stream;
  messages() << "The file " << *path << " exists, but cannot be opened\n";
  return Ref<Stream>();
}

}  // namespace torvane
