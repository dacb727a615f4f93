// What an expression sees of a lexical item, and of the analyser.
#include <algorithm>
#include <cstring>
#include <string>

#include "lex/chart/lex_analyzer.h"
#include "lex/chart/offers.h"
#include "lexp/form.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

Value text_of(const LexItem& item, const char* text) {
  return item.analyzer ? item.analyzer->text_value(text) : Value();
}

template <class D, class R, class Out = std::remove_const_t<std::remove_pointer_t<R>>>
using LexPred = Adaptor<D, LexItem, R, Out>;

struct AttComponentPred : LexPred<AttComponentPred, AttVec*> {
  static constexpr const char* kName = "att";
  static constexpr const char* kUsage = "`(att)` the item's vector";
  AttVec* step(LexItem& item) const { return item.vec(); }
};

struct MeaningComponentPred : LexPred<MeaningComponentPred, Value, Meaning> {
  static constexpr const char* kName = "lexitem-meaning";
  static constexpr const char* kUsage = "`(lexitem-meaning)` the item's meaning";
  Value step(LexItem& item) const {
    return item.analyzer ? item.analyzer->meaning_value(item) : Value();
  }
};

struct RootPred : LexPred<RootPred, Value, const char*> {
  static constexpr const char* kName = "root";
  static constexpr const char* kUsage = "`(root)` the item's root";
  Value step(LexItem& item) const { return text_of(item, item.root); }
};

struct SurformPred : LexPred<SurformPred, Value, const char*> {
  static constexpr const char* kName = "surform";
  static constexpr const char* kUsage = "`(surform)` the item's words";
  Value step(LexItem& item) const {
    if (item.is_empty() || !item.analyzer) return Value();
    return item.analyzer->text_value(item.analyzer->surface(item.low, item.high));
  }
};

struct LexItemRel : LexPred<LexItemRel, Value, const char*> {
  static constexpr const char* kName = "lexitem-rel";
  static constexpr const char* kUsage = "`(lexitem-rel)` the item's role as a component";
  Value step(LexItem& item) const { return text_of(item, item.role); }
};

struct EndingPred : LexPred<EndingPred, LexItem*> {
  static constexpr const char* kName = "ending";
  static constexpr const char* kUsage = "`(ending name)` the item if that ending was taken off";
  void init(World& world, IRSlist* args) override {
    name_ = or_empty(args->get_str_val());
    LAdaptor::init(world, args);
  }
  LexItem* step(LexItem& item) const {
    for (const char* affix : item.affixes)
      if (name_ == or_empty(affix)) return &item;
    return nullptr;
  }

 private:
  std::string name_;
};

struct CapPred : LexPred<CapPred, LexItem*> {
  static constexpr const char* kName = "cap";
  static constexpr const char* kUsage = "`(cap)` the item if its words are capitalised";
  LexItem* step(LexItem& item) const {
    int n = item.high - item.low + 1;
    if (n < 1 || !item.analyzer) return nullptr;
    for (int i = std::max<int>(item.low, 1); i <= item.high; ++i) {
      const char* word = item.analyzer->word(i);
      if (!word) return nullptr;
      // Kept: cap-means-no-small-letter
      if (is_lower(word[0]) && (n < kLongName || std::strlen(word) > kShortWord)) return nullptr;
    }
    return &item;
  }

 private:
  // A name of so many words may hold short words in lower case.
  static constexpr int kLongName = 3;
  static constexpr std::size_t kShortWord = 3;
};

struct LexItemLength : LexPred<LexItemLength, int> {
  static constexpr const char* kName = "lexitem-length";
  static constexpr const char* kUsage = "`(lexitem-length)` the item's number of words";
  int step(LexItem& item) const { return item.high - item.low + 1; }
};

