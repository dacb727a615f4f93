#include "check/known_names.h"

#include <algorithm>

#include "att/attributes.h"
#include "lexp/lexp.h"
#include "parser/parsing.h"

namespace torvane {
namespace {

template <class Table>
KnownNames::Names names_of(const Table& table) {
  KnownNames::Names names;
  table.for_each([&](const auto& entry) { names.emplace_back(entry.key); });
  std::sort(names.begin(), names.end());
  return names;
}

KnownNames::Names family(const World& world, const char* name) {
  const ObjFactory* members = world.families.find(name);
  return members ? names_of(*members) : KnownNames::Names();
}

}  // namespace

KnownNames::KnownNames(World& world)
    : commands(names_of(world.interpreter.commands)),
      forms(family(world, kExpressions)),
      patterns(family(world, "LPattern")),
      meanings(family(world, "Meaning")),
      att_types(family(world, "AttIntepreter")) {
  world.objects.for_each([this](const char* name, const char*) { objects.emplace_back(name); });
  std::sort(objects.begin(), objects.end());
  for (const auto& type : torvane::attributes(world).types) {
    for (const AttInterpreter* att : type->atts) attributes.push_back(att->name);
    type->aliases.for_each([this](const auto& alias) { attributes.emplace_back(alias.key); });
  }
  const TorvaneParser* parser = current_parser(world);
  if (!parser) return;
  categories = names_of(parser->grammar._nodes);
}

bool knows(const KnownNames::Names& names, std::string_view name) {
  return std::any_of(names.begin(), names.end(), [&](const std::string& known) {
    return same_word(known.c_str(), std::string(name).c_str());
  });
}

}  // namespace torvane
