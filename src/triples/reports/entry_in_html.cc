// `print-tripledb-entry-in-html`: the features of words, each with a link to its sentences.
#include <algorithm>
#include <cstdlib>
#include <string>

#include "shell/named_objects.h"
#include "shell/world.h"
#include "triples/db/mutual_info.h"
#include "triples/reports/my_ostream.h"
#include "triples/reports/offers.h"
#include "triples/reports/relation_texts.h"
#include "triples/reports/report_parts.h"

namespace torvane {
namespace {

/// An entry's relations with each beside its inverse.
Array<const RelInfo*> paired_relations(const TripleDbInfo& entry) {
  Array<const RelInfo*> rels(entry.rels.count());
  for (const RelInfo& rel : entry.rels) rels.append(&rel);
  rels.sort([](const RelInfo* a, const RelInfo* b) { return std::abs(a->id) - std::abs(b->id); });
  return rels;
}

Array<WordCount> by_count(const RelInfo& rel) {
  Array<WordCount> words(rel.word_count());
  for (const WordCount& word : rel) words.append(word);
  words.sort([](const WordCount& a, const WordCount& b) {
    return int{a.freq < b.freq} - int{a.freq > b.freq};
  });
  return words;
}

void print_entry(MyOStream& out, const TripleDbInfo& entry, const RelationTexts& texts,
                 const char* url) {
  out << "<h3>" << entry.key << "</h3>";
  for (const RelInfo* rel : paired_relations(entry)) {
    std::string name = texts.name_of(rel->id);
    out << texts.text_of(rel->id).c_str() << " " << rel->freq << " times:<br>\n";
    for (const WordCount& word : by_count(*rel)) {
      std::string query = word.word;
      std::replace(query.begin(), query.end(), ' ', '+');
      out << "\t\t" << url << "head=%22" << entry.key << "%22&rel=%22" << name.c_str()
          << "%22&modifier=%22" << query.c_str() << "%22>" << word.word << "</a> " << word.freq
          << ",\n";
    }
    out << "<p>";
  }
}

Value print_tripledb_entry_in_html(World& world, IRSlist* form) {
  std::unique_ptr<IRSlist> words = form->take_keyword_node(":words");
  const char* output = form->take_keyword_str(":output");
  const char* url = form->take_keyword_str(":url");
  // Kept: index-url-does-nothing
  form->take_keyword_node(":index-url");  // has no place on the page
  TripleDb* db = take_triple_db(world, form);
  if (!db) return Value();
  RelationTexts texts(*db, *form);
  MyOStream standard(world.out());
  auto* given = output ? world.objects.find_as<MyOStream>(output, "MyOStream", false) : nullptr;
  MyOStream& out = given ? *given : standard;

  StrBufs buf;
  Slist<char*> list;
  if (words) get_string_list(world, *words, buf, list);
  for (const char* word : list) {
    TripleDbInfo* entry = db->find(word);
    if (!entry) continue;
    db->load_details(*entry);
    print_entry(out, *entry, texts, url);
  }
  out.flush();
  return Value();
}

constexpr Command kEntryInHtmlCommands[] = {
    {"print-tripledb-entry-in-html", print_tripledb_entry_in_html,
     "(print-tripledb-entry-in-html db :codes ((id explanation) ...) :words (...)) print tripledb "
     "entry in html format."},
};

}  // namespace

constinit const Offer offers::entry_in_html{kEntryInHtmlCommands};

}  // namespace torvane
