// The triple database: loading a store from text, the record of a word, the count of a triple;
// beside SQLite doing the same work. The triples are drawn by Zipf's law from 50,000 words.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#if __has_include(<sqlite3.h>)
#include <sqlite3.h>
#define TORVANE_HAS_SQLITE 1
#endif

#include "bench/session.h"
#include "shell/named_objects.h"
#include "store/header_file.h"
#include "triples/db/triple_db.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

constexpr int kWords = 50000;
constexpr int kRelations = 30;
constexpr long kIdBuckets = 200011;
constexpr long kBuckets = 59999;

struct Triple {
  std::string head, relation, other;
  int count;
};

/// A number from 0 to n - 1, the k-th with a probability in proportion to 1 / (k + 1).
class Zipf {
 public:
  explicit Zipf(int n) : sums_(static_cast<std::size_t>(n)) {
    double sum = 0;
    for (int k = 0; k < n; ++k) sums_[static_cast<std::size_t>(k)] = sum += 1.0 / (k + 1);
  }
  int operator()(std::mt19937& random) const {
    double point = std::uniform_real_distribution<double>(0, sums_.back())(random);
    return static_cast<int>(std::lower_bound(sums_.begin(), sums_.end(), point) - sums_.begin());
  }

 private:
  std::vector<double> sums_;
};

/// The texts of a database of `size` different triples, on disk, and a sample of the triples.
struct Corpus {
  fs::path folder;
  std::vector<Triple> sample;
  std::int64_t triples = 0;

  explicit Corpus(std::int64_t size)
      : folder(fs::temp_directory_path() /
               ("torvane-bench-triples-" + std::to_string(size) + "-" + std::to_string(getpid()))) {
    fs::create_directories(folder);
    write(draw(size));
    std::ofstream(folder / "store.hdr") << "store.db 64 59999 strcasecmp";
  }
  ~Corpus() { fs::remove_all(folder); }

 private:
  using Key = std::tuple<std::string, std::string, std::string>;
  using Counts = std::map<Key, int>;

  Counts draw(std::int64_t size) {
    std::mt19937 random(20261121);
    Zipf word(kWords), relation(kRelations);
    auto name = [](const char* kind, int k) { return kind + std::to_string(k * 7919 % 100003); };
    Counts counts;
    while (static_cast<std::int64_t>(counts.size()) < size)
      ++counts[{name("word", word(random)), name("V:rel:N", relation(random)),
                name("word", word(random))}];
    std::int64_t step = std::max<std::int64_t>(1, size / 2000), i = 0;
    for (const auto& [key, count] : counts)
      if (i++ % step == 0)
        sample.push_back({std::get<0>(key), std::get<1>(key), std::get<2>(key), count});
    std::shuffle(sample.begin(), sample.end(), random);
    triples = size;
    return counts;
  }

  void write(const Counts& counts) const {
    std::ofstream rels(folder / "rels.txt"), deps(folder / "deps.txt"), rows(folder / "rows.txt");
    std::vector<Key> both;
    std::map<std::pair<std::string, std::string>, double> relation_counts;
    std::map<std::string, std::pair<double, double>> word_counts;
    Counts all;
    for (const auto& [key, count] : counts) {
      const auto& [head, relation, other] = key;
      rows << head << '\t' << relation << '\t' << other << '\t' << count << '\n';
      all[key] = count;
      all[{other, '-' + relation, head}] = count;
      word_counts[head].first += count;
      word_counts[other].second += count;
      word_counts[relation].first += count;
      relation_counts[{head, relation}] += count;
      relation_counts[{other, '-' + relation}] += count;
    }
    for (const auto& [key, count] : all)
      deps << std::get<0>(key) << '\t' << std::get<1>(key) << '\t' << std::get<2>(key) << '\t'
           << count << '\n';
    auto row = relation_counts.begin();
    for (const auto& [word, freqs] : word_counts) {
      rels << word << "\t \tfreq\t" << freqs.first << '\n';
      rels << word << "\t \tinvFreq\t" << freqs.second << '\n';
      for (; row != relation_counts.end() && row->first.first == word; ++row)
        rels << word << '\t' << row->first.second << "\t \t" << row->second << '\n';
    }
  }
};

