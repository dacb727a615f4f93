#include "parser/forest/choose_roots.h"

#include <utility>
#include <vector>

#include "lexp/form.h"
#include "support/text.h"

namespace torvane {
namespace {

void weigh_words(const Grammar& grammar, const ExpPtr& word_weight, std::vector<CoverWord>& words) {
  const LexAnalyzer& lex = *grammar._lex;
  const int text_type = type_id_of<const char*>();
  for (int i = 1; i < lex.word_count(); ++i) {
    const char* text = or_empty(lex.word(i));
    CoverWord& word = words[static_cast<std::size_t>(i)];
    word.starts_punctuation = is_punct(text[0]);
    word.is_punctuation = word.starts_punctuation && text[1] == '\0';
    Value cost = word_weight.eval(lex.text_value(lex.word(i)), text_type);
    word.cost = static_cast<float>(static_cast<int>(cost.number()));
  }
}

}  // namespace

void choose_roots(const Grammar& grammar, const ExpPtr& word_weight, ParseForest& forest,
                  Cover& cover) {
  weigh_words(grammar, word_weight, cover.start(grammar._lex->word_count()));
  for (TNode* root : forest._roots) {
    root->is_root = false;
    cover.offer(root, root->_item->_low, root->_item->_high,
                static_cast<float>(root->_root_penalty) + root->_weight);
  }
  for (TNode* chosen : cover.choose()) chosen->is_root = true;
  Slist<TNode*> roots;
  for (TNode* root : forest._roots)
    if (root->is_root) roots.append(root);
  forest._roots = std::move(roots);
}

}  // namespace torvane
