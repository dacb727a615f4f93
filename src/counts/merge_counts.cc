#include "counts/merge_counts.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>

#include "counts/row_merge.h"

namespace torvane {
namespace {

/// Counts the rows whose sum was too high for a number.
class Watched : public RowSource {
 public:
  explicit Watched(RowSource& rows) : rows_(rows) {}
  bool next(CountRow& row) override {
    if (!rows_.next(row)) return false;
    highest_ += row.count == UINT64_MAX ? 1U : 0U;
    return true;
  }
  std::uint64_t highest() const { return highest_; }

 private:
  RowSource& rows_;
  std::uint64_t highest_ = 0;
};

/// Rows of a file that its owner reads.
class RowsOf : public RowSource {
 public:
  explicit RowsOf(RowSource& rows) : rows_(rows) {}
  bool next(CountRow& row) override { return rows_.next(row); }

 private:
  RowSource& rows_;
};

using Files = std::vector<std::unique_ptr<CountsFile>>;

class Merging {
 public:
  Merging(const std::vector<std::string>& names, std::string folder, const Tell& tell)
      : names_(names), runs_(std::move(folder)), tell_(tell) {}

  MergeResult into(const std::string& output) {
    Files files;
    std::size_t at = 0;
    for (; names_.size() - at > Runs::kMostAtOnce; at += files.size()) {
      if (!open(at, Runs::kMostAtOnce, files)) return result_;
      runs_.add(*merge_of(files));
      note_faults(files);
    }
    if (!open(at, names_.size() - at, files)) return result_;
    const std::unique_ptr<RowSource> rows = runs_.merged(merge_of(files));
    Watched watched(*rows);
    result_.fault = write_counts(output, *header_, watched);
    note_faults(files);
    if (runs_.error() != 0) result_.fault = std::strerror(runs_.error());
    if (watched.highest() > 0)
      tell_(std::to_string(watched.highest()) +
            " counts have reached the highest number there is, and stay there");
    return result_;
  }

 private:
  bool open(std::size_t from, std::size_t count, Files& files) {
    files.clear();
    for (std::size_t i = from; i < from + count; ++i) {
      files.push_back(std::make_unique<CountsFile>(names_[i], tell_));
      const CountsFile& file = *files.back();
      result_.fault = file.fault();
      if (result_.fault.empty() && header_ && !header_->is_alike(file.header()))
        result_.fault = names_[i] + ": counts of " + file.header().kind() +
                        " cannot be added to those of " + header_->kind();
      if (!result_.fault.empty()) return false;
      if (header_) {
        header_->add(file.header());
      } else {
        header_ = file.header();
      }
    }
    return true;
  }

  static std::unique_ptr<RowMerge> merge_of(const Files& files) {
    std::vector<std::unique_ptr<RowSource>> rows;
    for (const std::unique_ptr<CountsFile>& file : files)
      rows.push_back(std::make_unique<RowsOf>(*file));
    return std::make_unique<RowMerge>(std::move(rows));
  }

  void note_faults(const Files& files) {
    for (const std::unique_ptr<CountsFile>& file : files) result_.has_faults |= file->has_faults();
  }

  const std::vector<std::string>& names_;
  Runs runs_;
  const Tell& tell_;
  std::optional<CountsHeader> header_;
  MergeResult result_;
};

}  // namespace

MergeResult merge_counts(const std::vector<std::string>& files, const std::string& output,
                         const std::string& folder, const Tell& tell) {
  return Merging(files, folder, tell).into(output);
}

}  // namespace torvane
