// Containers and regular expressions; the regular expressions beside std::regex on the same
// patterns.
#include <benchmark/benchmark.h>

#include <regex>
#include <string>
#include <vector>

#include "support/bit_set.h"
#include "support/name_table.h"
#include "support/regexp.h"

namespace torvane {
namespace {

void name_table_find(benchmark::State& state) {
  NameTable<int> table(1997);
  std::vector<std::string> names;
  for (int i = 0; i < 2000; ++i) names.push_back("def-thing-" + std::to_string(i * 7919));
  for (const std::string& name : names) table.insert(name.c_str(), 1);
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(table.find(names[i].c_str()));
    if (++i == names.size()) i = 0;
  }
}
BENCHMARK(name_table_find);

LBitSet every_third(int bits) {
  LBitSet set(bits);
  for (int i = 0; i < bits; i += 3) set.set(i);
  return set;
}

void bit_set_and_compare(benchmark::State& state) {
  LBitSet a = every_third(64), b = a;
  b.set(1);
  for (auto _ : state) {
    LBitSet both = a & b;
    benchmark::DoNotOptimize(both.compare(b));
  }
}
BENCHMARK(bit_set_and_compare);

void bit_set_walk(benchmark::State& state) {
  LBitSet a = every_third(64);
  for (auto _ : state) {
    int sum = 0;
    LBitSetIterator walk(a);
    for (int i = walk.next(); i >= 0; i = walk.next()) sum += i;
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(bit_set_walk);

struct RegexCase {
  const char* name;
  const char* pattern;
  const char* text;
};
constexpr RegexCase kRegexCases[] = {
    {"number", "^[0-9]+(,[0-9][0-9][0-9])*$", "12,345,678"},
    {"suffix", "(tion|ness|ment)$", "internationalisation"},
    {"scan", "[A-Z][a-z]+ (of|de) [A-Z]",
     "the small town on the coast of the Gulf of Saint Lawrence"},
    {"miss", "xylophone", "a line of running text in which the wanted word does not occur at all"},
};

void regex_own(benchmark::State& state, const RegexCase& c) {
  auto program = regcomp(c.pattern);
  for (auto _ : state) benchmark::DoNotOptimize(regexec(program.get(), c.text));
}
void regex_std(benchmark::State& state, const RegexCase& c) {
  std::regex program(c.pattern);
  std::string text = c.text;
  for (auto _ : state) benchmark::DoNotOptimize(std::regex_search(text, program));
}

const bool registered = [] {
  for (const RegexCase& c : kRegexCases) {
    benchmark::RegisterBenchmark((std::string("regex_own/") + c.name).c_str(),
                                 [&c](benchmark::State& s) { regex_own(s, c); });
    benchmark::RegisterBenchmark((std::string("regex_std/") + c.name).c_str(),
                                 [&c](benchmark::State& s) { regex_std(s, c); });
  }
  return true;
}();

}  // namespace
}  // namespace torvane
