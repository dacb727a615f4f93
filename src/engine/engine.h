// A world with all modules in it: what a program holds to load a grammar and to parse with it.
// Engines know nothing of each other; one may be used by any thread, by one at a time.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"
#include "engine/labels.h"
#include "engine/why.h"
#include "parser/sentence_tree.h"
#include "shell/world.h"

namespace torvane {

class TripleDb;

/// The names that somebody may want to write who works with a grammar.
struct GrammarNames {
  std::vector<std::string> categories, attributes, words;
};

class Engine {
 public:
  /// On the process's own streams.
  Engine();
  explicit Engine(const World::Console& console);
  ~Engine();

  World& world() { return world_; }
  /// Sets the search path, then runs the start-up file `torvane.lsp` that is found along it.
  void start(const char* data_dir);
  /// Runs the forms of a text.
  void run(const char* text);
  /// Parses a text with the current parser and fills the tree. Without a text or a parser nothing
  /// happens.
  void parse(const char* text, SentenceTree& tree);

  /// Runs files by their paths, one after the other; what they load is looked for in the folders,
  /// in that order, and nowhere else. An empty text, or what is wrong.
  std::string load(const std::vector<std::string>& files, const std::vector<std::string>& folders);
  /// Tells grammars apart: 16 hexadecimal digits, of the contents of all files that loading opened.
  std::string grammar_version() const;
  /// Lets a database of counts that torvane learn left in a folder advise the loaded grammar: what
  /// is often seen together becomes cheaper. An empty text, or what is wrong.
  std::string use_counts(const std::string& folder);
  /// Parses a text as one sentence, once a grammar is loaded. What stands behind a zero byte comes
  /// out in words outside the tree.
  Sentence parse(std::string_view text);
  /// The same of words as they are given.
  Sentence parse(const std::vector<std::string>& words);
  /// The next-best tree of the sentence that was parsed last: another one than those that it gave
  /// so far. Nothing where there is none, and for a sentence that was parsed piece by piece.
  std::optional<Sentence> next();
  /// Ends the parse in hand: its result is what there is by then, with `cut` set to `stopped`. The
  /// only call that may come from a signal handler, or while another thread uses the engine.
  void stop();
  /// Of the grammar that is loaded, in no order.
  GrammarNames names();
  /// Makes the engine keep the places and texts of the forms that it loads from here on, which
  /// explanations quote.
  void keep_forms();
  /// Parses a text as one sentence and explains its tree; or why a word (from 1) is not under
  /// another one in it (0: not a root). It costs several times what a parse does.
  WhyTree why(std::string_view text);
  WhyPair why(std::string_view text, int modifier, int head);
  /// The tree of a tree text, rewritten by the tree rules as after a parse.
  Sentence rewrite(const std::string& tree_text);
  /// A sentence of more words (between blanks) is parsed piece by piece.
  std::size_t max_words = 200;
  /// Reads the next token of a running text: -1 while no sentence ends, else how many of the tokens
  /// read belong to the next one. A grammar that knows nothing of it gives -1.
  int boundary(std::string_view token);
  /// Whether two sentences meet inside a token of it: there a blank was put into it.
  bool joint(std::string_view token);

 private:
  struct Explained;
  Explained parse_to_explain(std::string_view text);
  Sentence parse_piece(std::string_view text);
  Sentence parse_piece(const std::vector<std::string>& words);
  Sentence result();

  World world_;
  std::vector<std::string> loaded_;   // start-up files
  std::unique_ptr<TripleDb> counts_;  // null: none
  // The sentence in hand: one of the two, and the trees that were given.
  std::string text_;
  std::vector<std::string> words_;
  std::vector<Sentence> given_;
  bool has_next_ = false;
  std::unique_ptr<Labels> labels_;  // compiled in the world, so that they end before it
};

}  // namespace torvane
