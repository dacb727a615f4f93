// Files of counts become one.
#pragma once

#include <string>
#include <vector>

#include "counts/counts_file.h"

namespace torvane {

struct MergeResult {
  std::string fault;        ///< what kept it from being done, or empty
  bool has_faults = false;  ///< rows were told and left out
};

/// Adds the counts of files and writes them to `output`. The result is the same in whatever order
/// and grouping files are merged. `folder` takes what is too much at a time.
MergeResult merge_counts(const std::vector<std::string>& files, const std::string& output,
                         const std::string& folder, const Tell& tell);

}  // namespace torvane
