#include "why/explain.h"

#include <algorithm>
#include <memory>
#include <set>
#include <sstream>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "parser/grammar/contract.h"
#include "why/link_trial.h"
#include "why/priced_tree.h"
#include "why/quotes.h"
#include "why/word_way.h"

namespace torvane {
namespace {

using Trees = std::vector<TNode*>;

/// The roots of the forest: those that were chosen, and all. The forest is as before at the end.
class Roots {
 public:
  explicit Roots(TorvaneParser& parser) : forest_(parser.forest()) {
    for (TNode* root : forest_._roots) chosen.push_back(root);
    forest_.collect_roots(parser.grammar, parser.chart);
    for (TNode* root : forest_._roots) all.push_back(root);
  }
  ~Roots() {
    forest_._roots.clear();
    for (TNode* root : all) root->is_root = false;
    for (TNode* root : chosen) {
      root->is_root = true;
      forest_._roots.append(root);
    }
  }
  Roots(const Roots&) = delete;
  Roots& operator=(const Roots&) = delete;

  Trees chosen, all;

 private:
  ParseForest& forest_;
};

bool spans(const TNode& root, int word) {
  return root._item->_low <= word && word <= root._item->_high;
}

/// The cheapest trees over the spans that were chosen; nothing if one of them has none.
std::optional<PricedTree> price(const Roots& roots, const TreePricer::Allows& allows) {
  TreePricer pricer(allows);
  PricedTree all;
  for (const TNode* root : roots.chosen) {
    auto tree = pricer.price(roots.all, root->_item->_low, root->_item->_high);
    if (!tree) return {};
    all.append(std::move(*tree));
  }
  return all;
}

std::optional<PricedTree> price_chosen(const Roots& roots) {
  TreePricer pricer([](int, int, const Link*) { return true; });
  PricedTree all;
  for (const TNode* root : roots.chosen) {
    auto tree = pricer.price(*root);
    if (!tree) return {};
    all.append(std::move(*tree));
  }
  return all;
}

WhyCosts costs_of(const PricedTree& tree) {
  WhyCosts costs;
  costs.total = tree.total;
  for (const PricedRow& row : tree.rows)
    costs.rows.push_back({row.word, row.head, row.relation, row.cost});
  for (const auto& [word, cost] : tree.words) costs.rows.push_back({word, 0, {}, cost});
  std::stable_sort(costs.rows.begin(), costs.rows.end(),
                   [](const WhyCost& a, const WhyCost& b) { return a.word < b.word; });
  return costs;
}

/// Calls `visit(item)` for every item that is stored, and all that these are made of, once.
template <class Visit>
void for_each_item(const TorvaneParser& parser, Visit visit) {
  std::unordered_set<const PItem*> seen;
  std::vector<const PItem*> waiting;
  parser.grammar._nodes.for_each([&](const auto& entry) {
    const GCate& node = *entry.value;
    for (int end = 0; end < parser.chart.row_count(); ++end)
      for (int position = 0; position <= node.n_positions(); ++position)
        for (const PItem* item : parser.chart.bucket(node, position, end)) waiting.push_back(item);
  });
  while (!waiting.empty()) {
    const PItem* item = waiting.back();
    waiting.pop_back();
    if (!item || !seen.insert(item).second) continue;
    visit(*item);
    for (const PItem* part : {item->_next, item->_head_child, item->_modifier})
      if (part) waiting.push_back(part);
  }
}

class PairExplainer {
 public:
  PairExplainer(TorvaneParser& parser, int modifier, int head, bool was_cut)
      : parser_(parser), was_cut_(was_cut), modifier_(parser, modifier), head_(parser, head) {}

  PairReasons run(const std::vector<LexLoss>& losses) {
    read_losses(losses);
    add_readings(modifier_.word(), result_.modifier_readings);
    if (head_.word() > 0) add_readings(head_.word(), result_.head_readings);
    find_made();
    price_trees();
    if (head_.word() > 0) {
      try_links();
      try_conjunctions();
      if (ends_.empty()) try_lost();
      if (ends_.empty()) tell_no_links();
    }
    finish();
    return std::move(result_);
  }

 private:
  struct End {
    WhyLink link;
    Stage stage;
    int fit = 0;  ///< how many of the two words it would take as the chosen tree reads them

