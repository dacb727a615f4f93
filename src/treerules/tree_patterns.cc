#include "treerules/tree_patterns.h"

#include <unordered_set>

#include "lexp/expressions.h"
#include "support/messages.h"
#include "treerules/child_walk.h"
#include "treerules/offers.h"

namespace torvane {

Ref<Var> node_variable(World& world, const char* name) {
  Scopes& scopes = expressions(world).scopes;
  if (Var* own = scopes.find_own(name)) return Ref<Var>(own);
  return scopes.declare(name, type_id_of<RSTree>());
}

void RTPat::take_var(World& world, IRSlist* args) {
  if (const char* name = args->nth_str_val(0)) {
    var = node_variable(world, name);
    args->pop_front();
  }
}

SubPattern::SubPattern(std::unique_ptr<LExp> compiled) : exp(std::move(compiled)) {
  auto* pattern = dynamic_cast<RTPat*>(exp.get());
  optional = pattern && pattern->optional;
}

TreeMatch* new_match(const ExpPtr& exp, RSTree* tree) {
  std::uint64_t before = last_match_stamp;
  auto* match = exp.eval(Value::of(tree), type_id_of<RSTree>()).as<TreeMatch>();
  return match && match->stamp > before && !match->_parent ? match : nullptr;
}

void RTPat::assign(RSTree* tree) const {
  var->assign(Value::of(tree), in_type);
}

namespace {

class NodeCond : public Form<NodeCond, RTPat> {
 public:
  static constexpr const char* kName = "node";
  static constexpr const char* kUsage =
      "`(node [var] [exp])` a pattern for one node on which the expression holds";
  void init(World& world, IRSlist* args) override {
    take_var(world, args);
    cond_ = get_exp(world, args->nth(0));
  }

 protected:
  Value test(RSTree* tree) override {
    if (!holds(cond_, tree)) return Value();
    // Kept: bindings-are-not-undone
    bind(tree);
    return Value::of(TreeMatch::make(tree));
  }

 private:
  ExpPtr cond_;
};

class LeafCond : public Form<LeafCond, RTPat> {
 public:
  static constexpr const char* kName = "is-leaf";
  static constexpr const char* kUsage = "`(is-leaf)` the node if it has no children";
  LeafCond() { out_type = in_type; }
  // Kept: is-leaf-argument
  void init(World& world, IRSlist* args) override { get_exp(world, args->nth(0)); }

 protected:
  Value test(RSTree* tree) override { return tree->empty() ? Value::of(tree) : Value(); }
};

class OptRTPat : public Form<OptRTPat, RTPat> {
 public:
  static constexpr const char* kName = "t?";
  static constexpr const char* kUsage =
      "`(t? pattern)` as the pattern, where the form around does without it";
  OptRTPat() { optional = true; }
  void init(World& world, IRSlist* args) override {
    cond = get_exp(world, args->nth(0));
    if (cond && !is_pattern(*cond.get()))
      messages() << "In (" << name() << " <LEXP>) <LEXP> must return TreeMatch*\n";
  }

  ExpPtr cond;

 protected:
  Value test(RSTree* tree) override { return value_on(cond, tree); }
};

class PlusRTPat : public Form<PlusRTPat, OptRTPat> {
 public:
  static constexpr const char* kName = "t+";
  static constexpr const char* kUsage =
      "`(t+ pattern)` a pattern for a chain of nodes that all match, as far down as it goes";
  PlusRTPat() { optional = false; }

 protected:
  Value test(RSTree* tree) override {
    TreeMatch* match = match_on(tree);
    if (!match) return Value();
    // What is repeated may end higher than it began, and so lead to where the chain has been.
    std::unordered_set<const RSTree*> been{tree};
    for (TreeMatch* next = match; next;) {
      TreeMatch* last = next->last_descendant();
      next = nullptr;
      const RSTree* place = nullptr;
      for (ChildWalk walk(last->node); !next && (place = walk.child()); walk.next())
        next = match_on(walk.child());
      if (!next || !been.insert(place).second) break;
      last->append(next);
    }
    return Value::of(match);
  }

