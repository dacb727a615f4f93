// Lexicon files of any bytes: what is read prints, reads back, and finds phrases in a sentence.
#include "fuzz_input.h"
#include "lex/chart/lex_analyzer.h"

namespace torvane {
namespace {

void define_kinds() {
  define(
      "(def-att-list syn (defattribute c EnumAtt (allowable-values a b)) (defattribute b BinAtt))"
      "(make-avmeaning-proto syn avm) (make-str-meaning-proto g)");
}

std::string sorted(Lexicon& lexicon) {
  std::ostringstream out;
  lexicon.print_sorted(out);
  return out.str();
}

}  // namespace

void read_input(const std::string& text) {
  static bool once = (define_kinds(), true);
  (void)once;
  Lexicon lexicon(world(), 11);
  std::istringstream in(text);
  lexicon.load(in, (text.size() & 1) != 0);
  std::string all = sorted(lexicon);
  Lexicon again(world(), 11);
  std::istringstream printed_in(all);
  again.load(printed_in, false);
  sorted(again);
  LexAnalyzer analyzer(&lexicon, 10);
  std::istringstream words(text);
  std::string word;
  for (int n = 0; n < 100 && words >> word; ++n) analyzer.add_word(word.c_str());
  analyzer.analyze();
  printed(analyzer);
}

}  // namespace torvane