    /// As far as the tests of a link alone, links for those readings are of more interest.
    auto rank() const { return std::tuple(std::max(stage, Stage::merge), fit, stage); }
  };
  struct Lost {
    const LexItem* item;
    const GCate* node;
    RuleInHand by;
  };

  World& world() { return parser_._world; }
  std::string word(int i) const { return quoted(parser_.grammar, i, i); }

  /// Readings that left the chart and did not come back.
  void read_losses(const std::vector<LexLoss>& losses) {
    std::unordered_set<const LexItem*> present;
    parser_.grammar._lex->for_each_item([&](const LexItem* item) { present.insert(item); });
    for (const LexLoss& loss : losses)
      if (loss.item->vec() && present.insert(loss.item).second)
        lost_.push_back({loss.item, node_of_reading(*loss.item), loss.by});
  }
  /// The node of a reading; a frame that no word brought counts as what it is a frame of.
  const GCate* node_of_reading(const LexItem& item) {
    const AttVec& vec = *item.vec();
    if (vec.interpreters != parser_.grammar._att_type) return nullptr;
    if (GCate* node = parser_.grammar.get_node(node_name_of(vec).c_str(), false)) return node;
    return parser_.grammar.get_node(category_node_name(vec), false);
  }

  void add_readings(int word, std::vector<WhyReading>& out) {
    parser_.grammar._lex->for_each_item([&](const LexItem* item) {
      if (item->low <= word && word <= item->high && item->vec())
        out.push_back(reading_of(*item, node_of_reading(*item)));
    });
    for (const Lost& lost : lost_) {
      if (lost.item->low > word || word > lost.item->high) continue;
      WhyReading reading = reading_of(*lost.item, lost.node);
      reading.lost = true;
      reading.lost_by = or_empty(lost.by.name);
      if (lost.by.rule) reading.place = place_of(world(), lost.by.rule);
      out.push_back(std::move(reading));
    }
  }
  WhyReading reading_of(const LexItem& item, const GCate* node) const {
    WhyReading reading;
    reading.first = item.low;
    reading.last = item.high;
    reading.root = or_empty(item.root);
    if (node) reading.category = node->_name;
    std::ostringstream out;
    item.vec()->print(out, parser_._show.get());
    reading.attributes = out.str();
    return reading;
  }

  /// The links that did tie the two.
  void find_made() {
    for_each_item(parser_, [&](const PItem& item) {
      if (!item._modifier || !item._link || !item._head_child) return;
      if (item._modifier->_high < item._modifier->_low) return;
      if (has_head(*item._modifier, modifier_.word()) && has_head(*item._head_child, head_.word()))
        made_.insert(item._link);
    });
  }

  void price_trees() {
    const int m = modifier_.word(), h = head_.word();
    Roots roots(parser_);
    const auto best = price_chosen(roots);
    result_.own = -1;
    if (best) {
      result_.chosen = costs_of(*best);
      if (const PricedRow* row = best->row_of(m)) {
        result_.own = row->head;
        if (row->head == h) own_link_ = row->link;
      }
      if (const GCate* node = best->reading_of(m)) modifier_nodes_ = above(*node);
      if (const GCate* node = best->reading_of(h)) head_nodes_ = above(*node);
    }
    const auto only = [&](const Link* wanted) {
      return [m, h, wanted](int word, int head, const Link* link) {
        return word != m || (head == h && (!wanted || link == wanted));
      };
    };
    if (best) {
      const auto tree = price(roots, only(nullptr));
      const PricedRow* row = tree ? tree->row_of(m) : nullptr;
      if (row && row->head == h) {
        result_.wanted = costs_of(*tree);
        result_.dearer = tree->total - best->total;
      }
    }
    for (const Link* link : made_) {
      End end{
          link_of(*link),
          Stage::made,
      };
      end.link.reason.kind = WhyKind::no_result;
      end.link.reason.text = "it was made, but no tree of the sentence has it";
      if (link == own_link_) {
        end.stage = Stage::chosen;
        end.link.reason.kind = WhyKind::chosen;
        end.link.reason.text = "it is in the tree that was chosen";
      } else if (const auto tree = best ? price(roots, only(link)) : std::nullopt;
                 tree && tree->row_of(m) && tree->row_of(m)->head == h) {
        end.stage = Stage::dearer;
        end.link.reason.kind = WhyKind::dearer;
        end.link.reason.text = dearer_text(tree->total - best->total);
      } else {
        TreePricer pricer(only(link));
        for (const TNode* root : roots.all) {
          if (!spans(*root, m) || !spans(*root, h)) continue;
          const auto part = pricer.price(*root);
          if (!part || !part->row_of(m) || part->row_of(m)->head != h) continue;
          end.stage = Stage::elsewhere;
          end.link.reason.kind = WhyKind::elsewhere;
          end.link.reason.text = "it is in a tree over " +
                                 quoted(parser_.grammar, root->_item->_low, root->_item->_high) +
                                 ", and the sentence was laid out with other trees";
          break;
        }
      }
      ends_.push_back(std::move(end));
    }
  }
  static std::string dearer_text(float by) {
    std::ostringstream text;
    text.precision(3);
    if (by <= 0) {
      text << "a tree with it costs the same, and another one was found before";
    } else {
      text << "the best tree with it is dearer by " << by;
    }
    return text.str();
  }

