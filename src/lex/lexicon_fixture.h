// For tests: a lexicon from text, a scratch folder, and what was written on the error stream.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "lex/lex_analyzer.h"
#include "shell/exec.h"

namespace torvane {

/// The kinds "g" and "h" of meanings, which are texts.
inline void register_kinds() {
  static bool done = false;
  if (done) return;
  done = true;
  register_core_forms();
  register_constant_forms();
  register_string_forms();
  register_lexicon_commands();
  register_avmeaning_proto();
  interpreter().prompt = false;
  interpreter().load_string("(make-str-meaning-proto g) (make-str-meaning-proto h)");
}

/// What the body writes on the error stream.
template <class Body>
std::string complaints(Body body) {
  testing::internal::CaptureStderr();
  body();
  return testing::internal::GetCapturedStderr();
}

struct Words : Lexicon {
  explicit Words(const std::string& text = "", int no_dup = 0) : Lexicon(101) {
    register_kinds();
    read(text, no_dup);
  }
  void read(const std::string& text, int no_dup = 0) {
    std::istringstream in(text);
    load(in, no_dup);
  }
  std::string printed(const char* word) {
    std::ostringstream out;
    if (const LexEntry* entry = get_entry(word)) print_entry(out, entry);
    return out.str();
  }
};

/// A folder that goes with the test.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "lex-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~ScratchFolder() { std::filesystem::remove_all(path_); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string operator/(const char* name) const { return (path_ / name).string(); }
  void write(const char* name, const std::string& content) const {
    std::ofstream(*this / name, std::ios::binary) << content;
  }
  std::string read(const char* name) const {
    std::ifstream in(*this / name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }

 private:
  std::filesystem::path path_;
};

}  // namespace torvane
