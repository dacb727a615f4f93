// The text form of a database: one row a count, fields separated by tabs, which population reads
// back.

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "shell/streams.h"
#include "shell/world.h"
#include "support/messages.h"
#include "triples/db/triple_db.h"

namespace torvane {

namespace {

// Counts of this or less are not worth a row.
// Kept: dump-drops-small-counts
constexpr float kNegligible = 0.5F;

void append_count(std::string& row, float count) {
  char digits[64];
  std::snprintf(digits, sizeof digits, "%f", static_cast<double>(count));
  std::string_view text = digits;
  if (text.find('.') != std::string_view::npos) {
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.remove_suffix(1);
  }
  row += text;
}

std::string make_row(const char* key, const char* field, const char* third, float count) {
  std::string row = key;
  ((row += '\t') += field) += '\t';
  (row += third) += '\t';
  append_count(row, count);
  return row;
}

void write_rows(std::vector<std::string>& rows, std::ostream& out) {
  std::sort(rows.begin(), rows.end(), [](const std::string& a, const std::string& b) {
    return compare_words(a.c_str(), b.c_str()) < 0;
  });
  for (const std::string& row : rows) out << row << '\n';
}

}  // namespace

void TripleDb::dump_entry(TripleDbInfo& entry, std::ostream& rel_stream,
                          std::ostream& detail_stream) {
  load_details(entry);
  // Kept: dump-loses-classes
  std::vector<std::string> rel_rows, detail_rows;
  rel_rows.push_back(make_row(entry.key, " ", "freq", entry.freq));
  rel_rows.push_back(make_row(entry.key, " ", "invFreq", entry.invFreq));
  StrBufs names;
  for (const RelInfo& rel : entry.rels) {
    const char* name = feature_name(rel.id, names);
    if (!name) continue;
    if (rel.freq > kNegligible) rel_rows.push_back(make_row(entry.key, name, " ", rel.freq));
    for (const WordCount& word : rel)
      if (word.freq > kNegligible)
        detail_rows.push_back(make_row(entry.key, name, word.word, word.freq));
  }
  write_rows(rel_rows, rel_stream);
  write_rows(detail_rows, detail_stream);
}

bool TripleDb::dump(std::ostream& rel_stream, std::ostream& detail_stream) {
  std::vector<const char*> keys;
  for (int id = 1; id < ids.count(); ++id) keys.push_back(ids.get_string(id));
  std::sort(keys.begin(), keys.end(),
            [](const char* a, const char* b) { return compare_words(a, b) < 0; });
  for (const char* key : keys) {
    const bool in_memory = find_in_memory(key) != nullptr;
    TripleDbInfo* entry = find(key);
    if (!entry) continue;
    dump_entry(*entry, rel_stream, detail_stream);
    entry->drop_details();
    // What was read for its rows alone goes again, so that a large store can be dumped.
    if (!in_memory && unlink(entry)) delete_entry(entry);
    if (!rel_stream || !detail_stream) break;
  }
  rel_stream.flush();
  detail_stream.flush();
  if (rel_stream && detail_stream) return true;
  messages() << "The dump of the database could not be written\n";
  return false;
}

void TripleDb::dump_and_clear(World& world) {
  std::string number = std::to_string(dump_number_);
  messages() << "CleanUp " << number << '\n';
  Ref<Stream> rels = world.make_ostream((tmp_file_prefix_ + "tmprels." + number).c_str());
  Ref<Stream> details = world.make_ostream((tmp_file_prefix_ + "tmpdeps." + number).c_str());
  if (!rels || !details || !dump(*rels->out(), *details->out())) return;
  clear();
  serial_ = 0;
  ++dump_number_;
  // A store that is linked keeps its ids and its total; records on disk refer to them.
  if (has_file()) return;
  ids.clear();
  clear_total();
}

}  // namespace torvane