  WhyLink link_of(const Link& link) {
    WhyLink told;
    told.relation = or_empty(link.type().c_str());
    told.child = link._child ? link._child->_name : "";
    told.parent = link._parent->_name;
    told.position = link.position() + 1;
    told.before = link.position() >= 0 && link.position() < link._parent->head();
    told.place = place_of(world(), &link);
    const char* command = link.position() < 0 ? "(def-category " : "(def-modifiers ";
    if (told.place.line > 0) told.place.form = command + told.parent + " ...)";
    return told;
  }

  void try_links() {
    for (const GCate* node : modifier_.nodes())
      for (const Link* link : node->out_links()) {
        if (is_head_link(*link) || !head_.leads_to(*link->_parent) || made_.contains(link))
          continue;
        Outcome outcome = LinkTrial(parser_, modifier_, head_, *link).run();
        End end{link_of(*link), outcome.stage, fit_of(*link)};
        end.link.reason = std::move(outcome.reason);
        if (end.link.reason.text.empty()) tell_unknown(end.link.reason);
        if (end.link.reason.place.line == 0) end.link.reason.place = end.link.place;
        ends_.push_back(std::move(end));
      }
  }
  int fit_of(const Link& link) const {
    const auto has = [](const std::vector<const GCate*>& nodes, const GCate* node) {
      return std::find(nodes.begin(), nodes.end(), node) != nodes.end() ? 1 : 0;
    };
    return has(modifier_nodes_, link._child) + has(head_nodes_, link._parent);
  }
  static void tell_unknown(WhyReason& reason) {
    reason.kind = WhyKind::incomplete;
    reason.text =
        "nothing stands in the way of it now: a value was another one when the parser came "
        "to it";
  }

  /// Two phrases of one category, the first of which is the head.
  void try_conjunctions() {
    const int m = modifier_.word(), h = head_.word();
    for (const GCate* node : modifier_.nodes()) {
      const Link* link = node->_conj_link;
      if (!link || node->_conj_consistent.is_empty() || !head_.leads_to(*node) ||
          made_.contains(link))
        continue;
      End end{link_of(*link), Stage::side};
      WhyReason& reason = end.link.reason;
      reason.kind = WhyKind::wrong_side;
      reason.text = "of conjuncts the first one is the head";
      if (h < m) {
        Outcome outcome = ConjunctTrial(*this, *node).run();
        end.stage = outcome.stage;
        reason = std::move(outcome.reason);
        if (reason.text.empty()) tell_unknown(reason);
      }
      if (reason.place.line == 0) reason.place = end.link.place;
      ends_.push_back(std::move(end));
    }
  }

  class ConjunctTrial {
   public:
    ConjunctTrial(PairExplainer& all, const GCate& node) : all_(all), node_(node) {}

