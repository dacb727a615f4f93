// What an action does with its match: `match` leads to the node of a part, and its like.
#include "deps/chunks.h"
#include "deps/deps.h"
#include "deps/print_text.h"
#include "lexp/form.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"
#include "treerules/offers.h"
#include "treerules/tree_match.h"
#include "treerules/tree_patterns.h"

namespace torvane {
namespace {

/// Child numbers that lead down a match, from 1.
class MatchPath {
 public:
  void take(IRSlist* args) {
    while (const char* text = args->nth_str_val(0)) {
      long n = 0;
      scan_long(text, n);
      numbers_.append(n);
      args->pop_front();
    }
  }
  /// Null, reported, if the path leads nowhere.
  TreeMatch* follow(TreeMatch* match) const {
    for (long n : numbers_) {
      match = match->child(n);
      if (match) continue;
      messages() << "(match ...) resulted in nil\n";
      return nullptr;
    }
    return match;
  }

 private:
  Array<long> numbers_;
};

/// `(match N ... N)`; what follows the numbers is evaluated on the node.
class MatchNode : public Form<MatchNode, CompExp> {
 public:
  static constexpr const char* kName = "match";
  static constexpr const char* kUsage =
      "`(match n ... n [exp])` the node of a part of the match: the nth child of the nth child "
      "...; without numbers the top's. What `exp` gives on it";
  MatchNode() {
    in_type = type_id_of<TreeMatch>();
    out_type = type_id_of<RSTree>();
  }
  void init(World& world, IRSlist* args) override {
    path_.take(args);
    CompExp::init(world, args);
    if (!exps.empty()) out_type = exps.back()->out_type;
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    auto* match = input.as<TreeMatch>();
    if (match) match = path_.follow(match);
    if (!match) return Value();
    return CompExp::eval(Value::of(match->node), type_id_of<RSTree>());
  }

 private:
  MatchPath path_;
};

class ForAllMatches : public Form<ForAllMatches> {
 public:
  static constexpr const char* kName = "forall-subtree-matches";
  static constexpr const char* kUsage =
      "`(forall-subtree-matches var n ... n exp)` evaluates `exp` with `var` bound to each node of "
      "a part of the match in turn; 1 if all gave something";
  ForAllMatches() {
    in_type = type_id_of<TreeMatch>();
    out_type = type_id_of<int>();
  }
  void init(World& world, IRSlist* args) override {
    if (const char* name = args->get_str_val()) var_ = node_variable(world, name);
    path_.take(args);
    body_ = get_exp(world, args->nth(0));
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    auto* top = input.as<TreeMatch>();
    if (top) top = path_.follow(top);
    if (!top) return Value();
    bool all = true;
    Round round;
    top->for_each([&](const TreeMatch& match) {
      if (!match.node) return;
      if (var_) var_->assign(Value::of(match.node), type_id_of<RSTree>());
      if (!body_.eval(Value::integer(1), kAnyType)) all = false;
      round.next();
    });
    return Value::truth(all);
  }

 private:
  MatchPath path_;
  Ref<Var> var_;
  ExpPtr body_;
};

TreeMatch* print_attachment_points(World& world, TreeMatch* match) {
  const DepTree* site = match ? dep_tree_of(match->node) : nullptr;
  if (!site) return nullptr;
  world.out() << "Attachment points for " << span_text(*site) << '\n';
  for (TreeMatch* child = match->first_child(); child; child = child->next_sibling())
    if (const DepTree* node = dep_tree_of(child->node))
      world.out() << '\t' << span_text(*node) << '\n';
  return match;
}

/// The chunks of the sentence in which the match stands.
TreeMatch* get_chunk(World& world, TreeMatch* match) {
  DepTree* node = nullptr;
  if (match)
    match->for_each([&](const TreeMatch& part) {
      if (!node) node = dep_tree_of(part.node);
    });
  if (!node) return nullptr;
  print_chunks(world.out(), *node);
  return match;
}

struct GetChunk : Adaptor<GetChunk, TreeMatch, TreeMatch*> {
  static constexpr const char* kName = "get-chunk";
  static constexpr const char* kUsage =
      "`(get-chunk [exp])` prints the chunks of the sentence in which the match stands";
  TreeMatch* step(TreeMatch& match) const { return get_chunk(world(), &match); }
};

constexpr Prototype kMatchForms[] = {
    form<MatchNode>(),
    form<ForAllMatches>(),
    function<print_attachment_points>(
        "print-attachment-points",
        "`(print-attachment-points)` the words of the match's node, then one line for each site"),
    form<GetChunk>(),
};

}  // namespace

constinit const Offer offers::match_forms{kMatchForms};

}  // namespace torvane
