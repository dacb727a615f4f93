// Sorted rows from several sources as one: the counts of a key are added.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "counts/count_row.h"
#include "counts/file_writer.h"

namespace torvane {

class RowMerge : public RowSource {
 public:
  explicit RowMerge(std::vector<std::unique_ptr<RowSource>> sources);
  bool next(CountRow& row) override;

 private:
  struct Head {
    CountRow row;
    RowSource* source;
  };
  static bool is_later(const Head& a, const Head& b) { return b.row.key < a.row.key; }
  /// The first one's next row, put into its place.
  void advance();

  std::vector<std::unique_ptr<RowSource>> sources_;
  std::vector<Head> heads_;  // a heap, the first key on top
};

/// Sorted runs of rows on the disk. Few files are open at a time, however many runs there are.
class Runs {
 public:
  static constexpr std::size_t kMostAtOnce = 32;

  /// The runs lie in this folder, without names.
  explicit Runs(std::string folder) : folder_(std::move(folder)) {}

  void add(RowSource& rows);
  bool empty() const { return levels_.empty(); }
  /// All of them as one, and another source if there is one; nothing can be added any more.
  std::unique_ptr<RowSource> merged(std::unique_ptr<RowSource> last = nullptr);
  /// The error number of what failed; 0 if nothing did.
  int error() const { return error_; }

 private:
  using Level = std::vector<std::unique_ptr<ScratchFile>>;
  std::unique_ptr<RowMerge> merge_of(Level& level);
  void add(RowSource& rows, std::size_t level);

  std::string folder_;
  std::vector<Level> levels_;  // a run of the next one is made of as many as fit here
  int error_ = 0;
};

}  // namespace torvane
