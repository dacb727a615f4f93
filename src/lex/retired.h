// What is thrown away while an expression waits for commands that it runs: a value on its way
// through the expression may still lead to it.
#pragma once

#include <memory>
#include <utility>

#include "lexp/lexp.h"

namespace torvane {

class Retired {
 public:
  virtual ~Retired() = default;
};

namespace tags {
inline constexpr TypeTag retired{"", nullptr, Life::counted, [](Word) {},
                                 [](Word word) { delete reinterpret_cast<Retired*>(word); }};
}
template <>
struct ValueTraits<Retired> : TagOf<Retired, tags::retired> {};

/// Destroys `things` as soon as no expression runs.
template <class T>
void retire(World& world, T things) {
  struct Holder : Retired {
    explicit Holder(T held) : kept(std::move(held)) {}
    T kept;
  };
  if (expression_waits(world)) HeldValue(Value::of<Retired>(new Holder(std::move(things))));
}

}  // namespace torvane
