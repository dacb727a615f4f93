// Lexical rules: a pattern over the chart, and an action on each place where it fits. A set of
// rules runs once a sentence, after the look-up of the words and before parsing.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lex/chart/lex_analyzer.h"
#include "lex/patterns/pattern.h"

namespace torvane {

class World;

class Rule {
 public:
  /// Reads a rule form: its name, then options, the pattern and the action.
  Rule(World& world, IRSlist* form);

  void apply(LexAnalyzer& analyzer);

  const std::string& name() const { return name_; }

  bool debug = false;  ///< tells what it matches

 private:
  bool take_option(World& world, IRSlist& item);
  void fire(MatchList& matches);

  std::string name_;
  PatternPtr pattern_;       // null: the rule never fires
  ExpPtr action_;            // on Match*; null: nothing is done
  ExpPtr precondition_;      // on LexAnalyzer*, may be null
  bool act_on_all_ = false;  // fires also for the shorter ones of matches with one end
};

class LexRuleList final : public ChartRules {
 public:
  /// Each rule once, in order, on the chart as the earlier ones left it. Rules that an action adds
  /// run from the next sentence on.
  void apply(LexAnalyzer& analyzer) override;

  const std::vector<std::unique_ptr<Rule>>& rules() const { return rules_; }
  /// Puts rules in front of the one at a place, or after the last.
  void insert(std::size_t at, std::vector<std::unique_ptr<Rule>> rules);

 private:
  std::vector<std::unique_ptr<Rule>> rules_;
};

/// The rules of a name, or null.
LexRuleList* find_rules(const World& world, const char* name);

}  // namespace torvane