const Corpus& corpus(std::int64_t size) {
  static std::map<std::int64_t, std::unique_ptr<Corpus>> all;
  auto& found = all[size];
  if (!found) found = std::make_unique<Corpus>(size);
  return *found;
}

std::unique_ptr<TripleDb> linked_db(const Corpus& texts, OpenMode mode) {
  auto db = std::make_unique<TripleDb>(kBuckets, kIdBuckets, false);
  HeaderFile header(session().files, (texts.folder / "store.hdr").c_str(), false);
  db->link_file(session().objects, header, mode);
  return db;
}

void populate(const Corpus& texts) {
  fs::remove(texts.folder / "store.db");
  std::unique_ptr<TripleDb> db = linked_db(texts, OpenMode::write);
  std::ifstream rels(texts.folder / "rels.txt"), deps(texts.folder / "deps.txt");
  db->populate_relations(rels, {});
  db->populate(deps);
}

void need_store(const Corpus& texts) {
  if (!fs::exists(texts.folder / "store.db")) populate(texts);
}

void triples_load_own(benchmark::State& state) {
  session();
  const Corpus& texts = corpus(state.range(0));
  for (auto _ : state) populate(texts);
  state.SetItemsProcessed(state.iterations() * texts.triples);
  state.counters["bytes_on_disk"] = static_cast<double>(fs::file_size(texts.folder / "store.db"));
}
BENCHMARK(triples_load_own)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// Reads the whole record of a word, row by row.
void read_word(TripleDb& db, const std::string& word) {
  TripleDbInfo* entry = db.find(word.c_str());
  if (!entry) return;
  db.load_details(*entry);
  for (const RelInfo& rel : entry->rels) {
    benchmark::DoNotOptimize(db.id_to_string(std::abs(rel.id)));
    for (const WordCount& count : rel) {
      benchmark::DoNotOptimize(*count.word);
      benchmark::DoNotOptimize(count.freq);
    }
  }
}

void triples_cold_own(benchmark::State& state) {
  const Corpus& texts = corpus(state.range(0));
  need_store(texts);
  for (auto _ : state) {
    std::unique_ptr<TripleDb> db = linked_db(texts, OpenMode::read);
    for (const Triple& triple : texts.sample) read_word(*db, triple.head);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.sample.size()));
}
BENCHMARK(triples_cold_own)->Arg(1000000)->Unit(benchmark::kMillisecond);

void triples_warm_own(benchmark::State& state) {
  const Corpus& texts = corpus(state.range(0));
  need_store(texts);
  std::unique_ptr<TripleDb> db = linked_db(texts, OpenMode::read);
  for (const Triple& triple : texts.sample) read_word(*db, triple.head);
  std::size_t i = 0;
  for (auto _ : state) {
    read_word(*db, texts.sample[i].head);
    if (++i == texts.sample.size()) i = 0;
  }
}
BENCHMARK(triples_warm_own)->Arg(1000000);

void triple_count_own(benchmark::State& state) {
  const Corpus& texts = corpus(state.range(0));
  need_store(texts);
  std::unique_ptr<TripleDb> db = linked_db(texts, OpenMode::read);
  for (const Triple& triple : texts.sample) read_word(*db, triple.head);
  std::size_t i = 0;
  for (auto _ : state) {
    const Triple& triple = texts.sample[i];
    TripleDbInfo* entry = db->find(triple.head.c_str());
    RelInfo* rel = entry->find_rel(db->feature_id(triple.relation.c_str(), false));
    benchmark::DoNotOptimize(rel->find_word(triple.other.c_str())->freq);
    if (++i == texts.sample.size()) i = 0;
  }
}
BENCHMARK(triple_count_own)->Arg(1000000);

