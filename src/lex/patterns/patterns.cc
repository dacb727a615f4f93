#include "lex/patterns/patterns.h"

#include <utility>

#include "lex/patterns/atom_patterns.h"
#include "lex/patterns/multi_patterns.h"
#include "lex/patterns/repeat_patterns.h"
#include "shell/object_factory.h"
#include "shell/world.h"

namespace torvane {

namespace {

template <class P>
void add(World& world, const char* head, const char* doc) {
  world.families.add_proto("LPattern", head, Value::of<LPattern>(world.own(std::make_unique<P>())),
                           doc);
}

}  // namespace

void register_patterns(World& world) {
  world.families.add("LPattern", "Lexical Patterns", nullptr);
  add<WordPat>(world, "word", "(word LEXP) matches a word that satisfies LEXP");
  add<LexItemPat>(world, "lexitem",
                  "(lexitem LEXP) matches a single lexical item that satisfies LEXP");
  add<NotInLexPat>(world, "not-in-lexicon", "mattched if the word is not in the lexicon");
  add<CollectLexItems>(world, "collect-lexitems", "(collect-lexitems <cond>)");
  add<DotPat>(world, ".", "matches any single lexical item");
  add<StarPat>(world, "*", "(* <lpat>) matches a sequence of 0 or more matches of <lpat>");
  add<PlusPat>(world, "+", "(+ <lpat>) matches a sequence of 1 or more matches of <lpat>");
  add<OptionalPat>(world, "?", "(? <lpat>) matches 0 or 1 match of <lpat>");
  add<NoPat>(world, "no", "(no <lpat>) matches a word that does not match <lpat>");
  add<SeqPat>(
      world, "seq",
      "(seq <lpat> <lpat> ... <lpat>) matches a sequence of lexical items such that each of "
      "them matches the corresponding pattern in the list");
  add<OrPat>(world, "!",
             "(! <lpat> <lpat> ... <lpat>) matches a lexical item that matches one of the patterns "
             "in the list");
  add<OrPat>(world, "or-pat",
             "(or-pat <lpat> <lpat> ... <lpat>) matches a lexical item that matches one of the "
             "patterns in the list");
  add<AndPat>(
      world, "&",
      "(& <lpat> <lpat> ... <lpat>) matches a lexical item that matches all of the patterns "
      "in the list");
  add<AndPat>(world, "and-pat",
              "(and-pat <lpat> <lpat> ... <lpat>) matches a lexical item that matches all of the "
              "patterns in the list");
  add<BeginPat>(world, "^", "(^) matches the beginning of a sentence");
  add<BeginPat>(world, "beginning-of-sentence",
                "(beginning-of-sentence) matches the beginning of a sentence");
  add<EndPat>(world, "$", "($) matches the end of a sentence");
  add<EndPat>(world, "end-of-sentence", "(end-of-sentence) matches the end of a sentence");
  add<WholeSentencePat>(world, "whole-sentence", "(whole-sentence) matches the end of a sentence");
  add<WordSeq>(world, "word-seq", "(word-seq <word> <word> ...) matches a sequence of words");
}

}  // namespace torvane
