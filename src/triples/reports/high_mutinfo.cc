// `print-high-mutinfo`: the words, relations and triples that stand out, by themselves or against
// the counts of a background corpus.
#include <algorithm>
#include <cmath>
#include <optional>

#include "shell/named_objects.h"
#include "shell/world.h"
#include "triples/reports/offers.h"
#include "triples/reports/relation_set.h"
#include "triples/reports/report_parts.h"

namespace torvane {
namespace {

double quotient(double a, double b) {
  return a == 0 && b == 0 ? 0 : a / b;
}
/// How far a share stands out from the background's; 0 where counts make no sense.
double score(double foreground, double background) {
  return std::log(std::max(0.0, quotient(foreground, background)) + 1);
}

class HighMutinfo {
 public:
  HighMutinfo(World& world, TripleDb& db, IRSlist& form);
  bool is_ready() const { return output_ && (background_ || !wants_background_); }
  void print_high_mutinfo(TripleDbInfo& entry);

  std::optional<std::string> word;  ///< the only one to report

 private:
  void print_word(const TripleDbInfo& entry);
  void print_relation(const TripleDbInfo& entry, const RelInfo& rel);
  void print_words(const TripleDbInfo& entry, RelInfo& rel);
  const RelInfo* find_background(const RelationName& name);
  double smoothed_score(float count, float background_count) const;

  template <class... Fields>
  void row(const Fields&... fields) {
    write_row(*output_->out(), fields...);
  }

  TripleDb& db_;
  RelationSet features_;
  bool wants_background_ = false;
  TripleDb* background_ = nullptr;
  TripleDbInfo* background_entry_ = nullptr;  // of the current word
  bool words_only_;
  bool inv_;
  float min_count_;
  float min_mutinfo_;
  float min_score_;
  Ref<Stream> output_;
};

HighMutinfo::HighMutinfo(World& world, TripleDb& db, IRSlist& form)
    : db_(db),
      features_(world, db, form),
      words_only_(form.take_flag(":words-only")),
      inv_(form.take_flag(":inv")),
      min_count_(take_float(form, ":min-count", 0)),
      min_mutinfo_(take_float(form, ":min-mutinfo", 3)),
      min_score_(take_float(form, ":min-score", 3)),
      output_(take_output_file(world, form)) {
  if (const char* name = form.take_keyword_str(":background")) {
    wants_background_ = true;
    background_ = world.objects.find_as<TripleDb>(name, "TripleDb", true);
  }
  if (const char* name = form.take_keyword_str(":word")) word = name;
}

double HighMutinfo::smoothed_score(float count, float background_count) const {
  auto smooth = [](double n, double total) { return (n + 1) / (total + 1000); };
  return score(smooth(count, db_.total_count()),
               smooth(background_count, background_->total_count()));
}

const RelInfo* HighMutinfo::find_background(const RelationName& name) {
  if (!background_entry_) return nullptr;
  int id = background_->ids.get_id(name.name, false);
  return background_entry_->find_rel(name.inverse ? -id : id);
}

void HighMutinfo::print_word(const TripleDbInfo& entry) {
  float count = entry.freq + entry.invFreq;
  if (!(count >= min_count_)) return;
  if (!background_) return row(entry.key, " ", " ", count);
  const TripleDbInfo* be = background_entry_;
  float background_count = be ? be->freq + be->invFreq : 0;
  double s = smoothed_score(count, background_count);
  if (!(s < min_score_)) row(entry.key, " ", " ", count, background_count, s);
}

void HighMutinfo::print_relation(const TripleDbInfo& entry, const RelInfo& rel) {
  float mutinfo = relation_mutinfo(entry, rel, db_);
  if (!(mutinfo >= min_mutinfo_)) return;
  RelationName name(db_, rel.id);
  if (!background_) return row(entry.key, name, " ", rel.freq, mutinfo);
  const RelInfo* known = find_background(name);
  float background_freq = known ? known->freq : 1;
  double s = score(quotient(rel.freq, db_.total_count()),
                   quotient(background_freq, background_->total_count()));
  // Kept: relation-score-must-exceed
  if (s > min_score_) row(entry.key, name, " ", rel.freq, background_freq, mutinfo, s);
}

void HighMutinfo::print_words(const TripleDbInfo& entry, RelInfo& rel) {
  RelationName name(db_, rel.id);
  const RelInfo* known = find_background(name);
  for (WordCount& w : rel) {
    if (!(w.freq >= min_count_) || !db_.find(w.word)) continue;
    float mutinfo = known_mutinfo(w, rel, db_);
    if (!(mutinfo >= min_mutinfo_)) continue;
    if (!background_) {
      row(entry.key, name, w.word, w.freq, mutinfo);
      continue;
    }
    const WordCount* match = known ? known->find_word(w.word) : nullptr;
    float b = match ? match->freq : 0;
    double s = smoothed_score(w.freq, b);
    if (!(s < min_score_)) row(entry.key, name, w.word, w.freq, b, mutinfo, s);
  }
}

void HighMutinfo::print_high_mutinfo(TripleDbInfo& entry) {
  background_entry_ = background_ ? background_->find(entry.key) : nullptr;
  if (words_only_ || (background_ && features_.is_everything())) print_word(entry);
  if (words_only_) return;
  db_.load_details(entry);
  if (background_entry_) background_->load_details(*background_entry_);
  for (RelInfo& rel : entry.rels) {
    if (!features_.has(rel.id) || !RelationName(db_, rel.id)) continue;
    if (rel.freq >= min_count_) print_relation(entry, rel);
    if (rel.id > 0 || inv_) print_words(entry, rel);
  }
}

Value print_high_mutinfo(World& world, IRSlist* form) {
  TripleDb* db = take_triple_db(world, form);
  if (!db) return Value();
  HighMutinfo report(world, *db, *form);
  if (!report.is_ready()) return Value();
  if (!report.word) {
    each_entry(*db, [&](TripleDbInfo& entry) { report.print_high_mutinfo(entry); });
  } else if (TripleDbInfo* entry = db->find(report.word->c_str())) {
    report.print_high_mutinfo(*entry);
  }
  return Value();
}

constexpr Command kHighMutinfoCommands[] = {
    {"print-high-mutinfo", print_high_mutinfo,
     "(print-high-mutinfo <DBNAME> [:rels (REL REL ...)] [:background DBNAME] [:words-only] "
     "[:min-mutinfo MUTINFO] [:min-count COUNT] [:min-score SCORE] [:output OUTPUT])\n"},
};

}  // namespace

constinit const Offer offers::high_mutinfo{kHighMutinfoCommands};

}  // namespace torvane
