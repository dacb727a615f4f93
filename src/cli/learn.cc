// torvane learn: a corpus in, a database of counts out; what is done stays done.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "cli/command.h"
#include "cli/counting.h"
#include "cli/interrupt.h"
#include "cli/progress.h"
#include "cli/similar.h"
#include "cli/summary.h"
#include "counts/build_counts.h"
#include "counts/merge_counts.h"
#include "counts/range_input.h"
#include "counts/shard_plan.h"
#include "engine/file_version.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

struct LearnOptions {
  CountingChoice counting;
  std::vector<std::string> corpus_and_folder;
  std::uint64_t bytes = kShardBytes, min_count = 1;
  bool similar = false, todo = false, quiet = false;
};

/// `FILE BYTES TIME`: another file under the name has another one.
std::string state_of_file(const std::string& file) {
  std::error_code error;
  const auto size = fs::file_size(file, error);
  const auto time = fs::last_write_time(file, error).time_since_epoch().count();
  return file + '\t' + std::to_string(size) + '\t' + std::to_string(time) + '\n';
}

std::uint64_t bytes_of(const std::vector<FileRange>& ranges) {
  std::uint64_t bytes = 0;
  for (const FileRange& range : ranges) bytes += range.end - range.begin;
  return bytes;
}

bool is_counts_file(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error) && CountsFile(path, tell_fault).fault().empty();
}

class Learning {
 public:
  explicit Learning(const LearnOptions& options)
      : options_(options),
        folder_(options.corpus_and_folder.back()),
        shards_(folder_ / "shards"),
        counting_(options.counting),
        progress_(!options.quiet) {}

  int run() {
    if (!make_plan()) return kInputOutput;
    if (!counting_.start()) return kNoGrammar;
    name_shards();
    if (options_.todo) return list_what_is_to_do();
    for (std::size_t i = 0; i < plan_.shards.size(); ++i)
      if (const int status = count_shard(i); status != kDone) return status;
    progress_.end();
    say_counted();
    const std::string all = (folder_ / "all.counts").string();
    const MergeResult merged = merge_counts(files_, all, folder_.string(), tell_fault);
    if (!merged.fault.empty() || is_interrupted()) return fail(merged.fault);
    if (const std::string fault = build(all); !fault.empty() || is_interrupted())
      return fail(fault);
    if (options_.similar)
      if (const std::string fault = find_similar(); !fault.empty()) return fail(fault);
    if (is_interrupted()) end_by_interrupt();
    drop_others();
    return has_faults_ || merged.has_faults ? kInputOutput : kDone;
  }

 private:
  int fail(const std::string& fault) {
    progress_.end();
    if (is_interrupted()) end_by_interrupt();
    tell_fault(fault);
    return kInputOutput;
  }
  void say(const std::string& text) const {
    if (!options_.quiet) std::cerr << text << '\n';
  }

  bool make_plan() {
    std::string fault;
    std::vector<std::string> names = options_.corpus_and_folder;
    names.pop_back();
    const std::vector<std::string> corpus = corpus_files(names, fault);
    if (!fault.empty()) return tell_fault(fault), false;
    plan_ = plan_shards(corpus, options_.counting.from, options_.bytes,
                        [this](const std::string& message) {
                          has_faults_ = true;
                          tell_fault(message);
                        });
    if (plan_.shards.empty()) return tell_fault("the corpus holds nothing"), false;
    std::error_code error;
    fs::create_directories(shards_, error);
    if (error) return tell_fault(shards_.string() + ": " + error.message()), false;
    WholeFile out((folder_ / "plan.txt").string());
    write_plan(plan_, out);
    fault = out.finish();
    if (!fault.empty()) tell_fault(fault);
    return fault.empty();
  }

  /// A shard's name says what it was made of.
  void name_shards() {
    const CountingChoice& choice = options_.counting;
    const std::string how = counting_.kind().kind() + '\t' + choice.from + '\t' +
                            std::to_string(choice.grammar.max_words) + '\n';
    for (std::size_t i = 0; i < plan_.shards.size(); ++i) {
      std::string what = how;
      for (const FileRange& range : plan_.shards[i])
        what += state_of_file(range.file) + std::to_string(range.begin) + '\t' +
                std::to_string(range.end) + '\n';
      std::string number = std::to_string(i + 1);
      number.insert(0, 6 - std::min<std::size_t>(number.size(), 6), '0');
      const std::string name = number + '-' + version_of_text(what);
      names_.push_back(name);
      files_.push_back((shards_ / (name + ".counts")).string());
      is_done_.push_back(is_counts_file(files_.back()));
      if (!is_done_.back()) bytes_to_do_ += bytes_of(plan_.shards[i]);
    }
    const auto done = std::count(is_done_.begin(), is_done_.end(), true);
    if (done > 0)
      say(std::to_string(done) + " of " + std::to_string(files_.size()) +
          " shards were counted before");
    if (const std::size_t others = other_files().size(); others > 0)
      say("what was counted from another corpus or grammar, or with other options, is not used: " +
          std::to_string(others) + " files");
  }

