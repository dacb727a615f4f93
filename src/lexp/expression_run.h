// For tests: runs forms in the interpreter, and tells what they wrote.
#pragma once

#include <iostream>
#include <sstream>
#include <string>

#include "lexp/lexp.h"
#include "shell/exec.h"

namespace torvane {

/// Redirects the standard streams while it lives.
class ExpressionRun {
 public:
  ExpressionRun()
      : old_out_(std::cout.rdbuf(out_.rdbuf())), old_err_(std::cerr.rdbuf(err_.rdbuf())) {
    interpreter().prompt = false;
    register_tokenizer_commands();
    register_core_forms();
    register_string_forms();
    register_integer_forms();
    register_constant_forms();
  }
  ~ExpressionRun() {
    std::cout.rdbuf(old_out_);
    std::cerr.rdbuf(old_err_);
  }
  ExpressionRun(const ExpressionRun&) = delete;
  ExpressionRun& operator=(const ExpressionRun&) = delete;

  /// Runs the forms of a text; what they wrote on standard output since the last call.
  std::string run(const std::string& text) {
    interpreter().load_string(text.c_str());
    return take(out_);
  }
  /// What came on the error stream since the last call.
  std::string errors() { return take(err_); }

 private:
  static std::string take(std::ostringstream& stream) {
    std::string text = stream.str();
    stream.str("");
    return text;
  }

  std::ostringstream out_;
  std::ostringstream err_;
  std::streambuf* old_out_;
  std::streambuf* old_err_;
};

}  // namespace torvane
