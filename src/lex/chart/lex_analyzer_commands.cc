// The commands that make a lexical analyser and set its markers.
#include <algorithm>
#include <utility>

#include "lex/chart/lex_analyzer.h"
#include "lex/chart/offers.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {
namespace {

constexpr long kUsualSentence = 64;

Value make_lex_analyzer(World& world, IRSlist* form) {
  long length = kUsualSentence;
  // Kept: analyser-by-keywords
  if (const char* text = form->take_keyword_str(":suggested-sentence-length"))
    scan_long(text, length);
  const char* lexicon_name = form->take_keyword_str(":lexicon");
  const char* rules_name = form->take_keyword_str(":lexical-rules");
  std::unique_ptr<IRSlist> hook = form->take_keyword_node(":hook");
  std::unique_ptr<IRSlist> selector = form->take_keyword_node(":meaning-selector");
  const char* name = form->get_str_val();
  auto* lexicon = world.objects.find_as<Lexicon>(lexicon_name, "Lexicon", false);
  if (!lexicon) {
    // Kept: lexicon-file-not-found
    messages() << "The lexicon file " << or_empty(lexicon_name) << " is not found.\n";
    return Value();
  }
  if (!name) return Value();
  length = std::clamp<long>(length, 0, LexAnalyzer::kMostWords);
  auto analyzer = std::make_unique<LexAnalyzer>(lexicon, static_cast<int>(length));
  if (rules_name)
    analyzer->rules = world.objects.find_as<ChartRules>(rules_name, "LexRuleList", true);
  if (hook) analyzer->hook = LExp::get_exp(world, hook.get());
  if (selector) analyzer->meaning_selector = LExp::get_exp(world, selector.get());
  return Value::of(world.own_object(name, std::move(analyzer), "LexAnalyzer"));
}

/// Sets a marker of the analyser that the form names to the first character of its second argument.
Value set_marker(World& world, IRSlist* form, char LexAnalyzer::*marker) {
  auto* analyzer = world.objects.find_as<LexAnalyzer>(form->get_str_val(), "LexAnalyzer", true);
  const char* text = analyzer ? form->get_str_val() : nullptr;
  if (text) analyzer->*marker = text[0];
  return Value();
}

Value set_pos_marker(World& world, IRSlist* form) {
  return set_marker(world, form, &LexAnalyzer::pos_marker);
}
Value set_focus_marker(World& world, IRSlist* form) {
  return set_marker(world, form, &LexAnalyzer::focus_marker);
}

constexpr Command kLexAnalyzerCommands[] = {
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

constinit const Offer offers::lex_analyzer_commands{kLexAnalyzerCommands};

}  // namespace torvane