/// What the parser asks for each pair of words that might belong together.
void dependency_probability(benchmark::State& state) {
  const Corpus& texts = corpus(state.range(0));
  need_store(texts);
  std::unique_ptr<TripleDb> db = linked_db(texts, OpenMode::read);
  for (const Triple& triple : texts.sample) read_word(*db, triple.head);
  std::size_t i = 0;
  for (auto _ : state) {
    const Triple& triple = texts.sample[i];
    benchmark::DoNotOptimize(db->dependency_probability(
        triple.head.c_str(), triple.relation.c_str(), triple.other.c_str()));
    if (++i == texts.sample.size()) i = 0;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(dependency_probability)->Arg(10000)->Arg(1000000);

/// The report over every word, from the disk.
void print_high_mutinfo(benchmark::State& state) {
  session();
  const Corpus& texts = corpus(state.range(0));
  need_store(texts);
  const std::string name = "triples-" + std::to_string(state.range(0));
  const std::string header = (texts.folder / "store.hdr").string();
  if (!session().objects.find(name.c_str(), "TripleDb", false))
    run_forms(("(make-tripledb " + name + ")(link-file " + name + " " + header + ")").c_str());
  const std::string report = "(print-high-mutinfo " + name + " :output /dev/null)";
  for (auto _ : state) run_forms(report.c_str());
  state.SetItemsProcessed(state.iterations() * texts.triples);
}
BENCHMARK(print_high_mutinfo)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

#ifdef TORVANE_HAS_SQLITE

/// Words and relations by number, triples by head, and an index that answers from the other end.
class Peer {
 public:
  explicit Peer(const Corpus& texts, bool fresh = false) : path_(texts.folder / "peer.sqlite") {
    if (fresh) fs::remove(path_);
    const bool load = !fs::exists(path_);
    sqlite3_open(path_.c_str(), &db_);
    run("PRAGMA cache_size=-200000");
    if (load) fill(texts);
  }
  ~Peer() {
    for (sqlite3_stmt* statement : statements_) sqlite3_finalize(statement);
    sqlite3_close(db_);
  }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  sqlite3_stmt* prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr);
    statements_.push_back(statement);
    return statement;
  }
  static void bind(sqlite3_stmt* statement, int i, const std::string& text) {
    sqlite3_bind_text(statement, i, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }
  std::uintmax_t bytes() const { return fs::file_size(path_); }

 private:
  void run(const char* sql) { sqlite3_exec(db_, sql, nullptr, nullptr, nullptr); }

  sqlite3_int64 word_id(const std::string& word) {
    auto [place, added] = ids_.try_emplace(word, static_cast<sqlite3_int64>(ids_.size()) + 1);
    if (added) {
      sqlite3_bind_int64(add_word_, 1, place->second);
      bind(add_word_, 2, word);
      sqlite3_step(add_word_);
      sqlite3_reset(add_word_);
    }
    return place->second;
  }

  void fill(const Corpus& texts) {
    run("CREATE TABLE words(id INTEGER PRIMARY KEY, word TEXT COLLATE NOCASE);"
        "CREATE TABLE triples(head INT, rel INT, other INT, count REAL);"
        "BEGIN");
    add_word_ = prepare("INSERT INTO words VALUES(?,?)");
    sqlite3_stmt* add = prepare("INSERT INTO triples VALUES(?,?,?,?)");
    std::ifstream in(texts.folder / "rows.txt");
    for (std::string head, relation, other, count;
         std::getline(in, head, '\t') && std::getline(in, relation, '\t') &&
         std::getline(in, other, '\t') && std::getline(in, count);) {
      sqlite3_bind_int64(add, 1, word_id(head));
      sqlite3_bind_int64(add, 2, word_id(relation));
      sqlite3_bind_int64(add, 3, word_id(other));
      sqlite3_bind_double(add, 4, std::strtod(count.c_str(), nullptr));
      sqlite3_step(add);
      sqlite3_reset(add);
    }
    run("CREATE UNIQUE INDEX by_word ON words(word);"
        "CREATE INDEX by_head ON triples(head, rel, other, count);"
        "CREATE INDEX by_other ON triples(other, rel, head, count);"
        "COMMIT");
  }

  fs::path path_;
  sqlite3* db_ = nullptr;
  std::vector<sqlite3_stmt*> statements_;
  sqlite3_stmt* add_word_ = nullptr;
  std::unordered_map<std::string, sqlite3_int64> ids_;
};

constexpr char kRecordOfWord[] =
    "SELECT r.word, o.word, t.count FROM words h JOIN triples t ON t.head = h.id "
    "JOIN words r ON r.id = t.rel JOIN words o ON o.id = t.other WHERE h.word = ?1 "
    "UNION ALL SELECT '-' || r.word, o.word, t.count FROM words h JOIN triples t ON t.other = h.id "
    "JOIN words r ON r.id = t.rel JOIN words o ON o.id = t.head WHERE h.word = ?1";

void read_word(sqlite3_stmt* query, const std::string& word) {
  Peer::bind(query, 1, word);
  while (sqlite3_step(query) == SQLITE_ROW) {
    benchmark::DoNotOptimize(*sqlite3_column_text(query, 1));
    benchmark::DoNotOptimize(sqlite3_column_double(query, 2));
  }
  sqlite3_reset(query);
}

void triples_load_peer(benchmark::State& state) {
  const Corpus& texts = corpus(state.range(0));
  std::uintmax_t bytes = 0;
  for (auto _ : state) bytes = Peer(texts, true).bytes();
  state.SetItemsProcessed(state.iterations() * texts.triples);
  state.counters["bytes_on_disk"] = static_cast<double>(bytes);
}
BENCHMARK(triples_load_peer)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void triples_cold_peer(benchmark::State& state) {
  const Corpus& texts = corpus(state.range(0));
  for (auto _ : state) {
    Peer peer(texts);
    sqlite3_stmt* query = peer.prepare(kRecordOfWord);
    for (const Triple& triple : texts.sample) read_word(query, triple.head);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.sample.size()));
}
BENCHMARK(triples_cold_peer)->Arg(1000000)->Unit(benchmark::kMillisecond);

