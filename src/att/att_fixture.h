// For tests: types of vectors, vectors from text, and text from vectors.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "att/att_interpreter_list.h"
#include "lexp/expression_run.h"

namespace torvane {

class AttTest : public testing::Test {
 protected:
  AttTest() {
    register_attribute_types();
    register_attribute_forms();
    register_attribute_commands();
  }

  /// A new type, current from now on.
  AttInterpreterList* new_type(const std::string& atts) {
    static int made = 0;
    name_ = "type" + std::to_string(++made);
    run_.run("(def-att-list " + name_ + " " + atts + ")");
    return AttInterpreterList::current();
  }
  /// One attribute of every scalar kind.
  AttInterpreterList* scalars() {
    return new_type(
        "(defattribute def BinAtt)(defattribute num EnumAtt (allowable-values sg pl du))"
        "(defattribute cas DisjAtt (allowable-values nom acc dat abl))"
        "(defattribute gen Disj8Att (allowable-values m f n))(defattribute cnt IntAtt)"
        "(defattribute age SmIntAtt)(defattribute txt StrAtt)(defattribute ent EntAtt)");
  }
  /// One attribute of every nested kind, over a small type.
  AttInterpreterList* nested() {
    new_type(
        "(defattribute a BinAtt)(defattribute k EnumAtt (allowable-values x y z))"
        "(defattribute d DisjAtt (allowable-values p q r))");
    return new_type("(defattribute v VecAtt (interpreter " + name_ +
                    "))(defattribute fr ListAtt (interpreter " + name_ +
                    "))(defattribute st StackAtt (interpreter " + name_ +
                    "))(defattribute tr TraceAtt)(defattribute n IntAtt)(defattribute b BinAtt)");
  }
  /// A vector of the current type.
  static Ref<AttVec> vec(const std::string& text) {
    IRSlistReader reader;
    return make_ref<AttVec>(reader.start_string(text.c_str()), AttInterpreterList::current());
  }
  static std::string text(const AttVec& vec) {
    std::ostringstream out;
    vec.print(out);
    return out.str();
  }
  static std::string text(const Ref<AttVec>& vec) { return text(*vec); }
  static int index(const char* att) {
    int found;
    return AttInterpreterList::current()->lookup(att, &found) ? found : -1;
  }

  ExpressionRun run_;
  std::string name_;  ///< of the type made last
};

}  // namespace torvane