 private:
  TreeMatch* match_on(RSTree* tree) const {
    TreeMatch* match = new_match(cond, tree);
    return match && match->node ? match : nullptr;
  }
};

class StarRTPat : public Form<StarRTPat, PlusRTPat> {
 public:
  static constexpr const char* kName = "t*";
  static constexpr const char* kUsage =
      "`(t* pattern)` as `t+`, where the form around does without it";
  StarRTPat() { optional = true; }
};

/// A head with sub-patterns on its children, in any order.
class BranchCond : public Form<BranchCond, RTPat> {
 public:
  static constexpr const char* kName = "tree";
  static constexpr const char* kUsage =
      "`(tree [var] head pattern ... pattern)` a pattern for a node on which `head` holds and a "
      "different child for each pattern, in any order";
  void init(World& world, IRSlist* args) override;

  Array<SubPattern> subs;
  ExpPtr head;

 protected:
  Value test(RSTree* tree) override;
  /// Appends matches of the sub-patterns; false if one of them fails the whole.
  virtual bool match_children(RSTree* tree, TreeMatch* match);
};

void BranchCond::init(World& world, IRSlist* args) {
  take_var(world, args);
  head = take_exp(world, *args);
  for (IRSlist* item : args->items) {
    auto exp = get_exp(world, item);
    if (!exp) continue;
    if (!is_pattern(*exp))
      messages() << exp->name() << " cannot be used as a subtree condition in (tree ...) \n";
    subs.append(SubPattern(std::move(exp)));
  }
}

Value BranchCond::test(RSTree* tree) {
  if (!holds(head, tree)) return Value();
  TreeMatch* match = TreeMatch::make(tree);
  if (!match_children(tree, match)) return Value();
  bind(tree);
  return Value::of(match);
}

bool BranchCond::match_children(RSTree* tree, TreeMatch* match) {
  for (const SubPattern& sub : subs) {
    TreeMatch* found = nullptr;
    for (ChildWalk walk(tree); !found && walk.child(); walk.next())
      // Kept: tree-never-backs-up
      if (!match->has_child_on(walk.child())) found = new_match(sub.exp, walk.child());
    if (!found && !sub.optional) return false;
    match->append(found ? found : TreeMatch::make(nullptr));
  }
  return true;
}

/// Tries the sub-pattern on the children from the cursor on, which it leaves behind the match.
TreeMatch* match_from(ChildWalk& cursor, const SubPattern& sub) {
  TreeMatch* found = nullptr;
  for (; !found && cursor.child(); cursor.next()) found = new_match(sub.exp, cursor.child());
  return found;
}

/// In order and leniently: after a first match, what finds no child any more is passed over.
class BranchUCond : public Form<BranchUCond, BranchCond> {
 public:
  static constexpr const char* kName = "treeu";
  static constexpr const char* kUsage =
      "`(treeu [var] head pattern ... pattern)` as `tree`, the children in order; what finds none "
      "after the first is passed over";

 protected:
  bool match_children(RSTree* tree, TreeMatch* match) override {
    ChildWalk cursor(tree);
    // Kept: treeu-forgives
    bool made = false;
    for (const SubPattern& sub : subs) {
      if (TreeMatch* found = match_from(cursor, sub)) {
        match->append(found);
        made = true;
      } else if (!made) {
        if (!sub.optional) return false;
        match->append(TreeMatch::make(nullptr));
      }
    }
    return true;
  }
};

/// In order and strictly: each must find a child, an optional one too.
class BranchQCond : public Form<BranchQCond, BranchCond> {
 public:
  static constexpr const char* kName = "treeq";
  static constexpr const char* kUsage =
      "`(treeq [var] head pattern ... pattern)` as `tree`, the children in order";