  /// For who counts them elsewhere: number and file of each shard, and whether it is counted.
  int list_what_is_to_do() const {
    for (std::size_t i = 0; i < files_.size(); ++i)
      std::cout << i + 1 << '\t' << files_[i] << '\t' << (is_done_[i] ? "done" : "to do") << '\n';
    std::cout.flush();
    return std::cout ? kDone : kInputOutput;
  }

  int count_shard(std::size_t number) {
    const std::string messages_file = (shards_ / (names_[number] + ".messages")).string();
    if (is_done_[number]) {
      tell_again(messages_file);
      return kDone;
    }
    std::string messages;
    RangeInput input(plan_.shards[number], unit_of(plan_.from), [&](const std::string& message) {
      messages += message + '\n';
      progress_.end();
      tell_fault(message);
    });
    CountSorter counts(counting_.memory_bytes(), shards_.string());
    CountsHeader header = counting_.kind();
    const std::uint64_t before = counted_.sentences;
    const bool is_whole = counting_.count(input, counts, header, [&] {
      const double share =
          static_cast<double>(bytes_done_ + input.bytes_done()) / static_cast<double>(bytes_to_do_);
      progress_.show(before + header.sentences, time_.seconds(), std::min(share, 1.0));
    });
    if (!is_whole) {
      progress_.end();
      if (is_interrupted()) end_by_interrupt();
      return kNoGrammar;
    }
    std::string fault;
    if (!messages.empty()) {
      has_faults_ = true;
      WholeFile out(messages_file);
      out.write(messages);
      fault = out.finish();
    }
    if (fault.empty()) fault = write_counts(files_[number], header, *counts.sorted());
    if (counts.error() != 0) fault = std::strerror(counts.error());
    if (!fault.empty()) return fail(fault);
    counted_.add(header);
    bytes_done_ += bytes_of(plan_.shards[number]);
    return kDone;
  }

  /// What was wrong with a shard when it was counted.
  void tell_again(const std::string& messages_file) {
    std::ifstream in(messages_file);
    for (std::string line; std::getline(in, line); has_faults_ = true) tell_fault(line);
  }

  void say_counted() const {
    const double seconds = time_.seconds();
    const auto rate = static_cast<std::uint64_t>(static_cast<double>(counted_.sentences) / seconds);
    say("counted " + numbers_text(counted_) + ", " + with_commas(rate) + " sentences a second");
  }

  std::string build(const std::string& all) {
    CountsFile counts(all, tell_fault);
    if (!counts.fault().empty()) return counts.fault();
    BuildChoice choice;
    choice.folder = folder_.string();
    choice.min_count = options_.min_count;
    choice.memory = counting_.memory_bytes();
    std::string fault = build_counts(counts, choice);
    if (fault.empty())
      say("made a database of " + numbers_text(counts.header()) + ": " + folder_.string());
    return fault;
  }

  std::string find_similar() const {
    std::error_code error;
    fs::create_directories(folder_ / "similar", error);
    SimilarChoice choice;
    choice.folder = folder_.string();
    choice.output = (folder_ / "similar" / "words.src").string();
    choice.jobs = options_.counting.jobs;
    choice.memory = options_.counting.memory;
    return find_similar_words(choice, !options_.quiet);
  }

  /// Files of shards that are no part of this plan.
  std::vector<fs::path> other_files() const {
    std::set<std::string> own;
    for (const std::string& name : names_) own.insert({name + ".counts", name + ".messages"});
    std::vector<fs::path> others;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(shards_, error))
      if (!own.contains(entry.path().filename().string())) others.push_back(entry.path());
    return others;
  }
  void drop_others() const {
    std::error_code error;
    for (const fs::path& path : other_files()) fs::remove(path, error);
  }

  const LearnOptions& options_;
  const fs::path folder_, shards_;
  ShardPlan plan_;
  Counting counting_;
  Progress progress_;
  Summary time_;
  std::vector<std::string> names_, files_;
  std::vector<bool> is_done_;
  std::uint64_t bytes_to_do_ = 0, bytes_done_ = 0;
  CountsHeader counted_;  // in this run
  bool has_faults_ = false;
};

}  // namespace

std::function<int()> declare_learn(CLI::App& app) {
  auto options = std::make_shared<LearnOptions>();
  app.add_option("CORPUS... DIR", options->corpus_and_folder,
                 "Files, also .gz, .zst and .bz2, and folders of them; the folder for what is "
                 "learned")
      ->required()
      ->expected(2, 1 << 20)
      ->take_all();
  declare_counting(app, options->counting);
  app.add_option("--bytes", options->bytes, "Size of a shard, which is counted as a whole")
      ->check(CLI::Range(std::uint64_t{1}, UINT64_MAX >> 1))
      ->capture_default_str();
  app.add_option("--min-count", options->min_count,
                 "Triples that were counted less often are not in the database")
      ->capture_default_str();
  app.add_flag("--todo", options->todo,
               "Count nothing: make the plan, and list the shards and their files");
  app.add_flag("--similar", options->similar, "Make a list of similar words, too");
  app.add_flag("--quiet", options->quiet, "No progress and summaries on standard error");
  return [options] {
    catch_interrupts();
    if (options->corpus_and_folder.size() < 2) {
      tell_fault("a corpus and a folder are wanted");
      return static_cast<int>(kUsage);
    }
    return Learning(*options).run();
  };
}

}  // namespace torvane
