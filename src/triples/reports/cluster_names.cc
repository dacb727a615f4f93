// `name-cluster-by-features`: a short name for each word of a cluster, made of the words that most
// often stand beside it.
#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "shell/file_search.h"
#include "shell/world.h"
#include "triples/reports/offers.h"
#include "triples/reports/relation_set.h"
#include "triples/reports/report_parts.h"

namespace torvane {
namespace {

constexpr int kMostFeatures = 36;
constexpr float kLeastFreq = 0.5F;

struct Feature {
  const char* word = nullptr;
  float freq = 0;
  int count = 0;
  float weight() const { return freq * static_cast<float>(count); }
};

Array<Feature> gather(TripleDb& db, TripleDbInfo& entry, const RelationSet& relations) {
  Array<Feature> features;
  std::unordered_map<const char*, int> places;
  db.load_details(entry);
  for (const RelInfo& rel : entry.rels) {
    if (!relations.has(rel.id)) continue;
    for (const WordCount& word : rel) {
      if (!is_alpha(word.word[0])) continue;
      auto [place, is_new] = places.emplace(word.word, features.count());
      if (is_new) {
        features.append({word.word, word.freq, 1});
      } else {
        Feature& feature = features[place->second];
        // Kept: repeated-feature-plus-1
        feature.freq += word.freq + 1;
        ++feature.count;
      }
    }
  }
  return features;
}

void write_name(std::ostream& out, const char* word, const char* prefix, Array<Feature>& features) {
  features.sort([](const Feature& a, const Feature& b) {
    return int{a.weight() < b.weight()} - int{a.weight() > b.weight()};
  });
  out << word << '\t';
  if (prefix) out << prefix << '|';
  for (int i = 0; i < std::min(features.count(), kMostFeatures); ++i) {
    if (features[i].count < 1 || !(features[i].freq > kLeastFreq)) break;
    std::string text = features[i].word;
    std::replace(text.begin(), text.end(), ' ', '_');
    out << (i > 0 ? "/" : "") << text;
  }
  out << '\t' << features[0].weight() << '\n';
}

/// Every atom of a form, or of the forms in the file that an atom names.
void collect_words(const IRSlist& form, std::vector<std::string>& words) {
  std::vector<const IRSlist*> waiting{&form};
  while (!waiting.empty()) {
    const IRSlist* node = waiting.back();
    waiting.pop_back();
    if (node->is_atom()) words.emplace_back(node->atom);
    std::size_t first = waiting.size();
    for (const IRSlist* item : node->items) waiting.push_back(item);
    std::reverse(waiting.begin() + static_cast<std::ptrdiff_t>(first), waiting.end());
  }
}

std::vector<std::string> take_words(World& world, IRSlist& form) {
  std::vector<std::string> words;
  std::unique_ptr<IRSlist> given = form.take_keyword_node(":words");
  if (!given) given = form.take_keyword_node(":clusters");
  if (!given) return words;
  if (given->is_list()) {
    collect_words(*given, words);
  } else if (Ref<Stream> file = world.files.open(given->atom)) {
    IRSlistReader reader(world.double_byte);
    for (IRSlist* item = reader.start_stream(file.get()); item; item = reader.next())
      collect_words(*item, words);
  }
  return words;
}

Value name_cluster_by_features(World& world, IRSlist* form) {
  std::vector<std::string> words = take_words(world, *form);
  // Kept: init-count-does-nothing
  form->take_keyword_node(":init-count");  // changes nothing
  const char* prefix = form->take_keyword_str(":prefix");
  Ref<Stream> out = take_output_file(world, *form);
  TripleDb* db = take_triple_db(world, form);
  if (!db || !out) return Value();
  RelationSet relations(world, *db, *form);
  for (const std::string& word : words) {
    TripleDbInfo* entry = db->find(word.c_str());
    if (!entry) continue;
    Array<Feature> features = gather(*db, *entry, relations);
    // Kept: first-feature-decides
    if (!features.empty() && features[0].freq > kLeastFreq)
      write_name(*out->out(), entry->key, prefix, features);
  }
  return Value();
}

constexpr Command kClusterNamesCommands[] = {
    {"name-cluster-by-features", name_cluster_by_features,
     "(name-cluster-by-features DBNAME :clusters FILE.lsp :feature LEXP :inv-feature LEXP)."},
};

}  // namespace

constinit const Offer offers::cluster_names{kClusterNamesCommands};

}  // namespace torvane