    Outcome run() {
      TorvaneParser& parser = all_.parser_;
      const std::vector<Placed> rights = all_.modifier_.complete(node_);
      const std::vector<Placed> lefts = all_.head_.complete(node_);
      if (rights.empty()) return {Stage::item, all_.modifier_.missing(node_)};
      if (lefts.empty()) return {Stage::item, all_.head_.missing(node_)};
      Outcome best;
      RunReplay replay(parser);
      for (const Placed& right : rights) {
        const int end = replay.conjunct_end(node_, *right.item, right.position);
        const std::string whose = node_._name + " " + quoted(parser.grammar, *right.item);
        if (end < 1) {
          best.improve(Stage::distant,
                       told(WhyKind::not_neighbours, "no conjunction stands before " + whose));
          continue;
        }
        bool meets = false;
        for (const Placed& left : lefts) {
          if (left.item->_high > end) continue;
          if (!only_commas(left.item->_high + 1, end)) continue;
          meets = true;
          join(best, *left.item, *right.item);
        }
        if (!meets)
          best.improve(Stage::position,
                       told(WhyKind::not_neighbours,
                            "no complete " + node_._name + " with " + all_.word(all_.head_.word()) +
                                " as its head ends at the conjunction before " + whose));
      }
      return best;
    }

   private:
    static WhyReason told(WhyKind kind, std::string text) {
      WhyReason reason;
      reason.kind = kind;
      reason.text = std::move(text);
      return reason;
    }
    bool only_commas(int from, int to) const {
      const Grammar& grammar = all_.parser_.grammar;
      for (int i = from; i <= to; ++i)
        if (!grammar.skipped(i) && or_empty(grammar.word(i))[0] != ',') return false;
      return true;
    }
    void join(Outcome& best, const PItem& left, const PItem& right) {
      const std::string both =
          quoted(all_.parser_.grammar, left) + " and " + quoted(all_.parser_.grammar, right);
      const std::string clash = clashes(*left._atts, *right._atts, node_._conj_consistent);
      if (!((left._atts->defined & node_._conj_same) == (right._atts->defined & node_._conj_same)))
        best.improve(Stage::merge,
                     told(WhyKind::attribute,
                          both + " do not both have the values that conjuncts must share"));
      else if (!clash.empty())
        best.improve(Stage::merge,
                     told(WhyKind::attribute, "values of " + both + " do not unify: " + clash));
      else
        condition(best, left, right);
    }
    void condition(Outcome& best, const PItem& left, const PItem& right) {
      ScratchItem joined(left);
      joined->_high = right._high;
      joined->_head_child = const_cast<PItem*>(&left);
      joined->_modifier = const_cast<PItem*>(&right);
      joined->_atts->unify(*right._atts, &node_._conj_consistent, true);
      const ExpPtr& cond = node_._conj_link->_merged_cond;
      Refusal refusal;
      if (cond && !cond->watch(Value::of(&*joined), p_item_type(), refusal))
        best.improve(Stage::merged, condition_reason(all_.world(),
                                                     "the merged-cond for " +
                                                         quoted(all_.parser_.grammar, *joined),
                                                     refusal, cond));
    }

    PairExplainer& all_;
    const GCate& node_;
  };

  /// Links that a reading would have had which was lost.
  void try_lost() {
    for (const Lost& lost : lost_) {
      const bool of_modifier = lost.item->head == modifier_.word();
      if (!lost.node || (!of_modifier && lost.item->head != head_.word())) continue;
      for (const GCate* node : above(*lost.node)) {
        const WordWay& way = of_modifier ? modifier_ : head_;
        if (way.leads_to(*node)) continue;
        if (of_modifier) {
          for (const Link* link : node->out_links())
            if (!is_head_link(*link) && head_.leads_to(*link->_parent)) add_lost(lost, *link);
        } else {
          for (int p = 0; p < node->n_positions(); ++p)
            for (const Link* link : node->links_at(p))
              if (!is_head_link(*link) && link->_child && modifier_.leads_to(*link->_child))
                add_lost(lost, *link);
        }
      }
    }
  }
  void add_lost(const Lost& lost, const Link& link) {
    if ((link.position() < link._parent->head()) != (modifier_.word() < head_.word())) return;
    if (!lost_links_.insert(&link).second) return;
    End end{link_of(link), Stage::lost};
    WhyReason& reason = end.link.reason;
    reason.kind = WhyKind::lost_reading;
    reason.text = "the reading " + lost.node->_name + " of " +
                  quoted(parser_.grammar, lost.item->low, lost.item->high) + " was dropped";
    if (lost.by.name) reason.text += " by the rule " + std::string(lost.by.name);
    if (lost.by.rule) reason.place = place_of(world(), lost.by.rule);
    ends_.push_back(std::move(end));
  }
  static std::vector<const GCate*> above(const GCate& node) {
    std::vector<const GCate*> all{&node};
    for (std::size_t i = 0; i < all.size(); ++i)
      for (const Link* link : all[i]->out_links())
        if (is_head_link(*link) && std::find(all.begin(), all.end(), link->_parent) == all.end())
          all.push_back(link->_parent);
    return all;
  }

