#include "check/lexicon_names.h"

#include "parser/grammar/contract.h"
#include "parser/grammar/grammar.h"

namespace torvane {
namespace {

/// Forms that have a vector among their arguments.
const KnownNames::Names kVectorForms{"alias",     "avm",   "make-av",          "contain", "modify",
                                     "unifiable", "unify", "strict-unifiable", "attvec"};

void each_item(const SourceForm& vector, const std::function<void(const SourceForm&)>& visit) {
  for (const SourceForm& item : vector.items) {
    visit(item);
    for (const SourceForm& value : item.items)
      if (value.is_list) each_item(value, visit);
  }
}

}  // namespace

void each_vector_item(const SourceForm& form, const std::function<void(const SourceForm&)>& visit) {
  each_list(form, [&](const SourceForm& list) {
    if (!knows(kVectorForms, list.head())) return;
    for (const SourceForm& item : list.items)
      if (item.is_list && !knows(kVectorForms, item.head())) each_item(item, visit);
  });
}

std::vector<const Lexicon*> all_lexicons(const World& world) {
  std::vector<const Lexicon*> lexicons;
  world.objects.for_each([&](const char* name, const char* type) {
    if (std::string_view(type) == "Lexicon")
      lexicons.push_back(world.objects.find_as<Lexicon>(name, "Lexicon", false));
  });
  return lexicons;
}

std::set<std::string> entered_categories(const GrammarSources& sources) {
  std::set<std::string> names;
  each_entry_vector(sources.world, [&](const AttVec& vec) {
    names.insert(node_name_of(vec));
    names.insert(category_node_name(vec));
  });
  sources.each_command([&](const SourceFile&, const SourceForm& form) {
    each_vector_item(form, [&](const SourceForm& item) {
      if (item.head() == "node") names.insert(std::string(item.text(1)));
      if (item.head() != contract::kCategoryAtt) return;
      for (const contract::Category& category : contract::kCategories)
        if (item.text(1) == category.letter) names.insert(category.node);
    });
  });
  return names;
}

std::map<std::string, std::set<std::string>> argument_categories(const GrammarSources& sources) {
  std::map<std::string, std::set<std::string>> arguments;
  each_entry_vector(sources.world, [&](const AttVec& vec) {
    const AttVecList* args = list_of(vec, syntax_atts(vec).args);
    for (int i = 0; args && i < args->length(); ++i)
      arguments[category_node_name(vec)].insert(category_node_name(*args->at(i)));
  });
  return arguments;
}

}  // namespace torvane
