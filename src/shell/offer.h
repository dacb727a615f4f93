// What a source file adds to the configuration language: its commands, and prototypes for families
// of things such as the forms of the expression language. Such a file ends with one table of them,
// and the header `offers.h` of its folder names it.
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>

#include "shell/exec.h"

namespace torvane {

class World;

/// One row of a file's table of prototypes.
struct Prototype {
  const char* family;
  const char* name;
  const char* usage;  ///< a line for the reference; null where the text says enough
  const char* doc;    ///< what `objects` prints; null for none
  void (*enter)(World& world, const Prototype& row);
};

class Offer {
 public:
  constexpr explicit Offer(std::span<const Command> its_commands,
                           const char* path = __builtin_FILE())
      : commands(its_commands) {
    name_file(path);
  }
  /// `before_all` makes ready what the prototypes need, such as their family.
  constexpr explicit Offer(std::span<const Prototype> its_prototypes,
                           std::span<const Command> its_commands = {},
                           void (*before_all)(World& world) = nullptr,
                           const char* path = __builtin_FILE())
      : prototypes(its_prototypes), commands(its_commands), before(before_all) {
    name_file(path);
  }

  /// The file below `src/`.
  const char* file() const { return file_.data(); }
  void enter(World& world) const;

  std::span<const Prototype> prototypes;
  std::span<const Command> commands;
  void (*before)(World& world) = nullptr;

 private:
  // A copy, so that the program does not hold the whole path.
  constexpr void name_file(std::string_view path) {
    path.remove_prefix(path.rfind("src/") + 4);
    path.copy(file_.data(),
              path.size() < file_.size() ? path.size() : throw "the path is too long");
  }

  std::array<char, 48> file_{};
};

/// Enters several, in their order.
void enter_all(World& world, std::initializer_list<const Offer*> all);

}  // namespace torvane
