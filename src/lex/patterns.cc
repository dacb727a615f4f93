#include "lex/patterns.h"

#include <utility>

#include "lex/atom_patterns.h"
#include "lex/multi_patterns.h"
#include "lex/repeat_patterns.h"
#include "shell/object_factory.h"

namespace torvane {

namespace {

template <class P>
void add(const char* head, const char* doc) {
  static P prototype;
  ObjFactory::proto("LPattern", head, Value::of<LPattern>(&prototype), doc);
}

}  // namespace

void register_patterns() {
  static bool done = false;
  if (std::exchange(done, true)) return;
  ObjFactory::add_family("LPattern", "Lexical Patterns", nullptr);
  add<WordPat>("word", "(word LEXP) matches a word that satisfies LEXP");
  add<LexItemPat>("lexitem", "(lexitem LEXP) matches a single lexical item that satisfies LEXP");
  add<NotInLexPat>("not-in-lexicon", "mattched if the word is not in the lexicon");
  add<CollectLexItems>("collect-lexitems", "(collect-lexitems <cond>)");
  add<DotPat>(".", "matches any single lexical item");
  add<StarPat>("*", "(* <lpat>) matches a sequence of 0 or more matches of <lpat>");
  add<PlusPat>("+", "(+ <lpat>) matches a sequence of 1 or more matches of <lpat>");
  add<OptionalPat>("?", "(? <lpat>) matches 0 or 1 match of <lpat>");
  add<NoPat>("no", "(no <lpat>) matches a word that does not match <lpat>");
  add<SeqPat>(
      "seq",
      "(seq <lpat> <lpat> ... <lpat>) matches a sequence of lexical items such that each of "
      "them matches the corresponding pattern in the list");
  add<OrPat>("!",
             "(! <lpat> <lpat> ... <lpat>) matches a lexical item that matches one of the patterns "
             "in the list");
  add<OrPat>("or-pat",
             "(or-pat <lpat> <lpat> ... <lpat>) matches a lexical item that matches one of the "
             "patterns in the list");
  add<AndPat>(
      "&",
      "(& <lpat> <lpat> ... <lpat>) matches a lexical item that matches all of the patterns "
      "in the list");
  add<AndPat>("and-pat",
              "(and-pat <lpat> <lpat> ... <lpat>) matches a lexical item that matches all of the "
              "patterns in the list");
  add<BeginPat>("^", "(^) matches the beginning of a sentence");
  add<BeginPat>("beginning-of-sentence",
                "(beginning-of-sentence) matches the beginning of a sentence");
  add<EndPat>("$", "($) matches the end of a sentence");
  add<EndPat>("end-of-sentence", "(end-of-sentence) matches the end of a sentence");
  add<WholeSentencePat>("whole-sentence", "(whole-sentence) matches the end of a sentence");
  add<WordSeq>("word-seq", "(word-seq <word> <word> ...) matches a sequence of words");
}

}  // namespace torvane
