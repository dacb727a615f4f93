// The function by which a lexical rule closes a span to dependencies from outside.
#include <algorithm>

#include "lex/patterns/match.h"
#include "lexp/form.h"
#include "parser/forms/offers.h"
#include "parser/torvane_parser.h"

namespace torvane {
namespace {

/// Forbids merges that reach from inside the span out of it.
void isolate(World& world, Match*, int from, int to) {
  TorvaneParser* parser = current_parser(world);
  if (!parser || !parser->grammar._lex || from == to) return;
  int last = std::min(to, parser->grammar._lex->last_position());
  for (int i = std::max(from, 0); i <= last; ++i) {
    auto& [left, right] = parser->chart.spans.span_limits(i);
    if (i < to) left = std::max(left, from);
    if (i > from) right = std::min(right, to);
  }
}

constexpr Prototype kIsolateForms[] = {
    function<isolate>("isolate",
                      "`(isolate low high)` no dependency but one crosses the edges of the span"),
};

}  // namespace

constinit const Offer offers::isolate{kIsolateForms};

}  // namespace torvane
