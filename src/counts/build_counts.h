// Counts become a database of triples.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "counts/counts_file.h"
#include "triples/db/triple_db.h"

namespace torvane {

struct BuildChoice {
  std::string folder;           ///< gets the database
  std::uint64_t min_count = 1;  ///< a triple of less is none
  PopulateLimits limits;
  std::size_t memory = 0;    ///< bytes for sorting
  std::uint64_t stores = 0;  ///< how many files the database lies in; 0: as many as it needs
};

/// Writes what populating reads (`rels.txt`, `deps.txt`), the database made of it (`triples.hdr`,
/// `triples.db`) and the counts' header (`counts.txt`) into a folder. Empty, or what is wrong; then
/// a database that was there is as it was.
std::string build_counts(CountsFile& counts, const BuildChoice& choice);

}  // namespace torvane
