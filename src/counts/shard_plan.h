// A corpus in pieces of about the same size, each to be counted by itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "counts/counts_file.h"

namespace torvane {

/// What belongs to a range of bytes: the sentences, or the paragraphs, whose first byte lies in it.
struct FileRange {
  std::string file;
  std::uint64_t begin = 0, end = UINT64_MAX;
};

inline constexpr std::uint64_t kShardBytes = std::uint64_t{4} << 20;

struct ShardPlan {
  std::string from;  ///< how sentences are read
  std::vector<std::vector<FileRange>> shards;
};

/// The files that are named, and those within folders that are named, in the order of their bytes.
/// In `fault` what is wrong, or nothing.
std::vector<std::string> corpus_files(const std::vector<std::string>& names, std::string& fault);

/// Pieces of so many bytes: small files together, large ones cut. A file that cannot be read is
/// told; what can be read of it has its place in the plan.
ShardPlan plan_shards(const std::vector<std::string>& files, const std::string& from,
                      std::uint64_t bytes, const Tell& tell);

/// A plan as text: rows `shard TAB file TAB begin TAB end`, with lines in front.
void write_plan(const ShardPlan& plan, FileWriter& out);
/// Empty, or what is wrong.
std::string read_plan(const std::string& name, ShardPlan& plan);
/// The same for the sake of one shard, numbered from 1, which must be there.
std::string read_shard(const std::string& name, std::size_t shard, ShardPlan& plan);

}  // namespace torvane
