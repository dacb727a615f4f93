// Forms that look words up in a word list.
#pragma once

#include <memory>

#include "lexp/form.h"
#include "lexp/word_list.h"
#include "shell/tokenizer.h"

namespace torvane {

/// The words of a form: its own, shared by its copies, or a named list.
class InWordList : public Form<InWordList, CharPred> {
 public:
  static constexpr const char* kName = "in";
  void init(World& world, IRSlist* args) override;
  /// The input if it is in the form's own words; a table gives its stored copy.
  Value eval(Value input, int type) override;

 protected:
  std::shared_ptr<WordList> words_;  // null if the words are those of a named list
  const WordList* table_ = nullptr;  // made by size or by name
};

class SuffixMatch : public Form<SuffixMatch, InWordList> {
 public:
  static constexpr const char* kName = "suffix";
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;
};

/// The first token of the input that is in the list.
class ContainToken : public Form<ContainToken, CharPred> {
 public:
  static constexpr const char* kName = "contain-tokens";
  ContainToken() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

 private:
  std::shared_ptr<WordList> words_;
  TokenizerBase* tokenizer_ = nullptr;
};

}  // namespace torvane
