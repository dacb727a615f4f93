// How an entry lies in the store: the main record, which a look-up reads, and the detail record
// with the words of each relation, which is read when it is asked for.

#include <algorithm>
#include <climits>

#include "support/packed_reader.h"
#include "triples/db/triple_db.h"

namespace torvane {

namespace {

constexpr std::size_t kRelSize = 12;
constexpr std::size_t kClassSize = 8;

void add_int(StrBufs& buf, int value) {
  buf.add_be32(static_cast<std::uint32_t>(value));
}

}  // namespace

void TripleDb::pack_global(StrBufs& buf) {
  PLHash::pack_global(buf);
  ids.pack(buf);
}

bool TripleDb::unpack_global(StrBufs& buf) {
  Str2Id stored(ids.bucket_count());
  const char* cursor = buf.object() + sizeof(std::uint32_t);
  const char* end = buf.object() + buf.object_size();
  if (!stored.unpack(cursor, end) || !PLHash::unpack_global(buf)) return false;
  ids.swap(stored);
  for_each([&](PLHashEntry* entry) { move_to_ids(*static_cast<TripleDbInfo*>(entry), stored); });
  return true;
}

// An entry that was made before there was a store gets the strings and ids of the store's table,
// which go on where that ends.
void TripleDb::move_to_ids(TripleDbInfo& entry, const Str2Id& old) {
  auto text = [&](const char* word) { return ids.get_string(ids.get_id(word, true)); };
  auto number = [&](int id) {
    const int base = std::abs(id);
    if (base == 0 || base >= old.count()) return id;
    const int now = ids.get_id(old.get_string(base), true);
    return id < 0 ? -now : now;
  };
  auto by_id = [](const auto& a, const auto& b) { return a.id < b.id; };
  entry.key = text(entry.key);
  for (RelInfo& rel : entry.rels) {
    rel.id = number(rel.id);
    for (WordCount& word : rel) word.word = text(word.word);
  }
  for (ClassCount& of_class : entry.classes) of_class.id = number(of_class.id);
  std::sort(entry.rels.begin(), entry.rels.end(), by_id);
  std::stable_sort(entry.classes.begin(), entry.classes.end(), by_id);
}

void TripleDb::v_pack_entry(PLHashEntry* packed, StrBufs& buf) {
  auto& entry = *static_cast<TripleDbInfo*>(packed);
  if (has_file() && !pack_details(entry)) return;
  buf.add_text(entry.key);
  buf.add_float(entry.freq);
  buf.add_float(entry.invFreq);
  buf.add_float(entry.info);
  add_int(buf, std::max(entry.detail_pos, 0));
  add_int(buf, entry.rels.count());
  for (const RelInfo& rel : entry.rels) {
    add_int(buf, rel.id);
    buf.add_float(rel.freq);
    buf.add_float(rel.info);
  }
  add_int(buf, entry.classes.count());
  for (const ClassCount& of_class : entry.classes) {
    add_int(buf, of_class.id);
    buf.add_float(of_class.count);
  }
}

PLHashEntry* TripleDb::v_unpack_entry(StrBufs& buf) {
  PackedReader fields(buf.object(), buf.object_size());
  const char* key = fields.text();
  if (!fields.good()) return nullptr;
  auto entry = std::make_unique<TripleDbInfo>(ids.get_string(ids.get_id(key, true)));
  entry->freq = fields.real();
  entry->invFreq = fields.real();
  entry->info = fields.real();
  entry->detail_pos = -std::max(fields.integer(), 0);
  int rel_count = fields.count(kRelSize);
  entry->rels.reserve(rel_count);
  for (int i = 0; i < rel_count; ++i) {
    RelInfo rel(std::max(fields.integer(), -INT_MAX));  // an id can always be negated
    rel.freq = fields.real();
    rel.info = fields.real();
    entry->rels.append(std::move(rel));
  }
  int class_count = fields.count(kClassSize);
  entry->classes.reserve(class_count);
  for (int i = 0; i < class_count; ++i) {
    int id = fields.integer();
    entry->classes.append(ClassCount{id, fields.real()});
  }
  return fields.good() ? entry.release() : nullptr;
}

// False if the record could not be written.
bool TripleDb::pack_details(TripleDbInfo& entry) {
  load_details(entry);
  QHash& store = file->of(entry.key);
  auto has_words = [](const RelInfo& rel) { return rel.word_count() > 0; };
  if (std::none_of(entry.rels.begin(), entry.rels.end(), has_words)) {
    if (entry.detail_pos > 0 && is_writable()) {
      const auto old = static_cast<std::uint32_t>(entry.detail_pos);
      store.write_record(old, nullptr, 0);  // gives its overflow back
      store.release(old, 0);
    }
    entry.detail_pos = 0;
    return true;
  }
  StrBufs& buf = details_;
  buf.reset();
  add_int(buf, entry.rels.count());
  for (const RelInfo& rel : entry.rels) {
    add_int(buf, rel.word_count());
    for (const WordCount& word : rel) {
      add_int(buf, ids.get_id(word.word, false));
      buf.add_float(word.freq);
      if (save_mutinfo_) buf.add_float(word.mi);
    }
  }
  std::uint32_t pos = store.write_record(static_cast<std::uint32_t>(entry.detail_pos), buf.object(),
                                         buf.object_size());
  if (pos > 0) entry.detail_pos = static_cast<std::int32_t>(pos);
  return pos > 0;
}

// True if the bytes are the details of this entry's relations, and no more. Words that are not in
// the table of ids are left out.
bool TripleDb::unpack_details(TripleDbInfo& entry, const char* bytes, std::size_t length,
                              bool with_mutinfo) {
  const std::size_t row_size = with_mutinfo ? 12 : 8;
  PackedReader check(bytes, length);
  if (check.integer() != entry.rels.count()) return false;
  for (int i = 0; i < entry.rels.count(); ++i)
    check.skip(static_cast<std::size_t>(check.count(row_size)) * row_size);
  if (!check.good() || !check.at_end()) return false;

  PackedReader fields(bytes + 4, length - 4);
  for (RelInfo& rel : entry.rels) {
    int n = fields.count(row_size);
    if (n == 0) continue;
    rel.words = std::make_unique<Array<WordCount>>(n);
    for (int k = 0; k < n; ++k) {
      WordCount word{id_to_string(fields.integer()), fields.real()};
      if (with_mutinfo) word.mi = fields.real();
      if (word.word) rel.words->append(word);
    }
  }
  return true;
}

// The position may be of another store (of an entry that was copied) or of a damaged one, so the
// record is believed only if it fits. The store does not tell whether it holds mutual information,
// but the length of a record does.
void TripleDb::load_details(TripleDbInfo& entry) {
  if (entry.detail_pos >= 0) return;
  entry.detail_pos = -entry.detail_pos;
  StrBufs& buf = details_;
  buf.reset();
  std::size_t length = has_file() ? file->of(entry.key).read_record(
                                        static_cast<std::uint32_t>(entry.detail_pos), buf)
                                  : 0;
  bool with_mutinfo = save_mutinfo_;
  if (!unpack_details(entry, buf.object(), length, with_mutinfo) &&
      !unpack_details(entry, buf.object(), length, !with_mutinfo))
    entry.detail_pos = 0;
}

}  // namespace torvane
