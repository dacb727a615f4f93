// For tests: a parser made from a few lines of grammar, and a look into its charts.
#pragma once

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>

#include "lex/lex_analyzer.h"
#include "lexp/lexp.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"
#include "shell/exec.h"
#include "shell/named_objects.h"

namespace torvane {

/// What the commands and parses of a scope write on a stream.
class Captured {
 public:
  explicit Captured(std::ostream& stream) : stream_(stream), old_(stream.rdbuf(text_.rdbuf())) {}
  ~Captured() { stream_.rdbuf(old_); }
  Captured(const Captured&) = delete;
  Captured& operator=(const Captured&) = delete;
  std::string text() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::ostream& stream_;
  std::streambuf* old_;
};

class GrammarTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static bool done = false;
    if (done) return;
    done = true;
    register_attribute_types();
    register_lexicon_commands();
    register_lex_analyzer_commands();
    register_core_forms();
    register_attribute_forms();
    register_string_forms();
    register_integer_forms();
    register_constant_forms();
    register_attribute_commands();
    register_parser_commands();
    register_init_attributes();
    register_meanings();
    register_avmeaning_proto();
    run(R"((def-att-list syn
        (defattribute args ListAtt) (defattribute cm BinAtt)
        (defattribute cat EnumAtt (allowable-values a c d i j n p v))
        (defattribute cform StrAtt) (defattribute check DisjAtt (allowable-values wh np))
        (defattribute control BinAtt) (defattribute govern BinAtt) (defattribute guest BinAtt)
        (defattribute head_final BinAtt) (defattribute last_conj BinAtt)
        (defattribute move ListAtt) (defattribute node StrAtt) (defattribute opt BinAtt)
        (defattribute pform StrAtt) (defattribute rare BinAtt) (defattribute ref StrAtt)
        (defattribute role StrAtt) (defattribute slash DisjAtt (allowable-values wh np pp))
        (defattribute num EnumAtt (allowable-values sg pl)) (defattribute lexitem EntAtt)
        (defattribute trace TraceAtt))
      (make-avmeaning-proto syn avm)
      (make-str-meaning-proto freq)
      (init-attributes))");
  }

  static void run(const std::string& commands) {
    interpreter().prompt = false;
    interpreter().load_string(commands.c_str());
  }
  /// What running the commands reports.
  static std::string report(const std::string& commands) {
    Captured errors(std::cerr);
    run(commands);
    return errors.text();
  }

  /// A fresh parser with its own words and analyser; `words` are entries, such as
  ///   (boy (avm ((cat n))))
  static void make_parser(const std::string& words, const std::string& grammar,
                          const std::string& percolating = "") {
    static int number = 0;
    std::string n = std::to_string(++number);
    run("(make-lexicon dict" + n + " 101) (lex dict" + n + " " + words + ")" +
        "(make-lex-analyzer la" + n + " :lexicon dict" + n + ")");
    static std::vector<std::unique_ptr<TorvaneParser>> parsers;
    parsers.push_back(std::make_unique<TorvaneParser>("tp", 197));
    parser()._constituency = true;
    parser()._att_type = AttInterpreterList::find("syn");
    parser()._lex = find_object_as<LexAnalyzer>(("la" + n).c_str(), "LexAnalyzer", true);
    run("(default-percolating-atts (" + percolating + "))" + grammar);
  }
  static TorvaneParser& parser() { return *current_parser(); }
  static LexAnalyzer& lex() { return *parser()._lex; }
  static GCate& node(const char* name) { return *parser().get_node(name, false); }

  static void parse(const std::string& text) { parser().parse(text.c_str(), nullptr); }

  /// The items of one position of a node's chart, such as "[1,1] [1,2]", by end, then in chart
  /// order.
  static std::string items(const char* name, int position) {
    std::string out;
    for (int high = 0; high <= lex().last_position(); ++high)
      for (PItem* item : node(name).bucket(position, high)) {
        if (!out.empty()) out += ' ';
        out += "[" + std::to_string(item->_low) + "," + std::to_string(high) + "]";
      }
    return out;
  }
  /// The item of a span at a position, null if there is none.
  static PItem* item(const char* name, int position, int low, int high) {
    for (PItem* found : node(name).bucket(position, high))
      if (found->_low == low) return found;
    return nullptr;
  }
  static int chain_length(const PItem* first) {
    int n = 0;
    for (; first; first = first->_next) ++n;
    return n;
  }
};

}  // namespace torvane
