// Forms that look words up in a word list.
#include <memory>

#include "lexp/form.h"
#include "lexp/offers.h"
#include "lexp/word_list.h"
#include "shell/named_objects.h"
#include "shell/tokenizer.h"
#include "shell/world.h"
#include "support/text.h"

namespace torvane {

namespace {

/// The words of a form: its own, shared by its copies, or a named list.
class InWordList : public Form<InWordList, CharPred> {
 public:
  static constexpr const char* kName = "in";
  static constexpr const char* kUsage =
      "`(in [:case-sensitive] [:hashsize N] [:wordlist NAME] FILE (WORD ...))` the text if it is "
      "in the list";
  void init(World& world, IRSlist* args) override {
    bool case_sensitive = args->take_flag(":case-sensitive");
    long size = 0;
    WordList* named = nullptr;
    if (const char* size_text = args->take_keyword_str(":hashsize")) {
      scan_long(size_text, size);
      words_ = std::make_shared<WordList>(case_sensitive, size);
      table_ = words_.get();
    } else if (const char* list_name = args->take_keyword_str(":wordlist")) {
      named = world.objects.find_as<WordList>(list_name, kWordListType, true);
      table_ = named;
    }
    if (!table_) words_ = std::make_shared<WordList>(case_sensitive);
    (named ? *named : *words_).add_items(world, *args);
  }
  /// The input if it is in the form's own words; a table gives its stored copy.
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* word = input.text();
    if (!word) return Value();
    if (table_) {
      const char* stored = table_->find(word);
      return words_ ? Value::buffer_text(stored) : Value::constant(stored);  // a named list stays
    }
    return words_ && words_->find(word) ? input : Value();
  }

 protected:
  std::shared_ptr<WordList> words_;  // null if the words are those of a named list
  const WordList* table_ = nullptr;  // made by size or by name
};

class SuffixMatch : public Form<SuffixMatch, InWordList> {
 public:
  static constexpr const char* kName = "suffix";
  static constexpr const char* kUsage =
      "`(suffix FILE (WORD ...))` the text ends in one of the list";
  // Endings have no case.
  void init(World& world, IRSlist* args) override {
    // Kept: suffix-without-case
    args->take_flag(":case-sensitive");
    InWordList::init(world, args);
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* word = input.text();
    if (!word) return Value();
    const WordList* list = table_ ? table_ : words_.get();
    return list && list->holds_suffix_of(word) ? input : Value();
  }
};

/// The first token of the input that is in the list.
class ContainToken : public Form<ContainToken, CharPred> {
 public:
  static constexpr const char* kName = "contain-tokens";
  static constexpr const char* kUsage =
      "`(contain-tokens [:case] :tokenizer NAME FILE (WORD ...))` the first token of the text that "
      "is in the list";
  ContainToken() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override {
    words_ = std::make_shared<WordList>(args->take_flag(":case"));
    if (const char* tokenizer_name = args->take_keyword_str(":tokenizer")) {
      tokenizer_ = world.objects.find_as<TokenizerBase>(tokenizer_name, "Tokenizer", true);
    }
    words_->add_items(world, *args);
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* text = input.text();
    if (!text || !tokenizer_) return Value();
    // The input may itself be a token: it is taken over before the tokens go.
    tokenizer_->set_string_input(text, -1);
    tokenizer_->reset_tokens();
    while (const char* token = tokenizer_->next_significant_token()) {
      if (!*token && !tokenizer_->more_input) break;
      if (words_->find(token)) return Value::made_text(token);
    }
    return Value();
  }

 private:
  std::shared_ptr<WordList> words_;
  TokenizerBase* tokenizer_ = nullptr;
};

constexpr Prototype kWordForms[] = {
    pure_form<InWordList>(),
    pure_form<SuffixMatch>(),
    form<ContainToken>(),
};

}  // namespace

constinit const Offer offers::word_forms{kWordForms};

}  // namespace torvane
