// For tests: a parser with a grammar from a text, items to put into it, and items as texts.
#pragma once

#include <sstream>
#include <string>

#include "att/offers.h"
#include "lex/chart/lex_analyzer.h"
#include "lex/chart/offers.h"
#include "lex/lexicon/lexicon.h"
#include "lex/lexicon/offers.h"
#include "lexp/lexp.h"
#include "lexp/offers.h"
#include "parser/forms/offers.h"
#include "parser/torvane_parser.h"
#include "shell/offers.h"
#include "shell/world.h"
#include "support/scratch_folder.h"

namespace torvane {

struct TestItem {
  const char* node;
  int low, high;
  const char* atts = "";
};

class TestGrammar {
 public:
  /// The attributes that the scenarios share, a parser for sentences of these words, and the text.
  explicit TestGrammar(const std::string& text, const std::vector<const char*>& words = {}) {
    using namespace offers;
    enter_all(world, {&scalar_atts, &text_atts, &disjunction_atts, &list_atts, &trace_att,
                      &att_commands, &control_forms, &constants, &macro, &meaning,
                      &lexicon_commands, &lex_analyzer_commands, &grammar_commands,
                      &parser_definition, &pitem_forms, &word_walk_forms, &init_attributes});
    world.interpreter.prompt = false;
    world.interpreter.load_string(bytes_of(TORVANE_SOURCE "/tests/scenarios/syn.lsp").c_str());
    world.interpreter.load_string(
        "(make-lexicon words 11) (make-lex-analyzer analyser :lexicon words)"
        "(def-torvane-parser parser :attribute-vector-type syn :lexical-analyzer analyser"
        "  :lexical-attributes () :show-attributes () :default-percolating-attributes ()"
        "  :weights-of-words (int 0))"
        "(init-attributes)");
    world.interpreter.load_string(text.c_str());
    for (const char* word : words) parser().grammar._lex->add_word(word);
  }

  TorvaneParser& parser() { return *current_parser(world); }
  Grammar& grammar() { return parser().grammar; }
  Chart& chart() { return parser().chart; }
  const GCate& node(const char* name) { return *grammar().get_node(name, false); }

  PItem* item(const TestItem& what) {
    PItem* made = chart().new_item();
    made->_low = static_cast<std::int16_t>(what.low);
    made->_high = static_cast<std::int16_t>(what.high);
    made->_node = &node(what.node);
    const std::string atts = "(" + std::string(what.atts) + ")";
    made->_atts->read(reader_.start_string(atts.c_str()));
    return made;
  }

  /// Span, weight, attributes; "none" for a null item.
  static std::string text_of(const PItem* item) {
    if (!item) return "none";
    std::ostringstream out;
    out << item->_low << '-' << item->_high << " w=" << item->_weight << ' ';
    item->_atts->print(out);
    return out.str();
  }
  /// The spans of a node's items, by end and position; of alternatives the first.
  std::string spans(const char* name) {
    std::ostringstream out;
    for (int end = 0; end < chart().row_count(); ++end)
      for (int position = 0; position <= node(name).n_positions(); ++position)
        for (const PItem* item : chart().bucket(node(name), position, end))
          out << item->_low << '-' << item->_high << ' ';
    return out.str();
  }

  World world{World::Console::of_process()};

 private:
  WorldScope here_{world};
  IRSlistReader reader_{false};
};

}  // namespace torvane
