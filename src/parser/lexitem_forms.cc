// Forms on lexical items and word positions that the parser's attributes give a meaning to, and the
// functions by which lexical rules speak to the parser.
#include <algorithm>
#include <cstring>
#include <string>

#include "lex/patterns/match.h"
#include "lexp/form.h"
#include "parser/parser_commands.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"
#include "shell/named_objects.h"
#include "shell/world.h"

namespace torvane {
namespace {

/// The name of the node that a vector belongs to.
struct NodeName : Form<NodeName> {
  static constexpr const char* kName = "node-name";
  NodeName() {
    in_type = type_id_of<AttVec>();
    out_type = type_id_of<const char*>();
  }
  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    const AttVec* vec = input.as<AttVec>();
    if (!vec) return Value();
    return Value::made_text(node_name_of(*vec));
  }
};

/// Nouns and adjectives of several words have their head at the end, all others at the start.
struct SetHeadOfLexItem : Form<SetHeadOfLexItem> {
  static constexpr const char* kName = "set-head-of-lexitem";
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
    while (head > item.low && is_comma(item, head)) --head;
    item.head = static_cast<std::int16_t>(head);
  }
  static bool is_comma(const LexItem& item, int i) {
    const char* word = item.analyzer ? item.analyzer->word(i) : nullptr;
    return word && std::strcmp(word, ",") == 0;
  }
};

/// A form on a word position, about one of a parser's word sets.
template <class D>
struct PositionForm : Form<D> {
  PositionForm() { this->in_type = type_id_of<int>(); }
  void init(World& world, IRSlist* args) override {
    named_ = D::kNeedsName || !args->empty();
    if (named_)
      parser_ = world.objects.find_as<TorvaneParser>(args->get_str_val(), "TorvaneParser", true);
  }
  Value eval(Value input, int input_type) override {
    if (!this->accepts(input_type)) return Value();
    TorvaneParser* parser = named_ ? parser_ : current_parser(this->world());
    Word position = input.number();
    bool in_range = position >= 0 && position <= LexAnalyzer::kMostWords;
    return parser && in_range ? D::apply(parser->*D::kSet, static_cast<int>(position)) : Value();
  }

 private:
  TorvaneParser* parser_ = nullptr;
  bool named_ = false;
};

template <class D>
struct MarkForm : PositionForm<D> {
  static constexpr bool kNeedsName = true;
  static Value apply(LBitSet& marks, int position) {
    // Kept: case-mark-one-on
    marks.set(position + 1);
    return Value();
  }
};

template <class D>
struct TestForm : PositionForm<D> {
  static constexpr bool kNeedsName = false;
  static Value apply(const LBitSet& marks, int position) {
    return Value::truth(marks.test(position));
  }
};

struct CaseMarkPosition : MarkForm<CaseMarkPosition> {
  static constexpr const char* kName = "case-mark-position";
  static constexpr auto kSet = &TorvaneParser::case_marks;
};
struct ObliqueCaseMarkPosition : MarkForm<ObliqueCaseMarkPosition> {
  static constexpr const char* kName = "oblique-case-mark";
  static constexpr auto kSet = &TorvaneParser::oblique_case_marks;
};
struct IsCaseMarked : TestForm<IsCaseMarked> {
  static constexpr const char* kName = "is-case-marked";
  static constexpr auto kSet = &TorvaneParser::case_marks;
};
struct IsObliqueCaseMarked : TestForm<IsObliqueCaseMarked> {
  static constexpr const char* kName = "is-oblique-case-marked";
  static constexpr auto kSet = &TorvaneParser::oblique_case_marks;
};

/// Forbids merges that reach from inside the span out of it.
void isolate(World& world, Match*, int from, int to) {
  TorvaneParser* parser = current_parser(world);
  if (!parser || !parser->_lex || from == to) return;
  int last = std::min(to, parser->_lex->last_position());
  for (int i = std::max(from, 0); i <= last; ++i) {
    auto& [left, right] = parser->span_limits(i);
    if (i < to) left = std::max(left, from);
    if (i > from) right = std::min(right, to);
  }
}

/// Fills in what the root's own entry says of a sense of the item's category that refers to
/// another.
LexItem* ref_entry(Match*, LexItem* item) {
  if (!item || !item->root || !item->analyzer || !item->vec()) return item;
  const LexEntry* entry = item->analyzer->lexicon->get_entry(item->root);
  if (!entry) return item;
  AttVec& vec = *item->vec();
  for (const Meaning* meaning : entry->meanings) {
    const AVMeaning* sense = as_avm(meaning);
    if (!sense) continue;
    const SyntaxAtts& syn = syntax_atts(*sense->vec);
    if (!has_att(*sense->vec, syn.ref)) continue;
    if (value_of(*sense->vec, syn.cat) == value_of(vec, syn.cat))
      vec.unify(*sense->vec, nullptr, 1);
  }
  return item;
}

}  // namespace

void register_lexitem_forms(World& world) {
  register_form<NodeName>(world);
  register_form<SetHeadOfLexItem>(world);
  register_form<CaseMarkPosition>(world);
  register_form<ObliqueCaseMarkPosition>(world);
  register_form<IsCaseMarked>(world);
  register_form<IsObliqueCaseMarked>(world);
  register_function<isolate>(world, "isolate");
  register_function<ref_entry>(world, "ref-entry");
}

}  // namespace torvane
