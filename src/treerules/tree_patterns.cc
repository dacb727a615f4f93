#include "treerules/tree_patterns.h"

#include <unordered_set>

#include "lexp/expressions.h"
#include "support/messages.h"
#include "treerules/child_walk.h"

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
  LeafCond() { out_type = in_type; }
  // Kept: is-leaf-argument
  void init(World& world, IRSlist* args) override { get_exp(world, args->nth(0)); }

 protected:
  Value test(RSTree* tree) override { return tree->empty() ? Value::of(tree) : Value(); }
};

class OptRTPat : public Form<OptRTPat, RTPat> {
 public:
  static constexpr const char* kName = "t?";
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
  StarRTPat() { optional = true; }
};

/// A head with sub-patterns on its children, in any order.
class BranchCond : public Form<BranchCond, RTPat> {
 public:
  static constexpr const char* kName = "tree";
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
  head = get_exp(world, args->nth(0));
  args->pop_front();
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

}  // namespace

void register_tree_patterns(World& world) {
  register_form<NodeCond>(world);
  register_form<LeafCond>(world);
  register_form<OptRTPat>(world);
  register_form<PlusRTPat>(world);
  register_form<StarRTPat>(world);
  register_form<BranchCond>(world);
  register_form<BranchUCond>(world);
  register_form<BranchQCond>(world);
  register_form<PathCond>(world);
  register_form<AttachmentPoints>(world);
}

}  // namespace torvane
