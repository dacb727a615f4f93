#include "lexp/word_forms.h"

#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/text.h"

namespace torvane {

void InWordList::init(World& world, IRSlist* args) {
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

Value InWordList::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* word = input.text();
  if (!word) return Value();
  if (table_) {
    const char* stored = table_->find(word);
    return words_ ? Value::buffer_text(stored) : Value::constant(stored);  // a named list stays
  }
  return words_ && words_->find(word) ? input : Value();
}

// Endings have no case.
void SuffixMatch::init(World& world, IRSlist* args) {
  // Kept: suffix-without-case
  args->take_flag(":case-sensitive");
  InWordList::init(world, args);
}

Value SuffixMatch::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* word = input.text();
  if (!word) return Value();
  const WordList* list = table_ ? table_ : words_.get();
  return list && list->holds_suffix_of(word) ? input : Value();
}

void ContainToken::init(World& world, IRSlist* args) {
  words_ = std::make_shared<WordList>(args->take_flag(":case"));
  if (const char* tokenizer_name = args->take_keyword_str(":tokenizer")) {
    tokenizer_ = world.objects.find_as<TokenizerBase>(tokenizer_name, "Tokenizer", true);
  }
  words_->add_items(world, *args);
}

Value ContainToken::eval(Value input, int type) {
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

}  // namespace torvane
