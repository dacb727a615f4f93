#include "lex/rules/llrule.h"

#include <utility>
#include <vector>

#include "lex/rules/offers.h"
#include "lexp/form.h"
#include "shell/named_objects.h"
#include "shell/object_factory.h"
#include "shell/world.h"
#include "support/depth.h"
#include "support/text.h"

namespace torvane {

namespace {

// How often the action of a rule may lead to a rule again.
constexpr int kMostNesting = 100;
thread_local DepthLimit llrule_depth{"apply-llrule: the rules are nested too deeply", kMostNesting};

constexpr const char* kKind = "llrule";

// One side of a context as a sequence; null for an empty side.
std::unique_ptr<LPattern> make_side(World& world, IRSlist& side) {
  if (side.empty()) return nullptr;
  char head[] = "seq";
  auto atom = std::make_unique<IRSlist>();
  atom->atom = head;
  side.push_front(std::move(atom));
  std::unique_ptr<LPattern> pattern = make_pattern(world, &side);
  side.clear();  // no atom outlives its text
  return pattern;
}

}  // namespace

LLRule::LLRule(World& world, IRSlist* context, IRSlist* action) {
  IRSlist left;
  IRSlist right;
  IRSlist* side = &left;
  while (context && !context->empty()) {
    std::unique_ptr<IRSlist> item = context->pop_front();
    if (side == &left && item->is_atom() && same_word(item->atom, "~")) {
      side = &right;
    } else {
      side->append(std::move(item));
    }
  }
  left_ = make_side(world, left);
  right_ = make_side(world, right);
  action_ = LExp::get_exp(world, action);
}

bool LLRule::apply(const Ref<Match>& match) {
  DepthGuard guard(llrule_depth);
  if (!guard || !action_ || !has_context()) return false;
  MatchList left;
  MatchList right;
  {
    MatchRun run(*match->analyzer);
    if (left_) left_->match_end(run, match->low - 1, left);
    if (right_) right_->match_start(run, match->high + 1, right);
  }
  if ((left_ && left.empty()) || (right_ && right.empty())) return false;
  if (!right_) {
    for (const Ref<Match>& l : left) act(match, l.get(), nullptr);
  } else if (!left_) {
    for (const Ref<Match>& r : right) act(match, nullptr, r.get());
  } else {
    for (const Ref<Match>& l : left)
      for (const Ref<Match>& r : right) act(match, l.get(), r.get());
  }
  return true;
}

void LLRule::act(const Ref<Match>& match, const Match* left, const Match* right) {
  std::vector<Ref<Match>> parts;
  if (left) left->append_components(parts);
  match->append_components(parts);
  if (right) right->append_components(parts);
  Ref<Match> whole = Match::of_parts(match->analyzer, left ? left->low : match->low,
                                     right ? right->high : match->high, match->item, parts);
  action_->eval(Value::of(whole.get()), type_id_of<Match>());
}

Subsumption LLRuleMeaning::compare(const Meaning* other) const {
  auto* rule_meaning = dynamic_cast<const LLRuleMeaning*>(other);
  if (!rule_meaning) return Subsumption::not_comparable;
  return rule_meaning->rule == rule ? Subsumption::equal : Subsumption::incomparable;
}

void LLRuleMeaning::init(World& world, IRSlist* form) {
  IRSlist* what = form->nth(0);
  if (!what) return;
  if (what->is_atom()) {
    rule = Ref<LLRule>(world.objects.find_as<LLRule>(what->atom, "LLRule", true));
  } else if (IRSlist* context = what->nth(0); context && context->is_list()) {
    rule = make_ref<LLRule>(world, context, what->nth(1));
  }
}

namespace {

Match* apply_llrule(Match* match) {
  if (!match || !match->item) return nullptr;
  auto* meaning = dynamic_cast<LLRuleMeaning*>(match->item->meaning.get());
  if (!meaning || !meaning->rule || !meaning->rule->has_context()) return nullptr;
  // The action may take the item, and with it the meaning, away.
  Ref<LLRule> rule = meaning->rule;
  // Kept: apply-llrule-gives-match
  rule->apply(Ref<Match>(match));
  return match;
}

Value make_llrule(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return Value();
  Ref<LLRule> rule = make_ref<LLRule>(world, form->nth(0), form->nth(1));
  if (world.objects.add(name, Value::of(rule.get()), "LLRule"))
    world.own(std::make_unique<Ref<LLRule>>(std::move(rule)));
  return Value();
}

constexpr Command kLlruleCommands[] = {
    {"make-llrule", make_llrule, "(make-llrule RULENAME PATTERN ACTION)"},
};

constexpr Prototype kLlruleForms[] = {
    meaning_kind<LLRuleMeaning>(
        kKind,
        "`(llrule NAME)` or `(llrule ((LEFT ~ RIGHT) ACTION))` a rule that rides on an entry"),
    function<apply_llrule>(
        "apply-llrule",
        "`(apply-llrule exp)` applies the context rule that is the meaning of the match"),
};

}  // namespace

constinit const Offer offers::llrule{kLlruleForms, kLlruleCommands};

}  // namespace torvane
