#include "shell/file_search.h"

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <list>

#include "support/text.h"

namespace torvane {

namespace {

std::list<std::string>& search_path() {
  static auto& path = *new std::list<std::string>;
  return path;
}

std::string& last_dir() {
  static auto& dir = *new std::string;
  return dir;
}

bool exists(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0;
}

}  // namespace

void set_search_path(const char* paths) {
  if (!paths) {
    add_search_path(nullptr);
  } else {
    while (const char* end = std::strchr(paths, ';')) {
      add_search_path(std::string(paths, end).c_str());
      paths = end + 1;
    }
    if (*paths) add_search_path(paths);
  }
  search_path().emplace_back();
}

void add_search_path(const char* path) {
  if (search_path().empty()) search_path().emplace_back(".");
  if (path) search_path().emplace_back(path);
}

void clear_search_path() {
  search_path().clear();
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
      std::cerr << "syntax error in " << name << '\n';
      return std::nullopt;
    }
    expanded += or_empty(std::getenv(std::string(p + 2, end).c_str()));
    p = end;
  }
  return expanded;
}

std::optional<std::string> find_file(const char* name) {
  last_dir().clear();
  std::optional<std::string> expanded;
  if (name) expanded = expand_file_name(name);
  if (!expanded) return std::nullopt;
  std::list<std::string>& path = search_path();
  if (path.empty()) path.emplace_back(".");
  if (!path.front().empty()) path.emplace_front();
  for (const std::string& element : path) {
    std::string dir = element;
    if (!dir.empty() && dir.back() != kDirSeparator) dir += kDirSeparator;
    std::string candidate = element.empty() ? *expanded : element + kDirSeparator + *expanded;
    if (!exists(candidate)) continue;
    last_dir() = dir + expanded->substr(0, expanded->rfind(kDirSeparator) + 1);
    return candidate;
  }
  return std::nullopt;
}

const std::string& found_dir() {
  return last_dir();
}

Ref<Stream> open_file(const char* name) {
  std::optional<std::string> path = find_file(name);
  if (!path) {
    std::cerr << "The file " << or_empty(name) << " cannot be opened\n";
    return Ref<Stream>();
  }
  Ref<Stream> stream = Stream::open_input(path->c_str());
  if (stream->good()) return stream;
  std::cerr << "The file " << *path << " exists, but cannot be opened\n";
  return Ref<Stream>();
}

}  // namespace torvane
