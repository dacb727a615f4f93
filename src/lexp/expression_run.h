// For tests: runs forms in a world of their own, and tells what they wrote.
#pragma once

#include <iostream>
#include <sstream>
#include <string>

#include "lexp/lexp.h"
#include "lexp/offers.h"
#include "shell/offers.h"
#include "shell/world.h"

namespace torvane {

/// A world with the forms of this layer, which runs in the thread while this lives.
class ExpressionRun {
 public:
  ExpressionRun() {
    world_.interpreter.prompt = false;
    using namespace offers;
    enter_all(world_,
              {&tokenizer_commands, &macro, &constants, &control_forms, &eval, &exec_commands,
               &foreach, &functions, &integer_forms, &print_forms, &reg_forms, &str_sim,
               &stream_forms, &string_forms, &variable_forms, &word_forms, &word_list});
  }

  World& world() { return world_; }
  /// Runs the forms of a text; what they wrote on standard output since the last call.
  std::string run(const std::string& text) {
    world_.interpreter.load_string(text.c_str());
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
  World world_{World::Console{&std::cin, &out_, &err_}};
  WorldScope here_{world_};
};

}  // namespace torvane
