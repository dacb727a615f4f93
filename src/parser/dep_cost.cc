#include "parser/dep_cost.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "deps/dep_statistics.h"
#include "parser/parsing.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"
#include "shell/file_search.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {
namespace {

constexpr float kWorst = 40.0f;
constexpr float kLeastDistanceCost = 0.1f;
constexpr int kCacheBuckets = 200011;

bool is_preposition(const PItem& item) {
  const SyntaxAtts& syn = syntax_atts(*item._atts);
  return syn.cat_p != 0 && value_of(*item._atts, syn.cat) == syn.cat_p;
}

/// The root form; "{FORM/..." stands for FORM.
std::string_view root_word(const PItem& item) {
  const LexItem* lexitem = lexitem_of(item);
  std::string_view root = lexitem ? or_empty(lexitem->root) : "";
  if (root.starts_with('{')) root = root.substr(1, root.find('/') - 1);
  if (!root.empty()) return root;
  const char* form = text_of(*item._atts, syntax_atts(*item._atts).cform);
  return form ? form : "~";
}

int word_position(const PItem& item, bool preposition) {
  const LexItem* lexitem = preposition ? nullptr : lexitem_of(item);
  return lexitem ? lexitem->head : item._low;
}

std::string_view category_text(const PItem& item) {
  const GCate* node = node_of(item);
  std::string_view name = node ? node->_short_name : std::string_view();
  if (name == "NN") return "N";
  return name == "I" ? "V" : name;
}

float distance_cost(World& world, const char* relation, int distance) {
  double p = distance_probability(world, relation, distance);
  if (p <= 0) return kWorst;
  return std::max(static_cast<float>(-0.5 * std::log(p)), kLeastDistanceCost);
}

float association_cost(DepStatistics* statistics, const char* word1, const char* key,
                       const char* word2) {
  float p = statistics ? statistics->dependency_probability(word1, key, word2) : 1.0f;
  return p > 0 ? 0.0f - std::log(p) : kWorst;
}

}  // namespace

const DistTable& Parsing::distances(World& world) {
  if (!distances_) {
    distances_ = std::make_unique<DistTable>();
    if (Ref<Stream> file = world.files.open("dist.txt"); file && file->in())
      distances_->read(*file->in());
  }
  return *distances_;
}

double distance_probability(World& world, const char* relation, int distance) {
  return parsing(world).distances(world).probability(relation, distance);
}

HeadSide::HeadSide(const PItem& item)
    : word(root_word(item)),
      category(category_text(item)),
      preposition(is_preposition(item)),
      pform(text_of(*item._atts, syntax_atts(*item._atts).pform)) {
  const LexItem* lexitem = lexitem_of(item);
  name = lexitem ? lexitem->role : nullptr;
  position = word_position(item, preposition);
}

ModifierSide::ModifierSide(const PItem& item)
    : word(root_word(item)),
      category(category_text(item)),
      position(word_position(item, is_preposition(item))) {
  if (word == "_NUM" || category == "Appo" || category == "PRO" || category == "P") category = "N";
}

float dep_cost(TorvaneParser& parser, const HeadSide& head, const ModifierSide& modifier,
               const char* relation) {
  static thread_local std::string rel, word1, key, word2, triple;
  rel = or_empty(relation);
  std::string_view category = head.category;
  if (head.preposition && rel == "subj") {
    category = head.name ? head.name : "C";
    rel.append("-").append(or_empty(head.pform));
  }
  int distance = std::abs(head.position - modifier.position);
  float by_distance = distance_cost(parser._world, rel.c_str(), distance);
  if (category == "Prep") return by_distance;

  word1 = head.word;
  word2 = modifier.word;
  key.assign(category).append(":").append(rel).append(":").append(modifier.category);
  triple.assign(word1).append("\t").append(key).append("\t").append(word2);
  // Kept: bad-triple-costs-40
  if (parser._bad_triples && parser._bad_triples->find(triple.c_str())) return kWorst;
  if (!parser._cost_cache) parser._cost_cache = std::make_unique<NameTable<float>>(kCacheBuckets);
  // Kept: costs-outlive-sentences
  const auto* cached = parser._cost_cache->find(triple.c_str());
  if (cached) return cached->value + by_distance;
  float value = association_cost(parser._reldb, word1.c_str(), key.c_str(), word2.c_str());
  parser._cost_cache->insert(triple.c_str(), value);
  if (parsing(parser._world).debug_weight)
    messages() << triple << '\t' << value << " dist=" << distance << " distp=" << by_distance
               << '\n';
  return value + by_distance;
}

const char* step_relation(const PItem& merged) {
  const SyntaxAtts& syn = syntax_atts(*merged._atts);
  const Link* link = merged._link;
  const AttVec& head = *merged._head_child->_atts;
  const AttVec& modifier = *merged._modifier->_atts;
  const char* type = link ? link->_type : nullptr;
  if (is_preposition(*merged._modifier))
    if (const char* pform = text_of(modifier, syn.pform)) return pform;
  const AttVecList* args = list_of(head, syn.args);
  if (args && type && std::strncmp(type, "comp", 4) == 0) {
    const AttVec* arg = args->at(link->_position - 1);
    const char* role = arg ? text_of(*arg, syn.role) : nullptr;
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
