// Actions that make new items for a span, or find the one that is there.
#include <cstring>
#include <string>

#include "lex/rules/offers.h"
#include "lex/rules/rule_actions.h"
#include "lexp/form.h"
#include "support/text.h"

namespace torvane {

namespace {

/// (make-lexitem low high meaning [:root r]): three expressions on the match; r is a text or one
/// more.
class MakeLexItem : public Form<MakeLexItem> {
 public:
  static constexpr const char* kName = "make-lexitem";
  static constexpr const char* kUsage =
      "`(make-lexitem low high meaning [:root r])` a new item, not in the chart";
  MakeLexItem() {
    in_type = type_id_of<Match>();
    out_type = type_id_of<LexItem>();
  }

  void init(World& world, IRSlist* args) override {
    if (auto root = args->take_keyword_node(":root")) {
      has_root_ = true;
      if (root->is_atom()) {
        root_text_ = root->atom;
      } else {
        root_exp_ = get_exp(world, root.get());
        root_is_text_ = false;
      }
    }
    low_ = get_exp(world, args->nth(0));
    high_ = get_exp(world, args->nth(1));
    meaning_ = get_exp(world, args->nth(2));
  }

  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    Match* match = input.as<Match>();
    if (!match) return Value();
    Word low = low_.eval(input, input_type).number();
    Word high = high_.eval(input, input_type).number();
    Meaning* meaning = meaning_.eval(input, input_type).as<Meaning>();
    LexAnalyzer& chart = *match->analyzer;
    if (low < 0 || high > chart.last_position() || low > high + 1) return Value();
    Plan plan{static_cast<int>(low), static_cast<int>(high), meaning, root(input, input_type)};
    return Value::of(carry_out(chart, plan));
  }

 protected:
  struct Plan {
    int low, high;
    Meaning* meaning;
    const char* root;  ///< null if none was written
  };
  virtual LexItem* carry_out(LexAnalyzer& chart, const Plan& plan) const {
    const char* root = plan.root ? plan.root : chart.surface(plan.low, plan.high);
    return chart.make_item(root, plan.meaning, plan.low, plan.high, Slist<const char*>());
  }

 private:
  const char* root(Value input, int input_type) const {
    if (!has_root_) return nullptr;
    return root_is_text_ ? root_text_.c_str() : root_exp_.eval(input, input_type).text();
  }

  ExpPtr low_, high_, meaning_, root_exp_;
  std::string root_text_;
  bool has_root_ = false;
  bool root_is_text_ = true;
};

/// (retrieve-lexitem low high meaning [:root r]): the item of that span whose meaning is the given
/// one or more specific.
class RetrieveLexItem : public Form<RetrieveLexItem, MakeLexItem> {
 public:
  static constexpr const char* kName = "retrieve-lexitem";
  static constexpr const char* kUsage =
      "`(retrieve-lexitem low high meaning [:root r])` the item of that span whose meaning equals "
      "or is more specific";

 protected:
  LexItem* carry_out(LexAnalyzer& chart, const Plan& plan) const override {
    if (!plan.meaning) return nullptr;
    for (LexItem* item : chart.ending_at(plan.high)) {
      if (!has_span(*item, plan.low, plan.high) || !item->meaning) continue;
      if (plan.root && byte_compare(or_empty(item->root), plan.root) != 0) continue;
      Subsumption order = item->meaning->compare(plan.meaning);
      if (order == Subsumption::equal || order == Subsumption::more_specific) return item;
    }
    return nullptr;
  }
};

// One empty item at a position stands for all of its kind: it keeps what they share.
LexItem* insert_empty_category(Match* match, Word pos, Meaning* meaning) {
  if (!match || !meaning || pos < 0 || pos > match->analyzer->last_position()) return nullptr;
  LexAnalyzer& chart = *match->analyzer;
  int end = static_cast<int>(pos);
  const AVMeaning* given = as_avm(meaning);
  for (LexItem* item : chart.ending_at(end)) {
    AVMeaning* old = as_avm(item->meaning.get());
    if (!item->is_empty() || !old || !given || !old->unifiable(given)) continue;
    // Kept: empty-category-generalizes
    old->vec->generalize(*given->vec);
    return nullptr;
  }
  return chart.add_item(chart.make_item("", meaning, end + 1, end, Slist<const char*>()), true);
}

constexpr Prototype kMakingActionsForms[] = {
    form<MakeLexItem>(),
    form<RetrieveLexItem>(),
    function<insert_empty_category>("insert-empty-category",
                                    "`(insert-empty-category position meaning)` a new empty item "
                                    "behind the position, asserted"),
};

}  // namespace

constinit const Offer offers::making_actions{kMakingActionsForms};

}  // namespace torvane
