#include "counts/build_counts.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string_view>
#include <system_error>
#include <vector>

#include "counts/count_sorter.h"
#include "shell/world.h"
#include "store/header_file.h"
#include "support/messages.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kLeastDiskBuckets = 20011;
constexpr std::uint64_t kRowBytesOfStore = std::uint64_t{1} << 30;  // half of what it could hold
constexpr long kStoreBuckets = 59999, kStoreIdBuckets = 200011;
constexpr const char *kHeaderFile = "triples.hdr", *kStoreFile = "triples.db",
                     *kRelationFile = "rels.txt", *kDetailFile = "deps.txt",
                     *kCountsFile = "counts.txt";

/// The rows that populating reads, both sorted: how often words and relations occur, and the
/// triples from either end.
class Dump {
 public:
  Dump(std::size_t memory, const std::string& folder)
      : relations_(memory / 2, folder), details_(memory / 2, folder) {}

  void add(std::string_view key, std::uint64_t count) {
    const std::size_t first = key.find('\t'), second = key.find('\t', first + 1);
    const std::string_view head = key.substr(0, first),
                           relation = key.substr(first + 1, second - first - 1),
                           modifier = key.substr(second + 1, key.size() - second - 2);
    details_.add(key, count);
    add(details_, modifier, "-", relation, head, count);
    add(relations_, head, "", " ", "freq", count);
    add(relations_, head, "", relation, " ", count);
    add(relations_, modifier, "", " ", "invFreq", count);
    add(relations_, modifier, "-", relation, " ", count);
    add(relations_, relation, "", " ", "freq", count);
  }

  /// Empty, or what is wrong.
  std::string write(const fs::path& folder) {
    std::string fault = write(relations_, folder / kRelationFile, &keys_);
    if (fault.empty()) fault = write(details_, folder / kDetailFile, nullptr);
    return fault;
  }
  /// Different words and relations, once they were written.
  std::uint64_t keys() const { return keys_; }

 private:
  void add(CountSorter& rows, std::string_view word, std::string_view sign,
           std::string_view relation, std::string_view other, std::uint64_t count) {
    key_.assign(word).append("\t").append(sign).append(relation).append("\t");
    key_.append(other).append("\t");
    rows.add(key_, count);
  }

  static std::string write(CountSorter& sorter, const fs::path& path, std::uint64_t* keys) {
    WholeFile out(path.string());
    const std::unique_ptr<RowSource> rows = sorter.sorted();
    std::string last;
    for (CountRow row; out.error() == 0 && rows->next(row);) {
      const std::string_view word = std::string_view(row.key).substr(0, row.key.find('\t'));
      if (keys && word != last) {
        last = word;
        ++*keys;
      }
      write_count_row(out, row.key, row.count);
    }
    const std::string fault = out.finish();
    return fault.empty() && sorter.error() != 0 ? std::strerror(sorter.error()) : fault;
  }

  CountSorter relations_, details_;
  std::string key_;
  std::uint64_t keys_ = 0;
};

/// Empty, or what is wrong.
std::string write_text(const fs::path& path, const std::string& text) {
  WholeFile out(path.string());
  out.write(text);
  return out.finish();
}

/// A database of triples in a folder.
class StoreFile {
 public:
  StoreFile(const fs::path& folder, OpenMode mode)
      : world_(World::Console{nullptr, &said_, &said_}),
        here_(world_),
        db(kStoreBuckets, kStoreIdBuckets, false) {
    world_.files.only({folder.string()});
    HeaderFile header(world_.files, kHeaderFile, world_.double_byte);
    db.link_file(world_.objects, header, mode);
  }

 private:
  std::ostringstream said_;
  World world_;
  const WorldScope here_;

 public:
  TripleDb db;
};

/// The number of words, and the sum of all counts.
struct StoreSize {
  std::size_t words = 0;
  float total = 0;
  bool operator==(const StoreSize&) const = default;
};

