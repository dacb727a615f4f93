// The entries of lexicons, and the vectors that forms write.
#include <algorithm>
#include <set>

#include "check/grammar_sources.h"
#include "check/lexicon_names.h"
#include "parser/grammar/contract.h"
#include "parser/parsing.h"

namespace torvane {
namespace {

std::string_view without_sign(std::string_view name) {
  return name.starts_with('+') || name.starts_with('-') || name.starts_with('~') ? name.substr(1)
                                                                                 : name;
}

bool is_role(std::string_view name) {
  return std::any_of(std::begin(contract::kRoles), std::end(contract::kRoles),
                     [&](const contract::Role& role) { return name == role.name; });
}

/// The attributes in which an argument and its modifier may be found to differ.
AttSet tested_in_arguments(const Grammar& grammar, bool& has_conditions) {
  AttSet tested = grammar._percolating;
  grammar._nodes.for_each([&](const auto& entry) {
    const GCate& node = *entry.value;
    for (int position = 0; position <= node.n_positions(); ++position)
      for (const Link* link : node.links_at(position)) {
        if (link->_check_arg < 0) continue;
        tested |= link->_percolate;
        has_conditions = has_conditions || link->_merged_cond || link->_modifier_cond;
      }
  });
  return tested;
}

class Vectors {
 public:
  explicit Vectors(GrammarSources& sources) : sources_(sources) {
    TorvaneParser* parser = current_parser(sources.world);
    if (!parser) return;
    type_ = parser->grammar._att_type;
    tested_ = tested_in_arguments(parser->grammar, all_tested_);
  }

  void look_at(const SourceFile& file, const SourceForm& form) {
    if (!type_ || sources_.names.categories.empty()) return;
    each_vector_item(form, [&](const SourceForm& item) {
      if (item.head() == "node") node(file, item);
      if (item.head() == "args") arguments(file, item);
    });
  }

 private:
  void node(const SourceFile& file, const SourceForm& item) {
    const std::string_view name = item.text(1);
    if (name.empty() || name == "~" || is_node(name)) return;
    sources_.error(file, item.line,
                   "the node '" + std::string(name) +
                       "' is not a category: such a word takes no part" +
                       hint_for(name, sources_.names.categories));
  }

  /// Also a frame's, which is made when a word brings it.
  bool is_node(std::string_view name) const {
    return knows(sources_.names.categories, name) || name.find('_') != name.npos;
  }

  void arguments(const SourceFile& file, const SourceForm& args) {
    for (const SourceForm& argument : args.items)
      for (const SourceForm& item : argument.items) {
        const std::string name(without_sign(item.is_list ? item.head() : item.atom));
        int index = -1;
        if (all_tested_ || is_role(name) || !type_->lookup(name.c_str(), &index) ||
            tested_.test(index) || !reported_.insert(name).second)
          continue;
        sources_.warn(file, item.line,
                      "'" + name +
                          "' in an argument is never tested: it is not among the attributes that "
                          "percolate by default");
      }
  }

  GrammarSources& sources_;
  const AttInterpreterList* type_ = nullptr;
  AttSet tested_;
  bool all_tested_ = false;
  std::set<std::string> reported_;
};

void look_at_entry(GrammarSources& sources, const SourceFile& file, const SourceForm& entry) {
  if (!entry.is_list) {
    sources.error(file, entry.line,
                  "'" + entry.atom + "' stands where an entry is expected, a list");
    return;
  }
  const std::string word = "the entry '" + std::string(entry.head()) + "'";
  bool has_meaning = false;
  for (const SourceForm& item : entry.items) {
    if (!item.is_list) {
      if (has_meaning)
        sources.error(file, item.line, word + ": '" + item.atom + "' behind a meaning is left out");
      continue;
    }
    has_meaning = true;
    if (!knows(sources.names.meanings, item.head())) {
      sources.error(file, item.line,
                    word + ": a meaning of the kind '" + std::string(item.head()) +
                        "' is dropped: there is no such kind" +
                        hint_for(item.head(), sources.names.meanings));
    } else if (item.items.size() > 2 && item.head() != "phrases" && item.items[1].is_list) {
      sources.error(file, item.items[2].line,
                    word + ": a meaning has one vector; what stands behind it is left out");
    } else if (item.items.size() > 1 && !item.items[1].is_list && item.head() == "avm") {
      sources.error(file, item.line, word + ": the meaning is empty: a vector is a list, ((...))");
    }
  }
  if (!has_meaning) sources.warn(file, entry.line, word + " has no meaning");
}

}  // namespace

void check_attributes(GrammarSources& sources) {
  Vectors vectors(sources);
  for (const SourceFile& file : sources.files)
    for (const SourceForm& form : file.forms) vectors.look_at(file, form);
}

void check_entries(GrammarSources& sources) {
  std::vector<std::pair<const SourceFile*, const SourceForm*>> all;
  sources.each_entry(
      [&](const SourceFile& file, const SourceForm& entry) { all.emplace_back(&file, &entry); });
  for (const auto& [file, entry] : all) look_at_entry(sources, *file, *entry);
}

}  // namespace torvane
