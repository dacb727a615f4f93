// The table of distances: how often each relation was seen over how many words.
#pragma once

#include <istream>
#include <map>
#include <memory>
#include <string>

#include "support/name_table.h"

namespace torvane {

class DistTable {
 public:
  DistTable() : relations_(1979) {}

  /// Reads records of four fields: relation, distance, one that is ignored, count. Bad ones are
  /// reported and left out.
  void read(std::istream& in);
  /// A relation seen fewer than 200 times leans on a flat prior; an unknown one has 1 / distance.
  double probability(const char* relation, int distance) const;

 private:
  struct Entry {
    std::map<long, float> counts;  // by distance; 1 below the last one where no record stands
    double total = 0;
    double count(long distance) const;
  };
  void add(const char* relation, const char* distance, const char* count);

  NameTable<std::shared_ptr<Entry>> relations_;
  std::string last_relation_;
  Entry* last_ = nullptr;
};

}  // namespace torvane