/// Makes the store out of the rows that lie in the folder.
StoreSize populate_store(const fs::path& folder, const PopulateLimits& limits) {
  StoreFile store(folder, OpenMode::write);
  std::ifstream relations(folder / kRelationFile, std::ios::binary);
  store.db.populate_relations(relations, limits);
  std::ifstream details(folder / kDetailFile, std::ios::binary);
  store.db.populate(details, limits);
  StoreSize size{0, store.db.total_count()};
  store.db.for_each([&](const PLHashEntry*) { ++size.words; });
  return size;
}

/// What can be read back: a store does not say that it could not be written.
StoreSize size_of_store(const fs::path& folder) {
  StoreFile store(folder, OpenMode::read);
  StoreSize size{0, store.db.has_file() ? store.db.total_count() : -1};
  if (!store.db.has_file()) return size;
  for (PLHashIterator walk(store.db); !walk.done(); walk.next()) ++size.words;
  return size;
}

std::string store_name(std::uint64_t number) {
  return number == 0 ? kStoreFile : kStoreFile + ("." + std::to_string(number));
}

std::string log_name(std::uint64_t number) {
  return store_name(number) + "-journal";
}

/// How many stores the rows need: a store is about as large as they are.
std::uint64_t stores_for_rows(const fs::path& folder) {
  std::uint64_t bytes = 0;
  for (const char* name : {kRelationFile, kDetailFile}) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(folder / name, error);
    if (!error) bytes += size;
  }
  return 1 + bytes / kRowBytesOfStore;
}

std::string make_stores(const fs::path& folder, std::uint64_t keys, std::uint64_t count,
                        const PopulateLimits& limits) {
  const std::uint64_t buckets = std::max(kLeastDiskBuckets, keys / count | 1U);
  const std::string shards = count > 1 ? "shards " + std::to_string(count) + " " : "";
  std::string fault =
      write_text(folder / kHeaderFile,
                 shards + kStoreFile + " 64 " + std::to_string(buckets) + " strcasecmp\n");
  if (!fault.empty()) return fault;
  const StoreSize made = populate_store(folder, limits);
  // A log that is left is a store that could not be closed.
  bool closed = true;
  for (std::uint64_t i = 0; i < count; ++i) closed = closed && !fs::exists(folder / log_name(i));
  if (!closed || made != size_of_store(folder))
    fault = (folder / kStoreFile).string() + " could not be written";
  return fault;
}

/// In `stores`, if that is 0, how many were made.
std::string build_in(const fs::path& folder, CountsFile& counts, const BuildChoice& choice,
                     std::uint64_t& stores) {
  Dump dump(choice.memory, folder.string());
  for (CountRow row; counts.next(row);)
    if (row.count >= choice.min_count) dump.add(row.key, row.count);
  std::string fault = dump.write(folder);
  if (fault.empty()) {
    if (stores == 0) stores = stores_for_rows(folder);
    fault = make_stores(folder, dump.keys(), stores, choice.limits);
  }
  if (!fault.empty()) return fault;
  WholeFile header((folder / kCountsFile).string());
  counts.header().write(header);
  return header.finish();
}

}  // namespace

std::string build_counts(CountsFile& counts, const BuildChoice& choice) {
  const fs::path folder = choice.folder, building = folder / "building";
  std::error_code error;
  fs::remove_all(building, error);
  fs::create_directories(building, error);
  if (error) return building.string() + ": " + error.message();
  std::uint64_t stores = choice.stores;
  std::string fault = build_in(building, counts, choice, stores);
  std::vector<std::string> made{kRelationFile, kDetailFile};
  for (std::uint64_t i = 0; i < stores; ++i) {
    if (fault.empty()) fs::remove(folder / log_name(i), error);  // of the store that goes
    made.push_back(store_name(i));
  }
  made.insert(made.end(), {kHeaderFile, kCountsFile});
  for (const std::string& name : made) {
    if (!fault.empty()) break;
    fs::rename(building / name, folder / name, error);
    if (error) fault = (folder / name).string() + ": " + error.message();
  }
  for (std::uint64_t i = stores; fault.empty() && fs::remove(folder / store_name(i), error); ++i)
    fs::remove(folder / log_name(i), error);
  fs::remove_all(building, error);
  return fault;
}

}  // namespace torvane
