#include "counts/row_merge.h"

#include <algorithm>
#include <utility>

#include "counts/line_file.h"

namespace torvane {
namespace {

constexpr std::size_t kRowPiece = std::size_t{1} << 15;

/// A run that was written here.
class RunRows : public RowSource {
 public:
  RunRows(int file, int& error) : lines_(file, kRowPiece), error_(error) {}
  bool next(CountRow& row) override {
    std::string_view line;
    if (lines_.line(line)) return !read_count_row(line, row);
    if (lines_.error() != 0) error_ = lines_.error();
    return false;
  }

 private:
  LineFile lines_;
  int& error_;
};

}  // namespace

RowMerge::RowMerge(std::vector<std::unique_ptr<RowSource>> sources) : sources_(std::move(sources)) {
  for (const std::unique_ptr<RowSource>& source : sources_)
    if (Head head{{}, source.get()}; source->next(head.row)) heads_.push_back(std::move(head));
  std::make_heap(heads_.begin(), heads_.end(), is_later);
}

void RowMerge::advance() {
  std::pop_heap(heads_.begin(), heads_.end(), is_later);
  Head& head = heads_.back();
  if (head.source->next(head.row)) {
    std::push_heap(heads_.begin(), heads_.end(), is_later);
  } else {
    heads_.pop_back();
  }
}

bool RowMerge::next(CountRow& row) {
  if (heads_.empty()) return false;
  row = heads_.front().row;
  advance();
  while (!heads_.empty() && heads_.front().row.key == row.key) {
    row.count = sum_of_counts(row.count, heads_.front().row.count);
    advance();
  }
  return true;
}

void Runs::add(RowSource& rows) {
  add(rows, 0);
  for (std::size_t level = 0; level < levels_.size(); ++level) {
    if (levels_[level].size() < kMostAtOnce) continue;
    add(*merge_of(levels_[level]), level + 1);
    levels_[level].clear();
  }
}

void Runs::add(RowSource& rows, std::size_t level) {
  if (level == levels_.size()) levels_.emplace_back();
  auto run = std::make_unique<ScratchFile>(folder_);
  for (CountRow row; run->error() == 0 && rows.next(row);)
    write_count_row(*run, row.key, row.count);
  run->flush();
  if (run->error() != 0) error_ = run->error();
  levels_[level].push_back(std::move(run));
}

std::unique_ptr<RowMerge> Runs::merge_of(Level& level) {
  std::vector<std::unique_ptr<RowSource>> rows;
  for (const std::unique_ptr<ScratchFile>& run : level)
    rows.push_back(std::make_unique<RunRows>(run->rewind(), error_));
  return std::make_unique<RowMerge>(std::move(rows));
}

std::unique_ptr<RowSource> Runs::merged(std::unique_ptr<RowSource> last) {
  std::vector<std::unique_ptr<RowSource>> rows;
  for (Level& level : levels_) rows.push_back(merge_of(level));
  if (last) rows.push_back(std::move(last));
  return std::make_unique<RowMerge>(std::move(rows));
}

}  // namespace torvane
