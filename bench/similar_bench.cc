// Similar words: reading a source, the similarity of two words, the words most similar to a set of
// words (from a store that was just opened, and with all records in memory), and the comparison of
// words by their features.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "bench/session.h"
#include "store/header_file.h"
#include "store/qhash.h"
#include "wordsim/feature_overlap.h"
#include "wordsim/group_scores.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

constexpr int kPairs = 200;  // a list

std::string word(std::uint32_t i) {
  return "word" + std::to_string(i);
}

/// A source of some words, and a store made of it, on disk.
struct Lists {
  fs::path folder;
  int words;

  explicit Lists(int count)
      : folder(fs::temp_directory_path() / ("torvane-bench-similar-" + std::to_string(count))),
        words(count) {
    fs::create_directories(folder);
    std::mt19937 random(20261121);
    std::ofstream out(folder / "words.src");
    for (int i = 0; i < count; ++i) {
      out << '(' << word(static_cast<std::uint32_t>(i)) << " (N 1 (";
      for (int k = 0; k < kPairs; ++k)
        out << word(random() % static_cast<std::uint32_t>(count)) << " 0." << 999 - 4 * k << ' ';
      out << ")))\n";
    }
    std::ofstream(folder / "words.hdr") << "words.db 64 " << count << " strcasecmp\n";
  }
  ~Lists() { fs::remove_all(folder); }

  std::unique_ptr<SimWordDb> read() const {
    auto db = std::make_unique<SimWordDb>(words, kPairs, 0.0F);
    Ref<Stream> source = Stream::open_input((folder / "words.src").c_str());
    db->read_source(source.get(), false);
    return db;
  }
  std::unique_ptr<SimWordDb> open() const {
    if (!fs::exists(folder / "words.db")) {
      std::unique_ptr<SimWordDb> db = read();
      db->attach_file(store(OpenMode::write));
      db->save();
    }
    auto db = std::make_unique<SimWordDb>(words, kPairs, 0.0F);
    db->attach_file(store(OpenMode::read));
    return db;
  }

 private:
  std::unique_ptr<QHash> store(OpenMode mode) const {
    auto hash = std::make_unique<QHash>(session().objects, mode);
    HeaderFile header(session().files, (folder / "words.hdr").c_str(), false);
    hash->open_header(header);
    return hash;
  }
};

const Lists& lists(int count) {
  static std::map<int, std::unique_ptr<Lists>> all;
  auto& found = all[count];
  if (!found) found = std::make_unique<Lists>(count);
  return *found;
}

double resident_bytes() {
  std::ifstream statm("/proc/self/statm");
  double total = 0, resident = 0;
  statm >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

void similar_read_source(benchmark::State& state) {
  session();
  const Lists& source = lists(static_cast<int>(state.range(0)));
  double bytes = 0;
  for (auto _ : state) {
    double before = resident_bytes();
    std::unique_ptr<SimWordDb> db = source.read();
    bytes = resident_bytes() - before;
  }
  state.SetItemsProcessed(state.iterations() * state.range(0) * kPairs);
  state.counters["bytes_in_memory"] = bytes;
}
BENCHMARK(similar_read_source)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);

constexpr int kQueried = 20000;  // words of the database that the queries below ask

void similar_get_sim(benchmark::State& state) {
  session();
  static const std::unique_ptr<SimWordDb> db = lists(kQueried).read();
  std::uint32_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        db->get_sim(word(i % kQueried).c_str(), word(i * 7 % kQueried).c_str(), 0));
    ++i;
  }
}
BENCHMARK(similar_get_sim);

void similar_group(benchmark::State& state, bool cold) {
  session();
  StrBufs strings;
  Slist<char*> words;
  for (int i = 0; i < state.range(0); ++i)
    words.append(strings.copy(word(static_cast<std::uint32_t>(i) * 97).c_str()));
  std::unique_ptr<SimWordDb> db = lists(kQueried).open();
  for (auto _ : state) {
    if (cold) {
      state.PauseTiming();
      db = lists(kQueried).open();
      state.ResumeTiming();
    }
    benchmark::DoNotOptimize(group_scores(*db, nullptr, 0, words).size());
  }
}
BENCHMARK_CAPTURE(similar_group, cold, true)->Arg(2)->Arg(10)->Arg(50)->Iterations(50);
BENCHMARK_CAPTURE(similar_group, warm, false)->Arg(2)->Arg(10)->Arg(50);

/// All words compared with all by features drawn by Zipf's law. The most frequent ones are left
/// out, as those that carry no information are.
void similar_compare(benchmark::State& state) {
  constexpr double kFrequent = 100;
  const auto count = static_cast<std::uint32_t>(state.range(0));
  for (auto _ : state) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit;
    std::vector<std::vector<FeatureOverlap::Held>> features(count / 40);
    for (std::uint32_t i = 0; i < count; ++i) {
      double rank = std::pow(count / 5.0, unit(random));
      const std::size_t item = random() % (count / 40);
      if (rank > kFrequent)
        features[item].push_back({static_cast<FeatureOverlap::Feature>(rank), 1});
    }
    std::vector<float> totals;
    for (std::vector<FeatureOverlap::Held>& of_item : features) {
      std::sort(of_item.begin(), of_item.end(),
                [](const auto& a, const auto& b) { return a.feature < b.feature; });
      totals.push_back(static_cast<float>(of_item.size()));
    }
    FeatureOverlap overlap(0, totals);
    for (std::size_t item = 0; item < features.size(); ++item)
      for (const FeatureOverlap::Held& held : features[item])
        overlap.add(static_cast<int>(item), held);
    overlap.build_index();
    FeatureOverlap::Question question(overlap);
    for (std::size_t item = 0; item < features.size(); ++item)
      benchmark::DoNotOptimize(
          question.neighbours(static_cast<int>(item), features[item], totals[item], kPairs).size());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(similar_compare)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvane
