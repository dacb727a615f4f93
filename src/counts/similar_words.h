// All words of a database of triples compared with all, in bounded memory: what a word is used with
// lies on the disk, and is brought into memory for as many words at a time as fit.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "counts/file_writer.h"
#include "wordsim/feature_overlap.h"
#include "wordsim/triple_features.h"

namespace torvane {

class SimilarWords {
 public:
  /// So many bytes for comparing; files without names go to the folder.
  SimilarWords(std::size_t memory, const std::string& folder);

  /// Takes in, of the database in a folder, every word's triples that carry so much information.
  /// False if there is none.
  bool read(const std::string& folder, float least_information);
  /// Finds for each word and part of speech the most similar words, in threads.
  void compare(std::size_t most, std::size_t threads);
  /// Writes them, in the form of a source file.
  void write(FileWriter& out, std::size_t most);

  std::size_t word_count() const { return words_.size(); }
  std::size_t feature_count() const { return feature_count_; }
  /// The error number of what failed; 0 if nothing did.
  int error() const;

 private:
  struct Word {
    std::string word;
    int entry, pos;
    std::uint64_t first_feature;
    std::uint32_t feature_count;
  };
  /// Where the list of a word against a row of words lies.
  struct ListPlace {
    std::uint64_t offset = 0;
    std::uint32_t pairs = 0;
  };
  using Lists = std::vector<ListPlace>;
  using Features = std::vector<FeatureOverlap::Held>;

  void take(const WordFeatures& word);
  bool read_features_of(const Word& word, Features& features);
  std::size_t end_of_row(std::size_t first) const;
  void compare_with(std::size_t first, std::size_t last, std::size_t most, std::size_t threads);
  void compare_some(const FeatureOverlap& row, std::size_t most, std::atomic<std::size_t>& next,
                    Lists& lists);
  bool read_list(const ListPlace& place, std::vector<SimPair>& pairs);
  void note_error(int error);

  const std::size_t memory_;
  std::vector<Word> words_;
  std::vector<float> totals_;
  std::uint64_t feature_count_ = 0;
  ScratchFile features_, lists_file_;
  int features_read_ = -1, lists_read_ = -1;
  std::uint64_t lists_size_ = 0;
  std::vector<Lists> lists_;  // by row, by word
  std::mutex mutex_;
  std::atomic<int> error_ = 0;
};

}  // namespace torvane
