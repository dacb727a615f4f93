#include "parser/forest/dep_cost.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>

#include "parser/grammar/contract.h"
#include "shell/file_search.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {
namespace {

constexpr float kWorst = 40.0f;
constexpr float kLeastDistanceCost = 0.1f;
constexpr float kAdviceWeight = 0.3f;
constexpr int kCacheBuckets = 200011;
constexpr int kMostFixed = 200000;  // costs that are kept where they can be had again
constexpr int kBadTripleBuckets = 19997;

/// The root form; "{FORM/..." stands for FORM.
std::string_view root_word(const PItem& item) {
  const LexItem* lexitem = lexitem_of(item);
  std::string_view root = lexitem ? or_empty(lexitem->root) : "";
  if (root.starts_with('{')) root = root.substr(1, root.find('/') - 1);
  if (!root.empty()) return root;
  const char* form = text_of(*item._atts, syntax_atts(*item._atts).cform).c_str();
  return form ? form : contract::kNoWord;
}

int word_position(const PItem& item, bool preposition) {
  const LexItem* lexitem = preposition ? nullptr : lexitem_of(item);
  return lexitem ? lexitem->head : item._low;
}

std::string_view renamed(std::string_view category, std::span<const contract::Renaming> names) {
  for (const contract::Renaming& name : names)
    if (category == name.category) return name.counts_as;
  return category;
}

std::string_view category_text(const PItem& item) {
  const GCate* node = node_of(item);
  return node ? renamed(node->_short_name, contract::kCostCategories) : std::string_view();
}

}  // namespace

const DistTable& SharedCosts::distances(World& world) {
  if (!distances_) {
    distances_ = std::make_unique<DistTable>();
    if (Ref<Stream> file = world.files.open("dist.txt"); file && file->in())
      distances_->read(*file->in());
  }
  return *distances_;
}

HeadSide::HeadSide(const PItem& item)
    : word(root_word(item)),
      category(category_text(item)),
      preposition(is_preposition(*item._atts)),
      pform(text_of(*item._atts, syntax_atts(*item._atts).pform).c_str()) {
  const LexItem* lexitem = lexitem_of(item);
  name = lexitem ? lexitem->role : nullptr;
  position = word_position(item, preposition);
}

ModifierSide::ModifierSide(const PItem& item)
    : word(root_word(item)),
      category(renamed(category_text(item), contract::kCostModifiers)),
      position(word_position(item, is_preposition(*item._atts))) {
  if (word == contract::kNumber) category = contract::kNoun;
}

void DepCosts::set_bad_triples(std::istream& in) {
  _bad_triples = std::make_unique<NameTable<char>>(kBadTripleBuckets);
  for (std::string line; std::getline(in, line);) {
    if (line.ends_with('\r')) line.pop_back();
    bool known = line.empty() || _bad_triples->find(line.c_str());
    if (!known) _bad_triples->insert(line.c_str(), 1);
  }
}

/// How probable a distance (in words, at least 1) is for the relation.
float DepCosts::distance_cost(int distance) {
  double p = shared_.distances(world_).probability(relation_.c_str(), distance);
  if (p <= 0) return kWorst;
  return std::max(static_cast<float>(-0.5 * std::log(p)), kLeastDistanceCost);
}

float DepCosts::association_cost() {
  if (_reldb && use == CountsUse::advise)
    return -kAdviceWeight * _reldb->association(word1_.c_str(), key_.c_str(), word2_.c_str());
  float p =
      _reldb ? _reldb->dependency_probability(word1_.c_str(), key_.c_str(), word2_.c_str()) : 1.0f;
  return p > 0 ? 0.0f - std::log(p) : kWorst;
}

std::size_t DepCosts::Pair::place() const {
  auto hash = static_cast<std::uint64_t>(distance);
  for (const char* text : {head, modifier, relation})
    hash = (hash ^ reinterpret_cast<std::uintptr_t>(text)) * 0x9E3779B97F4A7C15u;
  return hash >> (64 - kPairBits);
}

float DepCosts::dep_cost(const HeadSide& head, const ModifierSide& modifier, const char* relation) {
  const Pair pair{head.word.data(),
                  head.category.data(),
                  head.pform,
                  head.name,
                  modifier.word.data(),
                  modifier.category.data(),
                  relation,
                  items_,
                  std::abs(head.position - modifier.position),
                  head.preposition};
  if (pairs_.empty()) pairs_.resize(std::size_t{1} << kPairBits);
  PairCost& known = pairs_[pair.place()];
  if (!(known.pair == pair)) known = {pair, new_cost(head, modifier, relation)};
  return known.cost;
}

float DepCosts::new_cost(const HeadSide& head, const ModifierSide& modifier, const char* relation) {
  relation_ = or_empty(relation);
  std::string_view category = head.category;
  if (head.preposition && relation_ == contract::kSubject) {
    category = head.name ? head.name : contract::kClause;
    relation_.append("-").append(or_empty(head.pform));
  }
  int distance = std::abs(head.position - modifier.position);
  float by_distance = keeps_weights() ? 0 : distance_cost(distance);
  if (category == contract::kByDistanceAlone) return by_distance;

  word1_ = head.word;
  word2_ = modifier.word;
  key_.assign(category).append(":").append(relation_).append(":").append(modifier.category);
  triple_.assign(word1_).append("\t").append(key_).append("\t").append(word2_);
  // Kept: bad-triple-costs-40
  if (_bad_triples && _bad_triples->find(triple_.c_str())) return kWorst;
  if (!_cost_cache) _cost_cache = std::make_unique<NameTable<float>>(kCacheBuckets);
  // Kept: costs-outlive-sentences
  const auto* cached = _cost_cache->find(triple_.c_str());
  if (cached) return cached->value + by_distance;
  float value = association_cost();
  if (fixed_counts && _cost_cache->count() >= kMostFixed) _cost_cache->clear();
  _cost_cache->insert(triple_.c_str(), value);
  if (shared_.debug_weight)
    messages() << triple_ << '\t' << value << " dist=" << distance << " distp=" << by_distance
               << '\n';
  return value + by_distance;
}

Name step_relation(const PItem& merged) {
  const SyntaxAtts& syn = syntax_atts(*merged._atts);
  const Link* link = merged._link;
  const AttVec& head = *merged._head_child->_atts;
  const AttVec& modifier = *merged._modifier->_atts;
  Name type = link ? link->type() : Name();
  if (is_preposition(modifier))
    if (Name pform = text_of(modifier, syn.pform)) return pform;
  if (link && link->kind() == LinkKind::complement && list_of(head, syn.args)) {
    const AttVec* arg = argument_of(head, syn.args, link->position() - 1);
    Name role = arg ? text_of(*arg, syn.role) : Name();
    return role ? role : type;
  }
  const AttVecList* moved = list_of(head, syn.move);
  AttWord mask = (link ? link->_check : 0) | value_of(modifier, syn.check);
  for (int i = 0; moved && i < moved->length(); ++i) {
    const AttVec& element = *moved->at(i);
    if ((value_of(element, syn.slash) & mask) == 0 || !modifier.unifiable(element)) continue;
    const TraceChain* trace = trace_of(element, syn.trace);
    if (trace && !trace->records.empty()) return trace->records.begin()->role;
  }
  return type;
}

}  // namespace torvane
