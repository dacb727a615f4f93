// Stores on disk: the same keys and values in a disk hash and in Debian's GDBM and LMDB, and the
// table of ids. A program of its own, since it writes gigabytes, to the folder of temporary files.
#include <benchmark/benchmark.h>
#include <sys/stat.h>

#if __has_include(<gdbm.h>)
#include <gdbm.h>
#define TORVANE_HAS_GDBM 1
#endif
#if __has_include(<lmdb.h>)
#include <lmdb.h>
#define TORVANE_HAS_LMDB 1
#endif

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "shell/named_objects.h"
#include "store/qhash.h"
#include "store/str2id.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kKeys = 1000000;
// Two a key, and a prime, since the hash of like keys is far from random.
constexpr long kBuckets = 2000003;
constexpr std::size_t kBatch = 100;  // updates before a sync

fs::path g_folder;

/// What a store with values of one size holds. A file has 2 GiB at most, so there are fewer of the
/// largest.
struct Load {
  explicit Load(std::size_t value_bytes) : value(value_bytes, 'v') {
    std::size_t count = value_bytes < 1000 ? kKeys : kKeys / 2;
    for (std::size_t i = 0; i < count; ++i) keys.push_back("word" + std::to_string(i * 7));
    std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
  }
  /// The key of some step, in another random order than that of the insertion.
  const std::string& key(std::size_t step) const { return keys[step * 611953 % keys.size()]; }
  std::vector<std::string> keys;
  std::string value;
};

class OwnStore {
 public:
  static constexpr const char* kName = "own";
  bool open(const std::string& path, bool writable) {
    hash_ = std::make_unique<QHash>(functions_, writable ? OpenMode::write : OpenMode::read);
    hash_->open_file(path.c_str(), 32, kBuckets, "strcmp");
    return hash_->is_open();
  }
  bool insert(const std::string& key, const std::string& value) {
    return hash_->insert(pack(key, value), key.size() + 1 + value.size()) != 0;
  }
  bool find(const std::string& key) { return hash_->find(key.c_str(), found_) != 0; }
  bool update(const std::string& key, const std::string& value) {
    std::uint32_t pos = hash_->find(key.c_str(), found_);
    return hash_->update(pos, pack(key, value), key.size() + 1 + value.size(), 0, false) != 0;
  }
  void sync() { hash_->sync(); }

 private:
  const char* pack(const std::string& key, const std::string& value) {
    packed_.reset();
    packed_.add_text(key.c_str());
    packed_.add_string(value);
    return packed_.object();
  }
  NamedObjects functions_;
  std::unique_ptr<QHash> hash_;
  StrBufs found_{20000};
  StrBufs packed_{20000};
};

#ifdef TORVANE_HAS_GDBM
class GdbmStore {
 public:
  static constexpr const char* kName = "gdbm";
  ~GdbmStore() {
    if (file_) gdbm_close(file_);
  }
  bool open(const std::string& path, bool writable) {
    file_ = gdbm_open(path.c_str(), 0, writable ? GDBM_WRCREAT : GDBM_READER, 0666, nullptr);
    return file_ != nullptr;
  }
  bool insert(const std::string& key, const std::string& value) {
    return gdbm_store(file_, datum_of(key), datum_of(value), GDBM_REPLACE) == 0;
  }
  bool find(const std::string& key) {
    datum found = gdbm_fetch(file_, datum_of(key));
    std::free(found.dptr);
    return found.dptr != nullptr;
  }
  bool update(const std::string& key, const std::string& value) { return insert(key, value); }
  void sync() { gdbm_sync(file_); }

 private:
  static datum datum_of(const std::string& text) {
    return {const_cast<char*>(text.data()), static_cast<int>(text.size())};
  }
  GDBM_FILE file_ = nullptr;
};
#endif

#ifdef TORVANE_HAS_LMDB
class LmdbStore {
 public:
  static constexpr const char* kName = "lmdb";
  ~LmdbStore() {
    if (txn_) mdb_txn_abort(txn_);
    if (env_) mdb_env_close(env_);
  }
  bool open(const std::string& path, bool writable) {
    writable_ = writable;
    if (mdb_env_create(&env_) != 0 || mdb_env_set_mapsize(env_, std::size_t{8} << 30) != 0 ||
        mdb_env_open(env_, path.c_str(), MDB_NOSUBDIR | (writable ? 0 : MDB_RDONLY), 0666) != 0)
      return false;
    begin();
    return mdb_dbi_open(txn_, nullptr, 0, &dbi_) == 0;
  }
  bool insert(const std::string& key, const std::string& value) {
    MDB_val k = val_of(key), v = val_of(value);
    return mdb_put(txn_, dbi_, &k, &v, 0) == 0;
  }
  bool find(const std::string& key) {
    MDB_val k = val_of(key), v;
    if (mdb_get(txn_, dbi_, &k, &v) != 0) return false;
    copy_.assign(static_cast<char*>(v.mv_data), v.mv_size);
    return true;
  }
  bool update(const std::string& key, const std::string& value) { return insert(key, value); }
  void sync() {
    mdb_txn_commit(txn_);
    begin();
  }

 private:
  void begin() { mdb_txn_begin(env_, nullptr, writable_ ? 0 : MDB_RDONLY, &txn_); }
  static MDB_val val_of(const std::string& text) {
    return {text.size(), const_cast<char*>(text.data())};
  }
  bool writable_ = false;
  MDB_env* env_ = nullptr;
  MDB_txn* txn_ = nullptr;
  MDB_dbi dbi_ = 0;
  std::string copy_;
};
#endif

