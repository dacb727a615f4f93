// The commands that parse a sentence, and those that show what the parser made of it.
#include <chrono>
#include <vector>

#include "parser/forms/item_text.h"
#include "parser/forms/offers.h"
#include "parser/parsing.h"
#include "parser/sentence_tree.h"
#include "parser/torvane_parser.h"
#include "shell/world.h"
#include "support/regexp.h"

namespace torvane {
namespace {

using Words = std::vector<const char*>;

Words take_words(IRSlist* form) {
  Words words;
  while (!form->empty())
    if (const char* word = form->get_str_val()) words.push_back(word);
  return words;
}

/// The parser, if it can take a sentence now.
TorvaneParser* open_parser(World& world) {
  TorvaneParser* parser = current_parser(world);
  return parser && !refuse_while_parsing(world, "parse", parser->grammar._lex) ? parser : nullptr;
}

void parse_and_time(World& world, TorvaneParser& parser, const Words& words) {
  if (!parser.feed_words(words)) return;
  world.out() << ";; length: " << parser.grammar._lex->last_position() << '\n';
  auto start = std::chrono::steady_clock::now();
  parser.parse_items();
  std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  // Kept: parse-time-blank
  world.out() << ";; parse time: " << time.count() << " sec. \n";
  if (parser._constituency) return;
  SentenceTree tree;
  fill_tree(parser, tree);
  tree.print(world, world.out());
}

Value parse(World& world, IRSlist* form) {
  if (TorvaneParser* parser = open_parser(world)) parse_and_time(world, *parser, take_words(form));
  return Value();
}

void print_result(World& world, const TorvaneParser& parser, const SentenceTree& tree) {
  if (!parser._constituency) tree.print(world, world.out());
}

Value parse_words_plainly(World& world, IRSlist* form) {
  TorvaneParser* parser = open_parser(world);
  if (!parser) return Value();
  SentenceTree tree;
  parse_words(world, take_words(form), tree);
  print_result(world, *parser, tree);
  return Value();
}

Value parse_text(World& world, IRSlist* form) {
  TorvaneParser* parser = open_parser(world);
  if (!parser) return Value();
  SentenceTree tree;
  parse_sentence(world, form->get_str_val(), tree);
  print_result(world, *parser, tree);
  return Value();
}

// The block is the argument list itself, or the one list in it.
Value reparse(World& world, IRSlist* form) {
  TorvaneParser* parser = open_parser(world);
  if (!parser) return Value();
  const IRSlist* only = form->length() == 1 ? form->nth(0) : nullptr;
  Deps deps(world);
  deps.read(only && only->is_list() ? *only : *form);
  Words words;
  for (int i = 1; i < deps.word_count(); ++i) {
    words.push_back(deps.word(i));
    world.out() << (i > 1 ? " " : "") << deps.word(i);
  }
  world.out() << '\n';
  parse_and_time(world, *parser, words);
  return Value();
}

Value reset_parser(World& world, IRSlist*) {
  if (TorvaneParser* parser = current_parser(world)) parser->reset();
  return Value();
}

Value print_nodes(World& world, IRSlist* form) {
  TorvaneParser* parser = current_parser(world);
  if (!parser) return Value();
  const char* name = form->get_str_val();
  const char* type = form->get_str_val();
  auto wanted = name ? regcomp(name) : nullptr;
  parser->grammar._nodes.for_each([&](const auto& entry) {
    if (wanted && !regexec(wanted.get(), entry.key)) return;
    world.out() << "Node: " << entry.key << '\n';
    if (type) {
      print_waiting(world.out(), *parser, *entry.value, type);
    } else {
      print_chart(world.out(), *parser, *entry.value);
    }
  });
  return Value();
}

Value print_lexitems(World& world, IRSlist*) {
  TorvaneParser* parser = current_parser(world);
  if (parser && parser->grammar._lex) parser->grammar._lex->print(world.out());
  return Value();
}

Value set_debug_weight(World& world, IRSlist* form) {
  parsing(world).costs.debug_weight = form->get_long_val();
  return Value();
}

constexpr Command kParserCommands[] = {
    {"parse", parse, "(parse word1 ... wordn) parse a sentence consisting of word1 ... wordn."},
    {"p", parse, "(p word1 ... wordn) parse a sentence consisting of word1 ... wordn."},
    {"p2", parse_words_plainly,
     "(p2 word1 ... wordn) parse a sentence consisting of word1 ... wordn."},
    {"p3", parse_text, "(p3 \"a sentence\") parse a sentence."},
    {"reparse", reparse, "(reparse DEPTREE) extract the sentence from DEPTREE and parse it."},
    {"rp", reparse, "(rp DEPTREE) extract the sentence from DEPTREE and parse it."},
    {"reset-parser", reset_parser, "(reset-parser) reset the parser."},
    {"pn", print_nodes, "(pn category)"},
    {"prlexitems", print_lexitems, "(prlexitems) print the lexical items."},
    {"li", print_lexitems, "(li) print the lexical items."},
    {"debug-weight", set_debug_weight, nullptr,
     "`(debug-weight 0 or 1)` shows the costs of dependencies on the error stream"},
};

}  // namespace

constinit const Offer offers::parser_commands{kParserCommands};

}  // namespace torvane
