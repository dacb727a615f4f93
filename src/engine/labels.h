// What a grammar calls things when others read its trees: functions that it defines with `defun`,
// by names laid down here. What it does not define keeps the grammar's own names.
#pragma once

#include <string>
#include <string_view>

#include "deps/dep_tree.h"
#include "lexp/lexp.h"

namespace torvane {

class World;

class Labels {
 public:
  /// Looks the functions up.
  explicit Labels(World& world);

  // Of a word in a tree. Empty if the grammar does not say.
  std::string category(DepTree& node) const { return label(category_, node); }
  std::string relation(DepTree& node) const { return label(relation_, node); }
  std::string features(DepTree& node) const { return label(features_, node); }
  std::string lemma(DepTree& node) const { return label(lemma_, node); }

  // Of a word outside all trees.
  std::string outside_category(std::string_view word) const;
  std::string outside_relation(std::string_view word) const;

  /// What a token behind a word without a blank between them is as a word of its own, in small
  /// letters; empty if the two are not written as one word.
  std::string clitic(std::string_view token) const;

  /// A text with blanks where its tokens, which are what stands between blanks, are to be cut into
  /// words before they are parsed; the sentence tokenizer may cut further.
  std::string with_joints(std::string_view text) const;

  /// Tokens without a blank between them that make up one word, or the beginning of one.
  bool is_one_word(std::string_view tokens) const;

  bool finds_sentences() const { return static_cast<bool>(boundary_); }
  /// Reads the next token of a text: -1 while no sentence ends, else how many of the tokens read
  /// belong to the next one.
  int boundary(std::string_view token) const;
  /// Whether two sentences meet inside a token: there a blank was put into it.
  bool joint(std::string_view token) const;

 private:
  static std::string label(const ExpPtr& function, DepTree& node);

  ExpPtr category_, relation_, features_, lemma_, clitic_, word_joints_, one_word_,
      outside_category_, outside_relation_, boundary_, joint_;
};

}  // namespace torvane
