#include <algorithm>
#include <iostream>
#include <utility>

#include "lex/lex_analyzer.h"
#include "lex/lexical_rules.h"
#include "shell/exec.h"
#include "shell/named_objects.h"

namespace torvane {
namespace {

constexpr long kUsualSentence = 64;

Value make_lex_analyzer(IRSlist* form) {
  long length = kUsualSentence;
  // Kept: analyser-by-keywords
  if (const char* text = form->take_keyword_str(":suggested-sentence-length"))
    scan_long(text, length);
  const char* lexicon_name = form->take_keyword_str(":lexicon");
  const char* rules_name = form->take_keyword_str(":lexical-rules");
  std::unique_ptr<IRSlist> hook = form->take_keyword_node(":hook");
  std::unique_ptr<IRSlist> selector = form->take_keyword_node(":meaning-selector");
  const char* name = form->get_str_val();
  auto* lexicon = find_object_as<Lexicon>(lexicon_name, "Lexicon", false);
  if (!lexicon) {
    // Kept: lexicon-file-not-found
    std::cerr << "The lexicon file " << or_empty(lexicon_name) << " is not found.\n";
    return Value();
  }
  if (!name) return Value();
  length = std::clamp<long>(length, 0, LexAnalyzer::kMostWords);
  auto analyzer = std::make_unique<LexAnalyzer>(lexicon, static_cast<int>(length));
  if (rules_name) analyzer->rules = find_object_as<LexRuleList>(rules_name, "LexRuleList", true);
  if (hook) analyzer->hook = LExp::get_exp(hook.get());
  if (selector) analyzer->meaning_selector = LExp::get_exp(selector.get());
  Value value = Value::of(analyzer.get());
  if (!register_object(name, value, "LexAnalyzer")) return Value();
  analyzer.release();  // named objects live for the rest of the run
  return value;
}

/// Sets a marker of the analyser that the form names to the first character of its second argument.
Value set_marker(IRSlist* form, char LexAnalyzer::*marker) {
  auto* analyzer = find_object_as<LexAnalyzer>(form->get_str_val(), "LexAnalyzer", true);
  const char* text = analyzer ? form->get_str_val() : nullptr;
  if (text) analyzer->*marker = text[0];
  return Value();
}

Value set_pos_marker(IRSlist* form) {
  return set_marker(form, &LexAnalyzer::pos_marker);
}
Value set_focus_marker(IRSlist* form) {
  return set_marker(form, &LexAnalyzer::focus_marker);
}

constexpr Command kCommands[] = {
    {"make-lex-analyzer", make_lex_analyzer,
     "(make-lex-analyzer <name> <sentence-length>      <name-of-lexicon>      "
     "<name-of-ending-list>      <name-of-lexical-rules>      [ <hook-to-lexical-items> ])     "
     "<name> is the name of the lexical item analyzer.     <sentence-length> is the estimated "
     "maximum length of input sentences"},
    {"set-lex-analyzer-pos-marker", set_pos_marker,
     "(set-lex-analyzer-pos-marker ANALYZER MARKER)."},
    {"set-lex-analyzer-focus-marker", set_focus_marker,
     "(set-lex-analyzer-focus-marker ANALYZER MARKER)."},
};

}  // namespace

void register_lex_analyzer_commands() {
  static bool done = false;
  if (std::exchange(done, true)) return;
  interpreter().define(kCommands);
  register_lexical_rule_commands();
}

}  // namespace torvane
