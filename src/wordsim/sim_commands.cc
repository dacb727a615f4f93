// The commands on databases of similar words.
#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "lex/lexicon/dict_on_disk.h"
#include "shell/file_search.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "store/header_file.h"
#include "store/qhash.h"
#include "support/messages.h"
#include "support/text.h"
#include "wordsim/group_scores.h"
#include "wordsim/offers.h"
#include "wordsim/sim_print.h"

namespace torvane {
namespace {

// Kept: quote-inside-the-address
constexpr const char* kDefaultUrl = "<a href=http://localhost/cgi-bin/getsim.cgi?word=";

SimWordDb* take_db(World& world, IRSlist* form) {
  return world.objects.find_as<SimWordDb>(form->get_str_val(), "SimWordDb", true);
}

int int_option(IRSlist* form, const char* keyword, long value) {
  form->find_keyword_long(keyword, value);
  return static_cast<int>(std::clamp<long>(value, 0, std::numeric_limits<int>::max()));
}

char* text_option(IRSlist* form, const char* keyword) {
  char* text = nullptr;
  form->find_keyword_str(keyword, text);
  return text;
}

std::unique_ptr<SimWordDb> new_db(IRSlist* form) {
  int most_syns = int_option(form, ":max-syns", 200);
  int size = int_option(form, ":size", 1997);
  float least_sim = 0.01F;
  form->find_keyword_float(":min-sim", least_sim);
  return std::make_unique<SimWordDb>(size, most_syns, least_sim);
}

void open_dictionaries(World& world, SimWordDb& db, IRSlist* form) {
  constexpr const char* kKeywords[kPartsOfSpeech] = {":noun", ":verb", ":adj/adv"};
  for (int pos = 0; pos < kPartsOfSpeech; ++pos)
    if (const char* header = text_option(form, kKeywords[pos]))
      db.dicts[pos] = std::make_unique<DictOnDisk>(world.files, header);
}

/// The store that a header names; null without one, or if it cannot be opened.
std::unique_ptr<QHash> open_store(World& world, const char* header, const char* access) {
  if (!header) return nullptr;
  OpenMode mode = same_word(access, "rw") ? OpenMode::write : OpenMode::read;
  auto store = std::make_unique<QHash>(world.objects, mode);
  HeaderFile file(world.files, header, world.double_byte);
  store->open_header(file);
  if (!store->is_open()) store.reset();
  return store;
}

/// A store with content comes first: its ids must be those of the table, and a source may add to
/// its records.
void read_sources(World& world, SimWordDb& db, IRSlist* form) {
  const char* header = text_option(form, ":db");
  std::unique_ptr<QHash> store = open_store(world, header, text_option(form, ":access"));
  auto attach = [&] {
    if (!db.attach_file(std::move(store)))
      messages() << header << " is not a store of similar words\n";
  };
  if (store && !store->has_no_records()) attach();
  if (const char* source = text_option(form, ":src"))
    if (Ref<Stream> stream = world.files.open(source))
      db.read_source(stream.get(), world.double_byte);
  if (store) attach();
  db.save();
}

Value make_simworddb(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return Value();
  SimWordDb* db = world.own_object(name, new_db(form), "SimWordDb");
  if (!db) return Value();
  open_dictionaries(world, *db, form);
  read_sources(world, *db, form);
  return Value::of(db);
}

Value simwords(World& world, IRSlist* form) {
  SimWordDb* db = take_db(world, form);
  while (std::unique_ptr<IRSlist> word = db ? form->pop_front() : nullptr)
    if (const SimRecord* record = db->find_record(word->atom))
      print_similar_words(*db, *record, world.out());
  return Value();
}

/// The strings of a node, if there is one.
class Words {
 public:
  Words(World& world, std::unique_ptr<IRSlist> node) {
    if (node) get_string_list(world, *node, strings_, list);
  }
  Slist<char*> list;

 private:
  StrBufs strings_;
};

Value get_grouped_sim_words(World& world, IRSlist* form) {
  // Kept: grouped-words-by-keywords
  Words colors(world, form->take_keyword_node(":colors"));
  const char* url = form->take_keyword_str(":url");
  std::unique_ptr<IRSlist> words_node = form->take_keyword_node(":words");
  SimWordDb* db = take_db(world, form);
  if (!db) return Value();
  Words words(world, std::move(words_node));
  SimPageStyle style{url ? url : kDefaultUrl, {colors.list.begin(), colors.list.end()}};
  for (const char* word : words.list)
    if (const SimRecord* record = db->find_record(word))
      print_similar_words_in_html(*db, *record, style, world.out());
  return Value();
}

Value get_sim(World& world, IRSlist* form) {
  SimWordDb* db = take_db(world, form);
  if (!db) return Value();
  const char* word1 = form->get_str_val();
  const char* word2 = form->get_str_val();
  int pos = pos_index(form->get_str_val());
  world.out() << or_empty(word1) << '\t' << or_empty(word2) << '\t'
              << float_text(db->get_sim(word1, word2, pos)) << '\n';
  return Value();
}

/// The words most similar to a set of words, best first, and how well the first of them give the
/// set back.
class GroupQuery {
 public:
  GroupQuery(SimWordDb& db, int pos, const Slist<char*>& words, const LBitSet* scope)
      : db_(db), n_(words.length()), scores_(group_scores(db, scope, pos, words)) {
    for (const char* word : words) asked_.set(db.get_id(word, false));
    asked_.clear(0);
  }

