// The expressions and commands on antecedent lists. An expression knows its list from the time it
// is compiled; where there is none, every test is false.
#include <string>
#include <utility>

#include "lex/rules/antecedent_list.h"
#include "lex/rules/offers.h"
#include "lex/rules/rule_actions.h"
#include "lexp/form.h"
#include "shell/named_objects.h"
#include "shell/world.h"

namespace torvane {

namespace {

AntecedentList* find_list(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  return name ? world.objects.find_as<AntecedentList>(name, "AntecedentList", true) : nullptr;
}

/// Base of the forms that name their list.
template <class D>
class AnteListExp : public Form<D> {
 public:
  void init(World& world, IRSlist* args) override { list_ = find_list(world, args); }
  AntecedentList* list_ = nullptr;
};

struct ClearAnteList : AnteListExp<ClearAnteList> {
  static constexpr const char* kName = "clear-ante-list";
  static constexpr const char* kUsage = "`(clear-ante-list NAME)` empties an antecedent list; 0";
  Value eval(Value, int) override {
    if (list_) list_->clear();
    return Value();
  }
};

/// A test of a text input: D says `bool test(const char* text)`.
template <class D>
class AnteTest : public AnteListExp<D> {
 public:
  AnteTest() {
    this->in_type = type_id_of<const char*>();
    this->out_type = type_id_of<int>();
  }
  Value eval(Value input, int input_type) override {
    return Value::truth(holds(input, input_type));
  }

 protected:
  bool holds(Value input, int input_type) const {
    if (!this->accepts(input_type)) return false;
    const char* text = input.text();
    return this->list_ && text && static_cast<const D*>(this)->test(text);
  }
};

struct ExistExactMatch : AnteTest<ExistExactMatch> {
  static constexpr const char* kName = "exist-exact-match";
  static constexpr const char* kUsage = "`(exist-exact-match NAME)` the text is stored as it is";
  bool test(const char* text) const { return list_->find_exact(text) != nullptr; }
};

struct CoveredByAntecedent : AnteTest<CoveredByAntecedent> {
  static constexpr const char* kName = "covered-by-antecedent";
  static constexpr const char* kUsage =
      "`(covered-by-antecedent NAME)` the word stands in a stored name";
  bool test(const char* text) const { return list_->covers_word(text); }
};

struct IsAbbrev : AnteTest<IsAbbrev> {
  static constexpr const char* kName = "is-abbrev";
  static constexpr const char* kUsage = "`(is-abbrev NAME)` the text abbreviates a stored name";
  IsAbbrev() { out_type = type_id_of<const char*>(); }
  bool test(const char* text) const { return list_->find_abbrev(text) != nullptr; }
  Value eval(Value input, int input_type) override {
    return holds(input, input_type) ? input : Value();
  }
};

/// A test of two texts, which two expressions give.
template <class D>
class NameTest : public Form<D, BinaryFunc> {
 public:
  NameTest() { this->out_type = type_id_of<int>(); }
  Value eval(Value input, int input_type) override {
    // The second may be a buffer's text that the first is made in as well.
    const char* full = this->a.eval(input, input_type).text();
    if (!full) return Value();
    std::string kept = full;
    const char* part = this->b.eval(input, input_type).text();
    return Value::truth(part && D::test(kept.c_str(), part));
  }
};

struct MatchingName : NameTest<MatchingName> {
  static constexpr const char* kName = "matching-name";
  static constexpr const char* kUsage =
      "`(matching-name FULL SHORT)` the second text is a short form of the first";
  static bool test(const char* full, const char* part) { return matches_name(full, part); }
};

struct AbbrevOf : NameTest<AbbrevOf> {
  static constexpr const char* kName = "abbrev-of";
  static constexpr const char* kUsage =
      "`(abbrev-of FULL SHORT)` the second text abbreviates the first";
  static bool test(const char* full, const char* part) { return abbreviates(full, part); }
};

/// (register-name list): on an item, keeps its root with its meaning. Gives the item.
struct RegisterName : AnteListExp<RegisterName> {
  static constexpr const char* kName = "register-name";
  static constexpr const char* kUsage =
      "`(register-name LIST)` adds the item's root and meaning to an antecedent list";
  RegisterName() { in_type = out_type = type_id_of<LexItem>(); }
  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    LexItem* item = input.as<LexItem>();
    if (list_ && item) list_->add(item->root, as_avm(item->meaning.get()), world().double_byte);
    return Value::of(item);
  }
};

LexItem* find_prev_occ(Match* match, Word low, Word high, AntecedentList* names) {
  if (!match || !names) return nullptr;
  LexAnalyzer& chart = *match->analyzer;
  WordSpan span(chart, low, high);
  if (span.low != low || span.high != high || span.low > span.high) return nullptr;
  const char* name = chart.surface(span.low, span.high);
  const Meaning* meaning = names->find_matching(name);
  if (!meaning) return nullptr;
  return chart.add_item(chart.make_item(name, meaning, span.low, span.high, {}), true);
}

Value make_antecedent_list(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return Value();
  world.own_object(name, std::make_unique<AntecedentList>(), "AntecedentList");
  return Value();
}

Value clear_antecedent_list(World& world, IRSlist* form) {
  if (AntecedentList* list = find_list(world, form)) list->clear();
  return Value();
}

constexpr Command kAntecedentFormsCommands[] = {
    {"make-antecedent-list", make_antecedent_list, "(make-antecedent-list <name>)"},
    {"clear-antecedent-list", clear_antecedent_list,
     "(clear-antecedent-list name) clear the entries in an antecedent list."},
};

constexpr Prototype kAntecedentForms[] = {
    form<RegisterName>(),
    function<find_prev_occ>("find-prev-occ",
                            "`(find-prev-occ low high list)` the span's text in an antecedent "
                            "list: a new item of that meaning, asserted"),
    form<ClearAnteList>(),
    form<ExistExactMatch>(),
    form<CoveredByAntecedent>(),
    form<IsAbbrev>(),
    form<MatchingName>(),
    form<AbbrevOf>(),
};

}  // namespace

constinit const Offer offers::antecedent_forms{kAntecedentForms, kAntecedentFormsCommands};

}  // namespace torvane
