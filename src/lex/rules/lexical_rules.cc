#include "lex/rules/lexical_rules.h"

#include <algorithm>
#include <utility>

#include "lex/rules/offers.h"
#include "lexp/form.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/regexp.h"
#include "support/text.h"

namespace torvane {

Rule::Rule(World& world, IRSlist* form) : name_(or_empty(form->get_str_val())) {
  bool has_pattern = false;
  bool has_action = false;
  while (!form->empty()) {
    std::unique_ptr<IRSlist> item = form->pop_front();
    if (take_option(world, *item)) continue;
    if (!std::exchange(has_pattern, true)) {
      pattern_ = make_pattern(world, item.get());
    } else if (!std::exchange(has_action, true)) {
      action_ = LExp::get_exp(world, item.get());
    }
  }
  if (!has_pattern) messages() << "The lexical rule '" << name_ << "' has no pattern\n";
}

bool Rule::take_option(World& world, IRSlist& item) {
  const char* head = item.is_list() ? item.nth_str_val(0) : nullptr;
  if (same_word(head, ":precondition")) {
    precondition_ = LExp::get_exp(world, item.nth(1));
  } else if (same_word(head, ":act-on-all-matches")) {
    act_on_all_ = true;
  } else {
    return false;
  }
  return true;
}

void Rule::apply(LexAnalyzer& analyzer) {
  if (!passes(precondition_, Value::of(&analyzer), type_id_of<LexAnalyzer>())) return;
  if (debug) messages() << "\nLexical Rule: " << name_ << '\n';
  if (!pattern_) return;
  MatchList matches;
  {
    MatchRun run(analyzer);
    pattern_->match(run, matches);
  }
  fire(matches);
}

void Rule::fire(MatchList& matches) {
  int last_low = -1;
  int last_high = -1;
  Round round;
  for (const Ref<Match>& match : matches) {
    if (debug) {
      match->print(messages());
      messages() << '\n';
    }
    // Kept: one-match-an-end
    if (match->high != last_high) {
      last_low = match->low;
      last_high = match->high;
    } else if (!act_on_all_ && match->low != last_low) {
      continue;
    }
    action_.eval(Value::of(match.get()), type_id_of<Match>());
    round.next();
  }
}

void LexRuleList::apply(LexAnalyzer& analyzer) {
  // An action may add rules to this very list.
  std::vector<Rule*> now;
  now.reserve(rules_.size());
  for (const auto& rule : rules_) now.push_back(rule.get());
  for (Rule* rule : now) {
    if (analyzer.losses) analyzer.rule_in_hand = {rule->name().c_str(), rule};
    rule->apply(analyzer);
  }
  analyzer.rule_in_hand = {};
}

void LexRuleList::insert(std::size_t at, std::vector<std::unique_ptr<Rule>> rules) {
  rules_.insert(rules_.begin() + static_cast<std::ptrdiff_t>(at),
                std::make_move_iterator(rules.begin()), std::make_move_iterator(rules.end()));
}

LexRuleList* find_rules(const World& world, const char* name) {
  return dynamic_cast<LexRuleList*>(world.objects.find_as<ChartRules>(name, "LexRuleList", false));
}

namespace {

std::vector<std::unique_ptr<Rule>> read_rules(World& world, IRSlist* form) {
  std::vector<std::unique_ptr<Rule>> rules;
  for (IRSlist* item : form->items) {
    PlaceScope here(world.places, item->place);
    if (!item->is_list()) continue;
    rules.push_back(std::make_unique<Rule>(world, item));
    world.places.keep(rules.back().get(), item->place);
  }
  return rules;
}

Value def_rules(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return Value();
  LexRuleList* list = find_rules(world, name);
  if (!list) {
    list = world.own_object<LexRuleList, ChartRules>(name, std::make_unique<LexRuleList>(),
                                                     "LexRuleList");
    if (!list) return Value();
  }
  list->insert(list->rules().size(), read_rules(world, form));
  return Value();
}

Value insert_lex_rules(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  LexRuleList* list = find_rules(world, name);
  if (!list) {
    messages() << "(insert-lex-rules ...): the lexical rule set '" << or_empty(name)
               << "' is not defined\n";
    return Value();
  }
  const auto& rules = list->rules();
  auto at = rules.end();
  if (const char* anchor = form->get_str_val()) {
    at = std::find_if(rules.begin(), at,
                      [&](const auto& rule) { return same_word(rule->name().c_str(), anchor); });
    if (at == rules.end()) return Value();
  }
  list->insert(static_cast<std::size_t>(at - rules.begin()), read_rules(world, form));
  return Value();
}

Value debug_rules(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  LexRuleList* list = find_rules(world, name);
  if (!list) {
    messages() << "the lexical rules `" << or_empty(name) << "' are not found\n";
    return Value();
  }
  std::unique_ptr<regexp> names;
  if (const char* text = form->get_str_val())
    names = regcomp(text[0] == '^' ? text : ("^" + std::string(text)).c_str());
  for (const auto& rule : list->rules())
    // Kept: debug-rules-toggles
    if (!names || regexec(names.get(), rule->name().c_str())) rule->debug = !rule->debug;
  return Value();
}

constexpr Command kLexicalRulesCommands[] = {
    {"def-rules", def_rules,
     "(def-rules name rule1 rule2 ...) define a set of lexical rules. If the rule set so name is "
     "already defined, rule1 rule2 ... are appended at the end."},
    {"insert-lex-rules", insert_lex_rules,
     "(insert-lex-rules rule-set anchor-rule rule1 ...) define new rules and insert them before "
     "the "
     "anchor-rule."},
    {"debug-rules", debug_rules,
     "(debug-rules name-of-rule-set 0|1) set the debugging flag for a rule-set"},
};

}  // namespace

constinit const Offer offers::lexical_rules{kLexicalRulesCommands};

}  // namespace torvane
