// Attribute vectors: what the parsing loop does most.
#include <benchmark/benchmark.h>

#include <string>

#include "att/att_interpreter_list.h"
#include "bench/session.h"
#include "shell/irslist.h"

namespace torvane {
namespace {

AttInterpreterList* bench_type() {
  session();
  static AttInterpreterList* type = [] {
    run_forms(
        "(def-att-list bench-atts"
        "  (defattribute cat EnumAtt (allowable-values a c d i j n p v))"
        "  (defattribute num DisjAtt (allowable-values sg pl))"
        "  (defattribute per DisjAtt (allowable-values 1 2 3))"
        "  (defattribute def BinAtt) (defattribute wh BinAtt) (defattribute aux BinAtt)"
        "  (defattribute tense EnumAtt (allowable-values past pres))"
        "  (defattribute args ListAtt) (defattribute root StrAtt))");
    return find_att_list(session(), "bench-atts");
  }();
  return type;
}

Ref<AttVec> vector(const char* text) {
  IRSlistReader reader(false);
  return make_ref<AttVec>(reader.start_string(text), bench_type());
}

void unify(benchmark::State& state) {
  Ref<AttVec> head =
      vector("((cat v) (num sg pl) (per 1 2 3) +aux (tense past) (args ((cat n)) ((cat p))))");
  Ref<AttVec> mod = vector("((cat v) (num sg) (per 3) -wh (root walk))");
  AttVec merged(bench_type());
  for (auto _ : state) {
    merged.clear_all();
    merged.unify(*head, nullptr, true);
    benchmark::DoNotOptimize(merged.unify(*mod, nullptr, true));
  }
}
BENCHMARK(unify);

void unifiable(benchmark::State& state) {
  Ref<AttVec> head = vector("((cat v) (num sg pl) (per 1 2 3) +aux (tense past))");
  Ref<AttVec> mod = vector("((cat v) (num sg) (per 3) -wh)");
  for (auto _ : state) benchmark::DoNotOptimize(head->unifiable(*mod));
}
BENCHMARK(unifiable);

void compare(benchmark::State& state) {
  Ref<AttVec> a = vector("((cat v) (num sg pl) (per 1 2 3) +aux (tense past) (args ((cat n))))");
  Ref<AttVec> b = vector("((cat v) (num sg pl) (per 1 2 3) +aux (tense past) (args ((cat n))))");
  for (auto _ : state) benchmark::DoNotOptimize(a->compare(*b));
}
BENCHMARK(compare);

void copy(benchmark::State& state) {
  Ref<AttVec> a = vector("((cat v) (num sg pl) (per 1 2 3) +aux (tense past) (args ((cat n))))");
  for (auto _ : state) {
    Ref<AttVec> b = make_ref<AttVec>(*a);
    benchmark::DoNotOptimize(b.get());
  }
}
BENCHMARK(copy);

}  // namespace
}  // namespace torvane
