// Evaluation of compiled expressions, per node of the expression.
#include <benchmark/benchmark.h>

#include "bench/session.h"
#include "lexp/expressions.h"
#include "lexp/lexp.h"

namespace torvane {
namespace {

void evaluate(benchmark::State& state, const char* text, int nodes, Value input, const char* type) {
  std::unique_ptr<LExp> exp = LExp::get_exp_from_text(session(), text);
  int number = expressions(session()).types.id(type);
  for (auto _ : state) benchmark::DoNotOptimize(exp->eval(input, number));
  state.counters["ns_per_node"] = benchmark::Counter(
      static_cast<double>(nodes) * 1e-9,
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void control_forms(benchmark::State& state) {
  evaluate(state, "(and (or (nil) (ident)) (if (t) (ident) (nil)) (not (nil) (nil)) (t))", 10,
           Value::integer(7), nullptr);
}
BENCHMARK(control_forms);

void integer_forms(benchmark::State& state) {
  evaluate(state, "(int-gt (int-sum (ident) (int 3)) (int-diff (ident) (int 2)))", 7,
           Value::integer(5), nullptr);
}
BENCHMARK(integer_forms);

void string_forms(benchmark::State& state) {
  evaluate(state, "(or (str= and) (str= or) (in (but nor yet)))", 4, Value::constant("yet"),
           "char*");
}
BENCHMARK(string_forms);

void function_call(benchmark::State& state) {
  session();
  static bool defined = [] {
    run_forms("(defun bench-f (x y) (int-sum (get-val x) (get-val y)))\n");
    return true;
  }();
  benchmark::DoNotOptimize(defined);
  evaluate(state, "(bench-f (ident) (int 3))", 6, Value::integer(5), nullptr);
}
BENCHMARK(function_call);

}  // namespace
}  // namespace torvane
