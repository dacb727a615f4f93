#include "triples/db/triple_db.h"

#include <algorithm>
#include <climits>
#include <vector>

#include "support/messages.h"
#include "triples/db/triple_print.h"

namespace torvane {

namespace {

constexpr long kMostIdBuckets = 1L << 26;

}  // namespace

TripleDb::TripleDb(long bucket_count, long id_bucket_count, bool with_mutinfo)
    : TPLHash(bucket_count),
      ids(static_cast<int>(std::clamp(id_bucket_count, 1L, kMostIdBuckets))),
      save_mutinfo_(with_mutinfo) {}

TripleDb::~TripleDb() {
  delete_all();  // the keys are in `ids`
}

void TripleDb::unlink_file() {
  PLHash::unlink_file();
  clear();
  ids.clear();
  serial_ = 0;
}

void TripleDb::print_entry(PLHashEntry* entry, std::ostream& out) {
  print_triple_entry(*this, *static_cast<TripleDbInfo*>(entry), out);
}

TripleDbInfo* TripleDb::get_entry(const char* word) {
  Slot slot;
  TripleDbInfo* entry = find(word, slot);
  if (entry || !word) return entry;
  entry = new TripleDbInfo(ids.get_string(ids.get_id(word, true)));
  link(slot, entry);
  return entry;
}

void TripleDb::add_triple(const char* word1, int relation_id, const char* word2, float count) {
  if (!word1 || relation_id == INT_MIN) return;
  add_count(count);
  TripleDbInfo* head = get_entry(word1);
  load_details(*head);
  head->add_feature(relation_id, ids.get_id(word2, true), count, *this);
  head->mark_changed();
  head->last_used = serial_++;
  if (word2) {
    TripleDbInfo* other = get_entry(word2);
    load_details(*other);
    other->add_feature(-relation_id, ids.get_id(word1, true), count, *this);
    other->mark_changed();
    other->last_used = serial_;
  }
  const char* relation = id_to_string(relation_id);
  if (!relation) return;
  TripleDbInfo* counted = get_entry(relation);
  load_details(*counted);
  // Kept: relations-are-words
  counted->freq += count;
  counted->mark_changed();
}

// The total and the relation's own count are of the triple, not of its two directions, so they
// change with the positive one only, as they grew.
void TripleDb::remove_word(TripleDbInfo& entry, RelInfo& rel, int index) {
  float count = rel.words->data()[index].freq;
  rel.freq -= count;
  (rel.id < 1 ? entry.invFreq : entry.freq) -= count;
  entry.mark_changed();
  if (const char* relation = id_to_string(rel.id)) {
    if (TripleDbInfo* counted = find(relation)) {
      counted->freq -= count;
      counted->mark_changed();
    }
    add_count(-count);
  }
  rel.words->remove_at(index);
}

void TripleDb::remove_one_way(const char* word1, int relation_id, const char* word2) {
  TripleDbInfo* entry = find(word1);
  if (!entry) return;
  load_details(*entry);
  RelInfo* rel = entry->find_rel(relation_id);
  int index;
  if (rel && rel->find_word(word2, index)) remove_word(*entry, *rel, index);
}

void TripleDb::remove_triple(const char* word1, const char* relation, const char* word2) {
  int id = feature_id(relation, false);
  if (id == 0) return;
  if (word2[0] != ' ') {
    remove_one_way(word1, id, word2);
    remove_one_way(word2, -id, word1);
    return;
  }
  TripleDbInfo* entry = find(word1);
  if (!entry) return;
  load_details(*entry);
  RelInfo* rel = entry->find_rel(id);
  if (!rel) return;
  for (int i = rel->word_count() - 1; i >= 0; --i) {
    const char* other = rel->words->data()[i].word;
    remove_one_way(other, -id, entry->key);
    remove_word(*entry, *rel, i);
  }
}

const char* TripleDb::id_to_string(int id) const {
  return id > 0 && id < ids.count() ? ids.get_string(id) : nullptr;
}

const char* TripleDb::feature_name(int id, StrBufs& buf) const {
  const char* name = id == INT_MIN ? nullptr : id_to_string(id < 0 ? -id : id);
  return name && id < 0 ? buf.concat("-", name) : name;
}

int TripleDb::feature_id(const char* name, bool create) {
  if (!name) return 0;
  return *name == '-' ? -ids.get_id(name + 1, create) : ids.get_id(name, create);
}

void TripleDb::merge_triples(TripleDb& source) {
  struct Triple {
    int relation_id;
    const char* word;
    float count;
  };
  std::vector<Triple> triples;  // apart, since the source may be this database
  for (PLHashIterator walk(source); !walk.done(); walk.next()) {
    auto& entry = *static_cast<TripleDbInfo*>(walk.current());
    source.load_details(entry);
    triples.clear();
    for (const RelInfo& rel : entry.rels) {
      const char* relation = source.id_to_string(rel.id);
      if (!relation) continue;
      int id = ids.get_id(relation, true);
      for (const WordCount& word : rel) triples.push_back({id, word.word, word.freq});
    }
    for (const Triple& triple : triples)
      add_triple(entry.key, triple.relation_id, triple.word, triple.count);
  }
  sync();
}

void TripleDb::CleanUp() {
  const int half = clean_up_after / 2;
  const bool writable = is_writable();
  if (writable) clear_missing();
  std::vector<PLHashEntry*> dropped;
  std::vector<PLHashEntry*> unwritten;
  std::size_t walked = 0, deleted = 0;
  auto write = [&] {
    write_in_order(unwritten);
    for (PLHashEntry* entry : unwritten) {
      if (entry->pos > 0) {
        dropped.push_back(entry);
        continue;
      }
      Slot slot;  // it could not be written, so memory keeps it
      find_in_memory(entry->key, slot);
      link(slot, entry);
      --deleted;
    }
    unwritten.clear();
  };
  unlink_if([&](PLHashEntry* of_word) {
    auto* entry = static_cast<TripleDbInfo*>(of_word);
    ++walked;
    if (entry->last_used > half) {
      entry->last_used -= half;
      return false;
    }
    ++deleted;
    (writable && entry->pos <= 0 ? unwritten : dropped).push_back(entry);
    return true;
  });
  write();
  for (PLHashEntry* entry : dropped) delete_entry(entry);
  messages() << "CleanUp deleted " << deleted << " out of " << walked << '\n';
  serial_ = half;
}

}  // namespace torvane
