#include "triples/db/populate.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "support/messages.h"
#include "triples/db/triple_db.h"

namespace torvane {

namespace {

constexpr int kWordsPerLine = 1000;    // of progress, in the first pass
constexpr int kEntriesPerSign = 2000;  // of life, in the second

int signed_id(const char* relation, int id) {
  return *relation == '-' ? -id : id;
}

const char* base_name(const char* relation) {
  return *relation == '-' ? relation + 1 : relation;
}

/// The first pass: what the relation file says of the current word.
class RelationPass {
 public:
  RelationPass(TripleDb& db, const PopulateLimits& limits, int population)
      : db_(db), limits_(limits), population_(population) {}

  void run(std::istream& in) {
    TripleRowReader row(in);
    while (row.next()) {
      if (!has_word_ || word_ != row.word()) {
        finish_word();
        start_word(row.word());
      }
      if (is_blank_field(row.relation()))
        take_total(row);
      else
        take_relation(row);
    }
    finish_word();
    db_.add_to_total(relation_total_);
  }

 private:
  void start_word(const char* word) {
    has_word_ = true;
    word_ = word;
    freq_ = inv_freq_ = 0;
    word_total_ = 0;
    classes_.clear();
    seen_relation_ = false;
    entry_ = nullptr;
    if (++words_ % kWordsPerLine == 0) messages() << word << '\n';
  }

  void take_total(const TripleRowReader& row) {
    float count = row.count();
    word_total_ += count;
    if (std::strcmp(row.other(), "freq") == 0)
      freq_ += count;
    else if (std::strcmp(row.other(), "invFreq") == 0)
      inv_freq_ += count;
    else
      classes_.append(ClassCount{db_.ids.get_id(row.other(), true), count});
  }

  void take_relation(const TripleRowReader& row) {
    seen_relation_ = true;
    int id = signed_id(row.relation(), db_.ids.get_id(base_name(row.relation()), true));
    float count = row.count();
    // Kept: total-counts-dropped-rows
    if (id > 0) relation_total_ += static_cast<double>(count);
    if (!(word_total_ >= limits_.min_freq && count >= limits_.min_rel_freq)) return;
    if (!entry_) make_entry();
    int place;
    RelInfo* rel = entry_->find_rel(id, place);
    if (!rel) {
      entry_->rels.insert_at(place, RelInfo(id));
      rel = entry_->rels.data() + place;
    }
    if (std::strcmp(row.other(), " ") == 0)
      rel->freq = count;
    else
      messages() << "format error in data\n";
  }

  void finish_word() {
    // Kept: word-without-relations-stays
    if (has_word_ && !entry_ && (word_total_ >= limits_.min_freq || !seen_relation_)) make_entry();
  }

  // An entry of an earlier run is emptied first; one of this pass, met again because the rows are
  // not sorted, goes on.
  void make_entry() {
    entry_ = db_.get_entry(word_.c_str());
    if (entry_->population != population_) {
      db_.load_details(*entry_);  // knows then whether there is a detail record to write over
      entry_->rels.clear();
      entry_->classes.clear();
      entry_->freq = entry_->invFreq = entry_->info = 0;
      entry_->population = population_;
    }
    entry_->freq += freq_;
    entry_->invFreq += inv_freq_;
    for (const ClassCount& of_class : classes_) entry_->classes.append(of_class);
    std::stable_sort(entry_->classes.begin(), entry_->classes.end(),
                     [](const ClassCount& a, const ClassCount& b) { return a.id < b.id; });
    entry_->mark_changed();
  }

  TripleDb& db_;
  const PopulateLimits limits_;
  const int population_;
  bool has_word_ = false;
  std::string word_;
  float freq_ = 0;
  float inv_freq_ = 0;
  float word_total_ = 0;
  Array<ClassCount> classes_;
  bool seen_relation_ = false;
  TripleDbInfo* entry_ = nullptr;
  int words_ = 0;
  double relation_total_ = 0;
};

/// The second pass: the words under the relations that the first one made.
class DetailPass {
 public:
  DetailPass(TripleDb& db, const PopulateLimits& limits) : db_(db), limits_(limits) {}

