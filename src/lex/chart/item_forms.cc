#include "lex/chart/item_forms.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "lex/chart/lex_analyzer.h"
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
  AttVec* step(LexItem& item) const { return item.vec(); }
};

struct MeaningComponentPred : LexPred<MeaningComponentPred, Value, Meaning> {
  static constexpr const char* kName = "lexitem-meaning";
  Value step(LexItem& item) const {
    return item.analyzer ? item.analyzer->meaning_value(item) : Value();
  }
};

struct RootPred : LexPred<RootPred, Value, const char*> {
  static constexpr const char* kName = "root";
  Value step(LexItem& item) const { return text_of(item, item.root); }
};

struct SurformPred : LexPred<SurformPred, Value, const char*> {
  static constexpr const char* kName = "surform";
  Value step(LexItem& item) const {
    if (item.is_empty() || !item.analyzer) return Value();
    return item.analyzer->text_value(item.analyzer->surface(item.low, item.high));
  }
};

struct LexItemRel : LexPred<LexItemRel, Value, const char*> {
  static constexpr const char* kName = "lexitem-rel";
  Value step(LexItem& item) const { return text_of(item, item.role); }
};

struct EndingPred : LexPred<EndingPred, LexItem*> {
  static constexpr const char* kName = "ending";
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
  int step(LexItem& item) const { return item.high - item.low + 1; }
};

class NoAlternativePred : public Form<NoAlternativePred> {
 public:
  static constexpr const char* kName = "no-alternative";
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
  LexItem* step(LexItem& item) const { return item.deleted ? &item : nullptr; }
};

struct GetSubLexItem : LexPred<GetSubLexItem, LexItem*> {
  static constexpr const char* kName = "get-sub-lexitem";
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
  LexAnalyzer* step(LexAnalyzer& analyzer) const {
    return analyzer.mixed_case ? &analyzer : nullptr;
  }
};

}  // namespace

void register_item_forms(World& world) {
  register_pure_form<AttComponentPred>(world);
  register_pure_form<MeaningComponentPred>(world);
  register_pure_form<RootPred>(world);
  register_pure_form<SurformPred>(world);
  register_pure_form<LexItemRel>(world);
  register_pure_form<EndingPred>(world);
  register_pure_form<CapPred>(world);
  register_pure_form<LexItemLength>(world);
  register_pure_form<NoAlternativePred>(world);
  register_pure_form<IsDeleted>(world);
  register_pure_form<GetSubLexItem>(world);
  register_function<&set_cate>(world, "set-cate");
  register_form<SetMixedCase>(world);
  register_pure_form<IsMixedCase>(world);
}

}  // namespace torvane