 protected:
  bool match_children(RSTree* tree, TreeMatch* match) override {
    ChildWalk cursor(tree);
    for (const SubPattern& sub : subs) {
      TreeMatch* found = match_from(cursor, sub);
      // Kept: treeq-wants-all
      if (!found) return false;
      match->append(found);
    }
    return true;
  }
};

/// Each pattern on a child of where the one before it ended.
class PathCond : public Form<PathCond, RTPat> {
 public:
  static constexpr const char* kName = "path";
  static constexpr const char* kUsage =
      "`(path pattern ... pattern)` a pattern for a line of nodes, each a child of the one before";
  void init(World& world, IRSlist* args) override {
    for (IRSlist* item : args->items) {
      auto exp = get_exp(world, item);
      if (!exp) continue;
      if (is_pattern(*exp)) {
        conds.append(SubPattern(std::move(exp)));
      } else {
        messages() << "PathCond: all arguments must be LExps that return 'TreeMatch*'\n";
      }
    }
  }

  Array<SubPattern> conds;

 protected:
  Value test(RSTree* tree) override {
    TreeMatch* match = conds.empty() ? nullptr : new_match(conds[0].exp, tree);
    if (!match) return Value();
    TreeMatch* last = match->last_descendant();
    for (int i = 1; i < conds.count(); ++i) {
      TreeMatch* found = nullptr;
      for (ChildWalk walk(last->node); !found && walk.child(); walk.next())
        found = new_match(conds[i].exp, walk.child());
      if (found) {
        last->append(found);
        last = found->last_descendant();
      } else if (!conds[i].optional) {
        return Value();
      }
    }
    return Value::of(match);
  }
};

/// The sites to which a node may attach: its ancestors, and the right frontier of the sibling
/// before it.
class AttachmentPoints : public Form<AttachmentPoints, RTPat> {
 public:
  static constexpr const char* kName = "attachment-points";
  static constexpr const char* kUsage =
      "`(attachment-points self site pass)` a match of the node with those of the sites to which "
      "it could attach: its parent and what stands above it, then the right edge of the sibling "
      "before it; the way goes on where `pass` holds, and a site counts where `site` holds";
  void init(World& world, IRSlist* args) override {
    self = get_exp(world, args->nth(0));
    site = get_exp(world, args->nth(1));
    pass = get_exp(world, args->nth(2));
  }

  ExpPtr self, site, pass;

 protected:
  Value test(RSTree* tree) override {
    if (!holds(self, tree)) return Value();
    TreeMatch* match = TreeMatch::make(tree);
    Patience patience;
    RSTree* up = tree->_parent;
    // Kept: parent-is-always-a-site
    if (up) match->append(TreeMatch::make(up));
    while (up && patience.lasts() && holds(pass, up)) {
      up = up->_parent;
      add_site(match, up);
    }
    for (RSTree* down = sibling_before(tree); down && patience.lasts() && holds(pass, down);
         down = down->last_child())
      add_site(match, down);
    return Value::of(match);
  }

 private:
  void add_site(TreeMatch* match, RSTree* tree) const {
    if (tree && holds(site, tree)) match->append(TreeMatch::make(tree));
  }
  static RSTree* sibling_before(const RSTree* tree) {
    RSTree* before = nullptr;
    for (ChildWalk walk(tree->_parent); walk.child() && walk.child() != tree; walk.next())
      before = walk.child();
    return before;
  }
};

constexpr Prototype kTreePatternsForms[] = {
    form<NodeCond>(),  form<LeafCond>(),         form<OptRTPat>(),    form<PlusRTPat>(),
    form<StarRTPat>(), form<BranchCond>(),       form<BranchUCond>(), form<BranchQCond>(),
    form<PathCond>(),  form<AttachmentPoints>(),
};

}  // namespace

constinit const Offer offers::tree_patterns{kTreePatternsForms};

}  // namespace torvane