  void run(std::istream& in) {
    TripleRowReader row(in);
    while (row.next() && !full()) {
      if (!has_word_ || word_ != row.word()) {
        finish_word();
        start_word(row.word());
      }
      if (entry_ && !is_blank_field(row.relation())) take_triple(row);
    }
    if (!full()) finish_word();
  }

 private:
  /// What comes cannot be kept: the sync at the end says so.
  bool full() const { return db_.has_file() && db_.file->is_full(); }

  void start_word(const char* word) {
    has_word_ = true;
    word_ = word;
    relation_.clear();
    rel_ = nullptr;
    entry_ = db_.find_in_memory(word);
    if (!entry_) return;
    db_.load_details(*entry_);
    info_ = entry_->info;
  }

  void start_relation(const char* relation) {
    relation_ = relation;
    const char* name = base_name(relation);
    rel_ = db_.find_in_memory(name)
               ? entry_->find_rel(signed_id(relation, db_.ids.get_id(name, false)))
               : nullptr;
  }

  void take_triple(const TripleRowReader& row) {
    if (relation_ != row.relation()) start_relation(row.relation());
    if (!rel_ || std::strcmp(row.other(), " ") == 0) return;
    TripleDbInfo* other = db_.find_in_memory(row.other());
    if (!other) return;
    WordCount word{other->key, row.count(), WordCount::kUnknown};
    float mi = 0;
    if (const RelInfo* inverse = other->find_rel(-rel_->id))
      mi = word.mi = db_.mutinfo(word.freq, rel_->freq, inverse->freq);
    if (is_kept(word, mi)) keep(word);
    // Kept: dropped-triples-inform
    rel_->info += std::fabs(mi);
    info_ += std::fabs(mi);
  }

  bool is_kept(const WordCount& word, float mi) const {
    // Kept: no-min-freq-keeps-all
    if (limits_.min_freq == 0) return true;
    return mi > limits_.min_info && log_likelihood(word, *rel_, db_) > limits_.min_logl;
  }

  void keep(const WordCount& word) {
    Array<WordCount>& list = rel_->word_list();
    int place = list.count();
    if (place > 0 && compare_words(list.back().word, word.word) >= 0) {
      if (WordCount* known = rel_->find_word(word.word, place)) {
        known->freq += word.freq;
        return;
      }
    }
    list.insert_at(place, word);
  }

  void finish_word() {
    if (!entry_) return;
    entry_->info = info_;
    entry_->mark_changed();
    db_.save_entry(entry_);
    entry_->drop_details();
    if (++entries_ % kEntriesPerSign == 0)
      messages() << entry_->key << '\t' << entry_->freq << '\t' << entry_->invFreq << '\n';
  }

  TripleDb& db_;
  const PopulateLimits limits_;
  bool has_word_ = false;
  std::string word_;
  TripleDbInfo* entry_ = nullptr;
  float info_ = 0;
  std::string relation_;
  RelInfo* rel_ = nullptr;
  int entries_ = 0;
};

}  // namespace

bool TripleRowReader::next(int wanted) {
  while (std::getline(in_, line_)) {
    int count = 0;
    char* field = line_.data();
    char* const end = field + line_.size();
    while (true) {
      char* tab = std::find(field, end, '\t');
      if (count < kFields) fields_[static_cast<std::size_t>(count++)] = field;
      if (tab == end) break;
      *tab = 0;
      field = tab + 1;
    }
    if (count >= wanted && *fields_[0]) return true;
  }
  return false;
}

float TripleRowReader::count() const {
  double value = std::strtod(fields_[3], nullptr);
  return std::fabs(value) <= static_cast<double>(FLT_MAX) ? static_cast<float>(value) : 0.0F;
}

void TripleDb::populate_relations(std::istream& in, const PopulateLimits& limits) {
  RelationPass(*this, limits, ++populations_).run(in);
}

void TripleDb::populate(std::istream& in, const PopulateLimits& limits) {
  DetailPass(*this, limits).run(in);
  sync();
}

}  // namespace torvane