  /// Calls `visit(index, asked, f)` for each word: whether it is one of the set, and the harmonic
  /// mean of precision and recall up to here.
  template <class Visit>
  void walk(Visit visit) const {
    int hits = 0;
    for (std::size_t i = 0; i < scores_.size(); ++i) {
      bool asked = asked_.test(scores_[i].word);
      if (asked) ++hits;
      // With p = hits / rank and r = hits / n, which are 0 before the first hit.
      visit(i, asked, static_cast<float>(2.0 * hits / (static_cast<double>(i + 1) + n_)));
    }
  }
  bool empty() const { return scores_.empty(); }
  const char* word(std::size_t i) const { return or_empty(db_.get_string(scores_[i].word)); }
  float ratio(std::size_t i) const { return scores_[i].ratio(); }

 private:
  SimWordDb& db_;
  int n_;
  std::vector<SimScore> scores_;
  LBitSet asked_;
};

/// The ids in a word's list; nothing for a word that is not known.
std::unique_ptr<LBitSet> scope_of(SimWordDb& db, const char* word, int pos) {
  const SimRecord* record = word && pos >= 0 ? db.find_record(word) : nullptr;
  if (!record) return nullptr;
  auto scope = std::make_unique<LBitSet>(db.count());
  for (const SimPair& pair : record->sims[pos]) scope->set(pair.word);
  return scope;
}

Value get_group_sims(World& world, IRSlist* form) {
  const char* scope_word = form->take_keyword_str(":scope");
  SimWordDb* db = take_db(world, form);
  if (!db) return Value();
  int pos = pos_index(form->get_str_val());
  Words words(world, form->pop_front());
  std::unique_ptr<LBitSet> scope = scope_of(*db, scope_word, pos);
  GroupQuery query(*db, pos, words.list, scope.get());
  query.walk([&](std::size_t i, bool asked, float f) {
    world.out() << (asked ? "*" : "") << query.word(i) << '\t' << float_text(query.ratio(i)) << '\t'
                << float_text(f) << '\n';
  });
  return Value();
}

Value expand_using_group_sims(World& world, IRSlist* form) {
  float threshold = 0.5F;
  form->find_keyword_float(":f-threshold", threshold);
  SimWordDb* db = take_db(world, form);
  if (!db) return Value();
  int pos = pos_index(form->get_str_val());
  Words words(world, form->pop_front());
  GroupQuery query(*db, pos, words.list, nullptr);
  std::size_t best = 0;
  float largest = -1;
  query.walk([&](std::size_t i, bool, float f) {
    if (f > largest) {
      largest = f;
      best = i;
    }
  });
  if (query.empty() || largest < threshold) return Value();
  world.out() << "( " << float_text(largest);
  float limit = 0.75F * query.ratio(best);
  for (std::size_t i = 0; i <= best && query.ratio(i) >= limit; ++i) {
    std::string word;
    append_quoted(word, query.word(i), QuoteComma::yes);
    world.out() << ' ' << word;
  }
  world.out() << " )\n";
  return Value();
}

constexpr Command kSimCommands[] = {
    {"make-simworddb", make_simworddb,
     "(make-simworddb dbname [:max-syns max-number-of-related-words] [:size size-of-hashtable] "
     "[:noun ndb.hdr] [:verb vdb.hdr] [:adj/adv adb.hdr]) create a simworddb, limit is the max "
     "number of terms for each word"},
    {"simwords", simwords,
     "(simwords db word1 word2 ...) list the similar words of word1, word2, ..."},
    {"get-grouped-sim-words", get_grouped_sim_words,
     "(get-grouped-sim-words db word1 word2 ... [:color (color1 color2...)]) list the similar "
     "words of word1, word2, ..."},
    {"get-sim", get_sim,
     "(get-sim simdb word1 word2 [pos]) retrieve the similarity between two words"},
    {"get-group-sims", get_group_sims,
     "(get-group-sims db POS (word1 word2 ... wordn) [:scope word]) \n"
     "prints the words that are similar to word1, ..., wordn. If the scope word\n"
     "is given, only the similar words to the scope word are considered."},
    {"expand-using-group-sims", expand_using_group_sims,
     "(expand-using-group-sims db POS (word1 word2 ... wordn) [:f-threshold F])."},
};

}  // namespace

constinit const Offer offers::sim_commands{kSimCommands};

}  // namespace torvane
