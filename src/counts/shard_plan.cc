#include "counts/shard_plan.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "counts/corpus_file.h"
#include "counts/line_file.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

constexpr const char *kFormatLine = "# torvane-shards 1", *kFromLine = "# from ";
constexpr std::size_t kPlanPiece = std::size_t{1} << 16;

bool read_column(std::string_view text, std::uint64_t& number) {
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && stop == text.data() + text.size();
}

/// Takes a row in; false if it is none.
bool read_plan_row(std::string_view line, ShardPlan& plan) {
  std::array<std::string_view, 4> columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::size_t tab = line.find('\t');
    if ((tab == line.npos) != (i + 1 == columns.size())) return false;
    columns[i] = line.substr(0, tab);
    line.remove_prefix(tab == line.npos ? line.size() : tab + 1);
  }
  std::uint64_t shard;
  FileRange range{std::string(columns[1]), 0, 0};
  if (!read_column(columns[0], shard) || !read_column(columns[2], range.begin) ||
      !read_column(columns[3], range.end))
    return false;
  if (shard == plan.shards.size() + 1) plan.shards.emplace_back();
  if (shard == 0 || shard != plan.shards.size()) return false;
  plan.shards.back().push_back(std::move(range));
  return true;
}

}  // namespace

std::vector<std::string> corpus_files(const std::vector<std::string>& names, std::string& fault) {
  std::vector<std::string> files;
  std::error_code error;
  for (const std::string& name : names) {
    if (!fs::is_directory(name, error)) {
      files.push_back(name);
      continue;
    }
    const std::size_t first = files.size();
    for (fs::recursive_directory_iterator entry(name, error), end; entry != end && !error;
         entry.increment(error))
      if (entry->is_regular_file(error)) files.push_back(entry->path().string());
    if (error) fault = name + ": " + error.message();
    std::sort(files.begin() + static_cast<std::ptrdiff_t>(first), files.end());
  }
  for (const std::string& file : files)
    if (file.find_first_of("\t\n") != file.npos) fault = file + ": a name with a tab or line's end";
  return files;
}

ShardPlan plan_shards(const std::vector<std::string>& files, const std::string& from,
                      std::uint64_t bytes, const Tell& tell) {
  ShardPlan plan{from, {}};
  std::uint64_t room = 0;
  for (const std::string& file : files) {
    std::string fault;
    const std::uint64_t size = size_of_corpus_file(file, fault);
    if (!fault.empty()) tell(fault);
    for (std::uint64_t at = 0; at < size;) {
      if (room == 0) {
        plan.shards.emplace_back();
        room = bytes;
      }
      const std::uint64_t taken = std::min(room, size - at);
      plan.shards.back().push_back({file, at, at + taken});
      at += taken;
      room -= taken;
    }
  }
  return plan;
}

void write_plan(const ShardPlan& plan, FileWriter& out) {
  out.write(std::string(kFormatLine) + '\n' + kFromLine + plan.from + '\n');
  for (std::size_t i = 0; i < plan.shards.size(); ++i)
    for (const FileRange& range : plan.shards[i])
      out.write(std::to_string(i + 1) + '\t' + range.file + '\t' + std::to_string(range.begin) +
                '\t' + std::to_string(range.end) + '\n');
}

std::string read_plan(const std::string& name, ShardPlan& plan) {
  const int file = open(name.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return name + ": " + std::strerror(errno);
  LineFile lines(file, kPlanPiece);
  std::string_view line;
  bool good =
      lines.line(line) && line == kFormatLine && lines.line(line) && line.starts_with(kFromLine);
  if (good) plan.from = line.substr(std::strlen(kFromLine));
  while (good && lines.line(line)) good = read_plan_row(line, plan);
  close(file);
  return good ? std::string() : name + ": no plan of shards";
}

std::string read_shard(const std::string& name, std::size_t shard, ShardPlan& plan) {
  std::string fault = read_plan(name, plan);
  if (fault.empty() && (shard < 1 || shard > plan.shards.size()))
    fault = name + ": no shard " + std::to_string(shard);
  return fault;
}

}  // namespace torvane
