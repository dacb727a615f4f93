// The ways of a parse run, gone again over a chart that is full.
#pragma once

#include "parser/run/parse_run.h"
#include "parser/torvane_parser.h"

namespace torvane {

class RunReplay {
 public:
  explicit RunReplay(TorvaneParser& parser) : run_(parser.grammar, parser.chart) {}

  /// Where a neighbour of the item may end when it does not end at `end`; below 0 for nowhere.
  int next_left(const GCate& node, int position, int end, const PItem& item,
                PItem*& adjunct) const {
    return run_.next_left(node, position, end, item, adjunct);
  }
  int conjunct_end(const GCate& node, const PItem& item, int position) const {
    return run_.conjunct_end(node, item, position);
  }

 private:
  ParseRun run_;
};

}  // namespace torvane