template <class Store>
std::string path_of(const Load& load) {
  return g_folder / (std::string(Store::kName) + std::to_string(load.value.size()));
}

template <class Store>
void remove_files(const Load& load) {
  for (const char* tail : {"", "-journal", "-lock"}) fs::remove(path_of<Store>(load) + tail);
}

template <class Store>
void insert_all(benchmark::State& state, const Load& load) {
  for (auto _ : state) {
    state.PauseTiming();
    remove_files<Store>(load);
    state.ResumeTiming();
    Store store;
    bool written = store.open(path_of<Store>(load), true);
    for (const std::string& key : load.keys) written = written && store.insert(key, load.value);
    store.sync();
    if (!written) state.SkipWithError("cannot write");
  }
  struct stat status;
  stat(path_of<Store>(load).c_str(), &status);
  auto count = static_cast<std::int64_t>(load.keys.size());
  state.SetItemsProcessed(state.iterations() * count);
  state.counters["bytes_per_record"] =
      static_cast<double>(status.st_blocks) * 512 / static_cast<double>(count);
}

template <class Store>
void find_key(benchmark::State& state, const Load& load, const char* prefix, bool present) {
  Store store;
  bool right = store.open(path_of<Store>(load), false);
  // What was read before stays in memory in every store.
  for (std::size_t i = 0; i < load.keys.size(); ++i) store.find(prefix + load.key(i));
  std::vector<std::string> keys;
  for (std::size_t i = 0; i < load.keys.size(); ++i) keys.push_back(prefix + load.key(i));
  std::size_t i = 0;
  for (auto _ : state) {
    right = right && store.find(keys[i]) == present;
    if (++i == keys.size()) i = 0;
  }
  if (!right) state.SkipWithError("cannot find");
}

template <class Store>
void update(benchmark::State& state, const Load& load) {
  Store store;
  bool right = store.open(path_of<Store>(load), true);
  std::size_t i = 0;
  for (auto _ : state) right = right && store.update(load.key(++i), load.value);
  if (!right) state.SkipWithError("cannot write");
}

template <class Store>
void sync_batch(benchmark::State& state, const Load& load) {
  Store store;
  bool right = store.open(path_of<Store>(load), true);
  std::size_t i = 0;
  for (auto _ : state) {
    for (std::size_t k = 0; k < kBatch; ++k)
      right = right && store.update(load.key(++i), load.value);
    store.sync();
  }
  if (!right) state.SkipWithError("cannot write");
}

template <class Store>
void open_and_find(benchmark::State& state, const Load& load, bool writable) {
  bool right = true;
  std::size_t i = 0;
  for (auto _ : state) {
    Store store;
    right = right && store.open(path_of<Store>(load), writable) && store.find(load.key(++i));
  }
  if (!right) state.SkipWithError("cannot find");
}

template <class Run>
auto* add(const char* what, const char* store, const Load& load, Run run) {
  std::string name = std::string(what) + "_" + store + "/" + std::to_string(load.value.size());
  return benchmark::RegisterBenchmark(name.c_str(), run);
}

// The insertion makes the file that the other rows use. Where the device is waited for, the clock
// counts.
template <class Store>
void add_rows(const Load& load) {
  const char* name = Store::kName;
  add("insert", name, load, [&](auto& state) { insert_all<Store>(state, load); })
      ->Iterations(1)
      ->UseRealTime();
  add("find_hit", name, load, [&](auto& state) { find_key<Store>(state, load, "", true); });
  add("find_miss", name, load, [&](auto& state) { find_key<Store>(state, load, "no", false); });
  add("open", name, load, [&](auto& state) { open_and_find<Store>(state, load, false); });
  add("open_to_write", name, load, [&](auto& state) { open_and_find<Store>(state, load, true); });
  add("update", name, load, [&](auto& state) { update<Store>(state, load); });
  add("sync_100", name, load, [&](auto& state) { sync_batch<Store>(state, load); })->UseRealTime();
}

void str2id(benchmark::State& state) {
  const Load many(0);
  for (auto _ : state) {
    Str2Id ids;
    for (const std::string& key : many.keys)
      benchmark::DoNotOptimize(ids.get_id(key.c_str(), true));
    for (const std::string& key : many.keys)
      benchmark::DoNotOptimize(ids.get_id(key.c_str(), false));
    state.counters["bytes_per_record"] =
        static_cast<double>(ids.bytes_reserved()) / static_cast<double>(many.keys.size());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(2 * many.keys.size()));
}

}  // namespace
}  // namespace torvane

int main(int argc, char** argv) {
  using namespace torvane;
  benchmark::Initialize(&argc, argv);
  std::string pattern = fs::temp_directory_path() / "stores-XXXXXX";
  if (!mkdtemp(pattern.data())) {
    std::cerr << "Can't make a folder " << pattern << '\n';
    return 1;
  }
  g_folder = pattern;
  std::vector<std::unique_ptr<Load>> loads;
  for (std::size_t bytes : {20, 200, 2000}) {
    const Load& load = *loads.emplace_back(std::make_unique<Load>(bytes));
    add_rows<OwnStore>(load);
#ifdef TORVANE_HAS_GDBM
    add_rows<GdbmStore>(load);
#endif
#ifdef TORVANE_HAS_LMDB
    add_rows<LmdbStore>(load);
#endif
  }
  benchmark::RegisterBenchmark("str2id", str2id)->Unit(benchmark::kMillisecond);
  benchmark::RunSpecifiedBenchmarks();
  fs::remove_all(g_folder);
  return 0;
}
