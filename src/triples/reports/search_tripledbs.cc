// `search-tripledbs`: the entries of words.
#include <memory>

#include "shell/world.h"
#include "triples/reports/offers.h"
#include "triples/reports/report_parts.h"

namespace torvane {
namespace {

Value search_tripledbs(World& world, IRSlist* form) {
  Ref<Stream> out = take_output_file(world, *form);
  std::unique_ptr<IRSlist> relation = form->take_keyword_node(":rel");
  TripleDb* db = take_triple_db(world, form);
  if (!db || !out) return Value();
  while (std::unique_ptr<IRSlist> key = form->pop_front())
    if (TripleDbInfo* entry = db->find(key->atom))
      print_triple_entry(*db, *entry, *out->out(), relation ? relation->atom : nullptr);
  return Value();
}

// Kept: search-tripledb-doc
constexpr const char* kDoc = "(search-tripledb <DBNAME> [:rel relation] key1 key2)\n";
constexpr Command kSearchTripledbsCommands[] = {
    {"search-tripledbs", search_tripledbs, kDoc},
    {"st", search_tripledbs, kDoc},
};

}  // namespace

constinit const Offer offers::search_tripledbs{kSearchTripledbsCommands};

}  // namespace torvane
