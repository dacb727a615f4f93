// Rules that can never fire, since their pattern names what nothing has.
#include <algorithm>
#include <set>

#include "check/grammar_sources.h"
#include "check/lexicon_names.h"
#include "parser/grammar/contract.h"
#include "parser/parsing.h"

namespace torvane {
namespace {

using Names = KnownNames::Names;

const Names kDefinitions{"def-rules", "insert-lex-rules", "def-tree-rules", "defun"};

/// The names of endings, from the tables of lexicons and from `def-endings`.
Names ending_names(const GrammarSources& sources) {
  Names names;
  auto add_rows = [&](const SourceForm& table) {
    for (const SourceForm& row : table.items)
      if (row.is_list && row.items.size() > 2 && !row.items[2].is_list)
        names.emplace_back(row.text(2));
  };
  sources.each_command([&](const SourceFile&, const SourceForm& form) {
    if (GrammarSources::same_name(form.head(), "def-endings")) add_rows(form);
    if (GrammarSources::same_name(form.head(), "make-lexicon"))
      for (const SourceForm& item : form.items) add_rows(item);
  });
  return names;
}

/// The relations that links, arguments and tree rules give.
Names relation_names(const GrammarSources& sources) {
  Names names{contract::kGuest,      contract::kSubcat,        contract::kSubclass,
              contract::kConjunct,   contract::kEmptyRelation, contract::kLexicalPart,
              contract::kLexicalWord};
  if (TorvaneParser* parser = current_parser(sources.world))
    parser->grammar._nodes.for_each([&](const auto& entry) {
      for (const Link* link : entry.value->out_links())
        if (link->type()) names.emplace_back(link->type().c_str());
    });
  for (const SourceFile& file : sources.files)
    for (const SourceForm& form : file.forms)
      each_list(form, [&](const SourceForm& list) {
        // What a form says as a text may become a relation.
        if (list.head() == "role" || list.head() == "str" || list.head() == "conj-atts")
          names.emplace_back(list.text(1));
      });
  return names;
}

class Rules {
 public:
  explicit Rules(GrammarSources& sources)
      : sources_(sources), endings_(ending_names(sources)), relations_(relation_names(sources)) {
    sources_.each_entry([this](const SourceFile&, const SourceForm& entry) {
      if (entry.items.size() > 0) roots_.insert(std::string(entry.head()));
    });
    for (const Lexicon* lexicon : all_lexicons(sources.world))
      on_disk_ = on_disk_ || lexicon->has_dictionaries();
  }

  void look_at(const SourceFile& file, const SourceForm& form) {
    if (!knows(kDefinitions, form.head())) return;
    const bool of_trees = GrammarSources::same_name(form.head(), "def-tree-rules");
    each_list(form, [&](const SourceForm& list) {
      if (list.head() == "ending") ending(file, list);
      if (list.head() == "rel" && of_trees) relation(file, list);
      if (list.head() == "comp" && list.items.size() > 2 && list.items[1].head() == "root" &&
          list.items[1].items.size() == 1)
        root(file, list.items[2]);
    });
  }

 private:
  void ending(const SourceFile& file, const SourceForm& list) {
    const std::string_view name = list.text(1);
    if (name.empty() || knows(endings_, name)) return;
    sources_.error(file, list.line,
                   "this can never hold: no ending has the name '" + std::string(name) + "'" +
                       hint_for(name, endings_));
  }

  void root(const SourceFile& file, const SourceForm& test) {
    const std::string_view word = test.text(1);
    if (test.head() != "str=" || word.empty() || on_disk_ || roots_.empty()) return;
    const bool has_entry = std::any_of(roots_.begin(), roots_.end(), [&](const std::string& known) {
      return GrammarSources::same_name(known, word);
    });
    if (!has_entry)
      sources_.warn(file, test.line,
                    "this can never hold: no entry has the root '" + std::string(word) + "'" +
                        hint_for(word, {roots_.begin(), roots_.end()}));
  }

  void relation(const SourceFile& file, const SourceForm& list) {
    const SourceForm* test = list.items.size() > 1 ? &list.items[1] : nullptr;
    if (!test || test->head() != "str=") return;
    const std::string_view name = test->text(1);
    if (!name.empty() && !knows(relations_, name))
      sources_.warn(file, test->line,
                    "this can never hold: nothing gives the relation '" + std::string(name) + "'" +
                        hint_for(name, relations_));
  }

  GrammarSources& sources_;
  const Names endings_, relations_;
  std::set<std::string> roots_;
  bool on_disk_ = false;
};

}  // namespace

void check_rules(GrammarSources& sources) {
  Rules rules(sources);
  std::vector<std::pair<const SourceFile*, const SourceForm*>> all;
  sources.each_command(
      [&](const SourceFile& file, const SourceForm& form) { all.emplace_back(&file, &form); });
  for (const auto& [file, form] : all) rules.look_at(*file, *form);
}

}  // namespace torvane