void triples_warm_peer(benchmark::State& state) {
  const Corpus& texts = corpus(state.range(0));
  Peer peer(texts);
  sqlite3_stmt* query = peer.prepare(kRecordOfWord);
  for (const Triple& triple : texts.sample) read_word(query, triple.head);
  std::size_t i = 0;
  for (auto _ : state) {
    read_word(query, texts.sample[i].head);
    if (++i == texts.sample.size()) i = 0;
  }
}
BENCHMARK(triples_warm_peer)->Arg(1000000);

void triple_count_peer(benchmark::State& state) {
  const Corpus& texts = corpus(state.range(0));
  Peer peer(texts);
  sqlite3_stmt* query = peer.prepare(
      "SELECT count FROM triples WHERE head = (SELECT id FROM words WHERE word = ?) AND "
      "rel = (SELECT id FROM words WHERE word = ?) AND "
      "other = (SELECT id FROM words WHERE word = ?)");
  std::size_t i = 0;
  for (auto _ : state) {
    const Triple& triple = texts.sample[i];
    Peer::bind(query, 1, triple.head);
    Peer::bind(query, 2, triple.relation);
    Peer::bind(query, 3, triple.other);
    sqlite3_step(query);
    benchmark::DoNotOptimize(sqlite3_column_double(query, 0));
    sqlite3_reset(query);
    if (++i == texts.sample.size()) i = 0;
  }
}
BENCHMARK(triple_count_peer)->Arg(1000000);

#endif

}  // namespace
}  // namespace torvane
