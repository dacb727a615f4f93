// Chains that lead back to themselves: an empty object next to its verb makes an alternative of the
// very verb that it was made from. Of the alternatives of its head (or modifier) that are made from
// it in turn, an item then takes those that were made before it; so each takes part in the choice,
// and none is a part of itself.
#include <algorithm>
#include <bit>

#include "parser/forest/parse_forest.h"

namespace torvane {

/// Builds a chain and all that it consists of, circle by circle: the strongly connected components
/// of what chains and items are made from, found by one walk in depth.
class ParseForest::Circles {
 public:
  explicit Circles(ParseForest& forest) : forest_(forest) {}

  void build(Chain& wanted) {
    enter(node_of(wanted));
    while (!path_.empty()) {
      Step& step = path_.back();
      if (step.next_part == kParts) {
        leave();
        continue;
      }
      int part = unbuilt_part(step.node, step.next_part++);
      if (part < 0) continue;
      if (visit(part).number == 0) {
        enter(part);
      } else {
        Visit& from = visit(path_.back().node);
        from.oldest = std::min(from.oldest, visit(part).number);
      }
    }
  }

 private:
  static constexpr int kParts = 2;
  struct Visit {
    int number = 0;  // 0: not yet visited
    int oldest = 0;  // the first of those visited that it is known to lead back to
  };
  /// The chain is one node of the walk, its first item alone the other.
  struct Place {
    Chain* chain;
    Visit visits[2];
    bool follows = false;  // the chain is the rest of another one of the circle
    std::size_t row = 0, position = 0;
  };
  struct Step {
    int node;
    int next_part = 0;
  };
  /// What is known so far of the choices along a chain, from any of its places on. The leaves of
  /// the tree are the places, with what follows the chain behind them; each node joins the two
  /// below it.
  class OpenChoices {
   public:
    explicit OpenChoices(const std::vector<Derivations>& places = {})
        : width_(std::bit_ceil(places.size())), tree_(2 * width_) {
      std::copy(places.begin(), places.end(), tree_.begin() + static_cast<std::ptrdiff_t>(width_));
      for (std::size_t i = width_; --i > 0;) tree_[i] = join(tree_[2 * i], tree_[2 * i + 1]);
    }
    void put(std::size_t place, const Derivations& choices) {
      std::size_t i = place + width_;
      tree_[i] = choices;
      while (i /= 2) tree_[i] = join(tree_[2 * i], tree_[2 * i + 1]);
    }
    Derivations from(std::size_t place) const {
      std::size_t i = place + width_;
      Derivations choices = tree_[i];
      for (; i > 1; i /= 2)
        if (i % 2 == 0) choices = join(choices, tree_[i + 1]);
      return choices;
    }

   private:
    std::size_t width_;
    std::vector<Derivations> tree_;
  };
  /// A chain of the circle, from the first that the circle leads through.
  struct Row {
    std::vector<Chain*> chains;
    Derivations rest;  // of the chain behind the circle
    OpenChoices open;
  };

  int node_of(Chain& chain) {
    if (chain.number < 0) {
      chain.number = static_cast<int>(places_.size());
      places_.push_back({&chain, {}});
    }
    return 2 * chain.number;
  }
  static bool is_item(int node) { return node % 2 != 0; }
  Place& place(int node) { return places_[static_cast<std::size_t>(node / 2)]; }
  Chain& chain_at(int node) { return *place(node).chain; }
  Visit& visit(int node) { return place(node).visits[node % 2]; }

  /// A chain consists of its first item and the rest, an item of its head and its modifier.
  int unbuilt_part(int node, int n) {
    const PItem& item = *chain_at(node).first;
    if (!is_item(node) && n == 0) return node + 1;
    PItem* part = !is_item(node) ? item._next : n == 0 ? item._head_child : item._modifier;
    if (!part) return -1;
    Chain* chain = forest_.chain_of(part);
    return chain->state == Chain::State::built ? -1 : node_of(*chain);
  }

  void enter(int node) {
    visit(node).number = visit(node).oldest = ++visited_;
    path_.push_back({node});
    open_.push_back(node);
  }

  void leave() {
    int node = path_.back().node;
    path_.pop_back();
    Visit& left = visit(node);
    if (!path_.empty()) {
      Visit& from = visit(path_.back().node);
      from.oldest = std::min(from.oldest, left.oldest);
    }
    if (left.oldest < left.number) return;
    auto begin = std::find(open_.rbegin(), open_.rend(), node).base() - 1;
    std::vector<int> circle(begin, open_.end());
    open_.erase(begin, open_.end());
    build_circle(circle);
  }

  // A node that leads to itself by no way is a circle of its own.
  void build_circle(const std::vector<int>& circle) {
    std::vector<Chain*> items;
    for (int node : circle) {
      if (is_item(node)) {
        items.push_back(&chain_at(node));
      } else if (Chain* rest = unbuilt_rest(chain_at(node))) {
        places_[static_cast<std::size_t>(rest->number)].follows = true;
      }
    }
    rows_.clear();
    for (int node : circle)
      if (!is_item(node) && !place(node).follows) lay_row(chain_at(node));
    std::sort(items.begin(), items.end(),
              [](const Chain* a, const Chain* b) { return a->first->order < b->first->order; });
    for (Chain* item : items) derive(*item, circle.size() > 1);
    for (const Row& row : rows_) close(row);
  }

  Chain* unbuilt_rest(const Chain& chain) {
    Chain* rest = chain.first->_next ? forest_.chain_of(chain.first->_next) : nullptr;
    return rest && rest->state != Chain::State::built ? rest : nullptr;
  }

  void lay_row(Chain& first) {
    Row row;
    std::vector<Derivations> known;
    for (Chain* chain = &first; chain; chain = unbuilt_rest(*chain)) {
      Place& place = places_[static_cast<std::size_t>(chain->number)];
      place.row = rows_.size();
      place.position = row.chains.size();
      row.chains.push_back(chain);
      known.push_back(chain->own);
    }
    if (PItem* behind = row.chains.back()->first->_next)
      row.rest = forest_.chain_of(behind)->choices;
    known.push_back(row.rest);
    row.open = OpenChoices(known);
    rows_.push_back(std::move(row));
  }

  void derive(Chain& chain, bool in_circle) {
    forest_.derive(chain, open_part(chain.first->_head_child), open_part(chain.first->_modifier));
    const Place& place = places_[static_cast<std::size_t>(chain.number)];
    if (in_circle) rows_[place.row].open.put(place.position, chain.own);
  }

  Part open_part(PItem* item) {
    Part part = forest_.part_of(item);
    if (!part.chain || part.chain->state == Chain::State::built) return part;
    const Place& place = places_[static_cast<std::size_t>(part.chain->number)];
    Derivations* view = forest_.views_.take();
    *view = rows_[place.row].open.from(place.position);
    return {part.chain, view};
  }

  static void close(const Row& row) {
    Derivations choices = row.rest;
    for (auto chain = row.chains.rbegin(); chain != row.chains.rend(); ++chain) {
      (*chain)->choices = choices = join((*chain)->own, choices);
      (*chain)->state = Chain::State::built;
    }
  }

  ParseForest& forest_;
  std::vector<Place> places_;
  int visited_ = 0;
  std::vector<Step> path_;
  std::vector<int> open_;  // visited, and in no circle yet
  std::vector<Row> rows_;
};

void ParseForest::build_circles(Chain& wanted) {
  Circles(*this).build(wanted);
}

}  // namespace torvane
