// What a parse gives, as plain data: sentences of words with their heads.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace torvane {

struct SentenceWord {
  std::string form;      ///< as it stands in the text
  std::string lemma;     ///< empty if nothing is known of the word
  std::string upos;      ///< universal category, or empty
  std::string xpos;      ///< category of the grammar, or empty
  std::string features;  ///< `Name=Value|...`, or empty
  std::string relation;  ///< to the head; `root` for the root
  int head = 0;          ///< number of the head from 1; 0 for the root; -1: none is known
  /// Bytes of the sentence's text: of the first one, and behind the last one.
  std::size_t begin = 0, end = 0;
  bool outside = false;     ///< the grammar did not take it into a tree
  bool part = false;        ///< top of a tree that the grammar did not join to the others
  bool space_after = true;  ///< white space, or the end of the text
  std::string misc;         ///< further notes, `Name=Value|...`
};

/// Words that the text writes as one. Where their forms spell it, each has its own stretch of the
/// text, else each has all of it. The last one says whether a space follows.
struct WordRange {
  int first, last;
  std::string form;
  std::string misc;
};

struct Sentence {
  std::string id;
  std::string text;
  std::vector<std::string> comments;  ///< other lines of a file that stood before it
  std::vector<SentenceWord> words;
  std::vector<WordRange> ranges;  ///< in the order of the words
  bool starts_paragraph = false;
  int parts = 0;  ///< trees that the grammar found; their tops hang on the root
  /// What the trees cost together: less is better, among the trees of one sentence.
  std::optional<float> cost;
  int best = 0;  ///< which one of the next-best trees, from 1; 0: they were not asked for
  /// What kept the parse from being complete: `words`, `items`, `stopped`; or empty.
  std::string cut;

  /// One tree, and all words but punctuation in it.
  bool is_whole() const {
    if (parts != 1) return false;
    for (const SentenceWord& word : words)
      if (word.outside) return false;
    return true;
  }
};

/// Gives each range the stretch of the text that its words cover.
void name_ranges(Sentence& sentence);

struct Document {
  std::vector<Sentence> sentences;
};

}  // namespace torvane