  /// What the head's categories would take on that side, of which the modifier is nothing.
  void tell_no_links() {
    for (const GCate* node : head_.nodes())
      for (int p = 0; p < node->n_positions(); ++p) {
        if ((p < node->head()) != (modifier_.word() < head_.word())) continue;
        for (const Link* link : node->links_at(p)) {
          if (is_head_link(*link) || !link->_child) continue;
          End end{link_of(*link), Stage::reading};
          end.link.reason.kind = WhyKind::no_reading;
          end.link.reason.text =
              word(modifier_.word()) + " has no reading that leads to " + link->_child->_name;
          ends_.push_back(std::move(end));
        }
      }
  }

  void finish() {
    std::stable_sort(ends_.begin(), ends_.end(),
                     [](const End& a, const End& b) { return a.rank() > b.rank(); });
    for (End& end : ends_) result_.links.push_back(std::move(end.link));
    result_.answer = answer();
    const WhyKind kind = result_.answer.kind;
    if (!was_cut_ || kind == WhyKind::chosen || kind == WhyKind::dearer) return;
    WhyReason cut;
    cut.kind = WhyKind::cut;
    cut.text = "the sentence had used up all the phrases that one may have";
    cut.details.push_back("as far as it came: " + result_.answer.text);
    result_.answer = std::move(cut);
  }
  WhyReason answer() {
    const int h = head_.word();
    WhyReason reason;
    if (result_.own == h) {
      reason.kind = WhyKind::chosen;
      reason.text = h == 0 ? word(modifier_.word()) + " is the root of its tree"
                           : word(modifier_.word()) + " is under " + word(h) + " already";
    } else if (result_.dearer) {
      reason.kind = WhyKind::dearer;
      reason.text = dearer_text(*result_.dearer);
    } else if (h == 0) {
      reason.kind = WhyKind::no_result;
      reason.text = "no tree over these words has " + word(modifier_.word()) + " as its root";
    } else if (result_.links.empty() || result_.links.front().reason.kind == WhyKind::no_reading) {
      reason.kind = WhyKind::no_reading;
      reason.text = "no link of the grammar takes a reading of " + word(modifier_.word()) +
                    " under one of " + word(h);
    } else {
      reason = result_.links.front().reason;
    }
    return reason;
  }

  TorvaneParser& parser_;
  const bool was_cut_;  // there was no room for all phrases
  const WordWay modifier_, head_;
  std::vector<Lost> lost_;
  std::set<const Link*> made_, lost_links_;
  const Link* own_link_ = nullptr;
  std::vector<const GCate*> modifier_nodes_, head_nodes_;  // of the readings in the chosen tree
  std::vector<End> ends_;
  PairReasons result_;
};

}  // namespace

TreeReasons explain_tree(TorvaneParser& parser) {
  TreeReasons result;
  Roots roots(parser);
  const auto best = price_chosen(roots);
  if (!best) return result;
  result.costs = costs_of(*best);
  for (const PricedRow& row : best->rows) {
    TreeReasons::Word word{row.word, row.head, row.relation, row.cost, {}, 0, {}};
    const auto other = price(roots, [&](int modifier, int head, const Link*) {
      return modifier != row.word || head != row.head;
    });
    if (const PricedRow* found = other ? other->row_of(row.word) : nullptr) {
      word.dearer = other->total - best->total;
      word.other_head = found->head;
      word.other_relation = found->relation;
    }
    result.words.push_back(std::move(word));
  }
  std::sort(result.words.begin(), result.words.end(),
            [](const auto& a, const auto& b) { return a.word < b.word; });
  return result;
}

PairReasons explain_pair(TorvaneParser& parser, int modifier, int head,
                         const std::vector<LexLoss>& losses) {
  const int made = parser.chart.items_made();
  const bool was_cut = parser.chart.is_exhausted();
  parser.chart.forget_after(0);  // room for what is tried again
  PairReasons reasons = PairExplainer(parser, modifier, head, was_cut).run(losses);
  parser.chart.forget_after(made);
  return reasons;
}

}  // namespace torvane
