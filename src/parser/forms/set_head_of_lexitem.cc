// The form by which a lexical rule says which word of a phrase is its head.
#include "lex/chart/lex_analyzer.h"
#include "lexp/form.h"
#include "parser/forms/offers.h"
#include "parser/grammar/contract.h"
#include "parser/grammar/syntax_atts.h"

namespace torvane {
namespace {

/// Nouns and adjectives of several words have their head at the end, all others at the start.
struct SetHeadOfLexItem : Form<SetHeadOfLexItem> {
  static constexpr const char* kName = "set-head-of-lexitem";
  static constexpr const char* kUsage =
      "`(set-head-of-lexitem)` the head of a phrase: its first word, for nouns and adjectives its "
      "last";
  SetHeadOfLexItem() { in_type = out_type = type_id_of<LexItem>(); }
  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    LexItem* item = input.as<LexItem>();
    if (item && item->components.empty() && item->vec()) set_head(*item);
    return Value::of(item);
  }

 private:
  static void set_head(LexItem& item) {
    const SyntaxAtts& syn = syntax_atts(*item.vec());
    AttWord cat = value_of(*item.vec(), syn.cat);
    item.head = item.low;
    if (cat == 0 || (cat != syn.cat_n && cat != syn.cat_a)) return;
    int head = item.high;
    while (head > item.low && item.analyzer && is_comma(item.analyzer->word(head))) --head;
    item.head = static_cast<std::int16_t>(head);
  }
};

constexpr Prototype kSetHeadOfLexitemForms[] = {
    form<SetHeadOfLexItem>(),
};

}  // namespace

constinit const Offer offers::set_head_of_lexitem{kSetHeadOfLexitemForms};

}  // namespace torvane
