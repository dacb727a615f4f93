// The forms that mark words as case-marked, and ask for the marks.
#include "lexp/form.h"
#include "parser/forms/offers.h"
#include "parser/torvane_parser.h"
#include "shell/named_objects.h"
#include "shell/world.h"

namespace torvane {
namespace {

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
    return parser && in_range ? D::apply(parser->chart.*D::kSet, static_cast<int>(position))
                              : Value();
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
  static constexpr const char* kUsage =
      "`(case-mark-position [PARSER])` marks the word behind the index as case-marked";
  static constexpr auto kSet = &Chart::case_marks;
};
struct ObliqueCaseMarkPosition : MarkForm<ObliqueCaseMarkPosition> {
  static constexpr const char* kName = "oblique-case-mark";
  static constexpr const char* kUsage =
      "`(oblique-case-mark [PARSER])` marks the word behind the index as oblique";
  static constexpr auto kSet = &Chart::oblique_case_marks;
};
struct IsCaseMarked : TestForm<IsCaseMarked> {
  static constexpr const char* kName = "is-case-marked";
  static constexpr const char* kUsage = "`(is-case-marked [PARSER])` the word index was marked";
  static constexpr auto kSet = &Chart::case_marks;
};
struct IsObliqueCaseMarked : TestForm<IsObliqueCaseMarked> {
  static constexpr const char* kName = "is-oblique-case-marked";
  static constexpr const char* kUsage =
      "`(is-oblique-case-marked [PARSER])` the word index was marked as oblique";
  static constexpr auto kSet = &Chart::oblique_case_marks;
};

constexpr Prototype kCaseMarksForms[] = {
    form<CaseMarkPosition>(),
    form<ObliqueCaseMarkPosition>(),
    form<IsCaseMarked>(),
    form<IsObliqueCaseMarked>(),
};

}  // namespace

constinit const Offer offers::case_marks{kCaseMarksForms};

}  // namespace torvane
