#include <benchmark/benchmark.h>

#include <cstdlib>
#include <new>

#include "bench/allocations.h"
#include "support/depth.h"

namespace {
std::uint64_t g_allocations = 0;

void* counted_alloc(std::size_t size) {
  ++g_allocations;
  if (void* p = std::malloc(size ? size : 1)) return p;
  std::abort();
}
void* counted_alloc(std::size_t size, std::align_val_t align) {
  ++g_allocations;
  auto a = static_cast<std::size_t>(align);
  if (void* p = std::aligned_alloc(a, (size + a - 1) / a * a)) return p;
  std::abort();
}
}  // namespace

void* operator new(std::size_t size) {
  return counted_alloc(size);
}
void* operator new[](std::size_t size) {
  return counted_alloc(size);
}
void* operator new(std::size_t size, std::align_val_t align) {
  return counted_alloc(size, align);
}
void* operator new[](std::size_t size, std::align_val_t align) {
  return counted_alloc(size, align);
}
void operator delete(void* p) noexcept {
  std::free(p);
}
void operator delete[](void* p) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
  std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
  std::free(p);
}
void operator delete(void* p, std::align_val_t) noexcept {
  std::free(p);
}
void operator delete[](void* p, std::align_val_t) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t, std::align_val_t) noexcept {
  std::free(p);
}
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept {
  std::free(p);
}

namespace torvane {
std::uint64_t allocation_count() {
  return g_allocations;
}
}  // namespace torvane

namespace {
int g_argc;
char** g_argv;

int run() {
  benchmark::Initialize(&g_argc, g_argv);
  if (benchmark::ReportUnrecognizedArguments(g_argc, g_argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
}  // namespace

int main(int argc, char** argv) {
  g_argc = argc;
  g_argv = argv;
  return torvane::run_on_large_stack(run);
}