class NoAlternativePred : public Form<NoAlternativePred> {
 public:
  static constexpr const char* kName = "no-alternative";
  static constexpr const char* kUsage =
      "`(no-alternative cond)` the item if no item of its span passes";
  NoAlternativePred() { in_type = out_type = type_id_of<LexItem>(); }
  void init(World& world, IRSlist* args) override { cond_ = get_exp(world, args->nth(0)); }
  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    LexItem* item = input.as<LexItem>();
    if (!item || !item->analyzer) return Value();
    const Slist<LexItem*> items = item->analyzer->ending_at(item->high);
    for (LexItem* other : items) {
      bool same_span = other->low == item->low && other->high == item->high;
      if (same_span && passes(cond_, Value::of(other), in_type)) return Value();
    }
    return Value::of(item);
  }

 protected:
  Reach parts_reach() const override { return cond_.reach(); }

 private:
  ExpPtr cond_;
};

struct IsDeleted : LexPred<IsDeleted, LexItem*> {
  static constexpr const char* kName = "is-deleted";
  static constexpr const char* kUsage = "`(is-deleted)` the item if it was deleted";
  LexItem* step(LexItem& item) const { return item.is_deleted() ? &item : nullptr; }
};

struct GetSubLexItem : LexPred<GetSubLexItem, LexItem*> {
  static constexpr const char* kName = "get-sub-lexitem";
  static constexpr const char* kUsage =
      "`(get-sub-lexitem [role])` the first component, or the first with that role";
  void init(World& world, IRSlist* args) override {
    IRSlist* first = args->nth(0);
    any_role_ = !first || first->is_list();
    if (!any_role_) role_ = args->get_str_val();
    LAdaptor::init(world, args);
  }
  LexItem* step(LexItem& item) const {
    for (LexItem* part : item.components)
      if (any_role_ || same_word(part->role, role_.c_str())) return part;
    return nullptr;
  }

 private:
  bool any_role_ = true;
  std::string role_;
};

LexItem* set_cate(LexItem* item, const char* category) {
  if (!item) {
    messages() << "Cannot set-cate a nil lexitem.\n";
  } else if (item->analyzer) {
    item->category = item->analyzer->pool_copy(category);
  }
  return item;
}

// On analysers.

class SetMixedCase : public Form<SetMixedCase> {
 public:
  static constexpr const char* kName = "set-mixed-case";
  static constexpr const char* kUsage =
      "`(set-mixed-case [0 or 1])` sets, or reads, whether the sentence counts as mixed case";
  SetMixedCase() {
    in_type = type_id_of<LexAnalyzer>();
    out_type = type_id_of<int>();
  }
  void init(World&, IRSlist* args) override {
    const char* flag = args->get_str_val();
    if (flag) flag_ = flag[0] != '0';
    sets_ = flag != nullptr;
  }
  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    LexAnalyzer* analyzer = input.as<LexAnalyzer>();
    if (!analyzer) return Value();
    if (sets_) analyzer->mixed_case = flag_;
    return Value::integer(analyzer->mixed_case);
  }

 private:
  bool sets_ = false;
  bool flag_ = false;
};

struct IsMixedCase : Adaptor<IsMixedCase, LexAnalyzer, LexAnalyzer*> {
  static constexpr const char* kName = "is-mixed-case";
  static constexpr const char* kUsage =
      "`(is-mixed-case)` the analyser if the sentence counts as mixed case";
  LexAnalyzer* step(LexAnalyzer& analyzer) const {
    return analyzer.mixed_case ? &analyzer : nullptr;
  }
};

constexpr Prototype kItemForms[] = {
    pure_form<AttComponentPred>(),
    pure_form<MeaningComponentPred>(),
    pure_form<RootPred>(),
    pure_form<SurformPred>(),
    pure_form<LexItemRel>(),
    pure_form<EndingPred>(),
    pure_form<CapPred>(),
    pure_form<LexItemLength>(),
    pure_form<NoAlternativePred>(),
    pure_form<IsDeleted>(),
    pure_form<GetSubLexItem>(),
    function<set_cate>("set-cate", "`(set-cate text)` sets the item's category"),
    form<SetMixedCase>(),
    pure_form<IsMixedCase>(),
};

}  // namespace

constinit const Offer offers::item_forms{kItemForms};

}  // namespace torvane
