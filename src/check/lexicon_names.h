// What the words of the loaded lexicons, and the readings that rules make, name.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "att/attributes.h"
#include "check/grammar_sources.h"
#include "lex/lexicon/lexicon.h"

namespace torvane {

/// The lexicons of a grammar.
std::vector<const Lexicon*> all_lexicons(const World& world);

/// Calls `visit(vector)` for the vector of each alias and of each meaning of an entry.
template <class Visit>
void each_entry_vector(World& world, Visit visit) {
  for (const auto& type : attributes(world).types)
    type->aliases.for_each([&](const auto& alias) { visit(*alias.value); });
  for (const Lexicon* lexicon : all_lexicons(world))
    lexicon->for_each([&](const LexEntry& entry) {
      for (const Meaning* meaning : entry.meanings())
        if (const AVMeaning* avm = as_avm(meaning)) visit(*avm->vec);
    });
}

/// The categories that words enter.
std::set<std::string> entered_categories(const GrammarSources& sources);

/// For each category the categories of the arguments that its words take.
std::map<std::string, std::set<std::string>> argument_categories(const GrammarSources& sources);

/// Calls `visit(item)` for each item of a vector that is written inside a form: `(num sg)` or
/// `+opt`, also of the vectors inside one.
void each_vector_item(const SourceForm& form, const std::function<void(const SourceForm&)>& visit);

}  // namespace torvane
