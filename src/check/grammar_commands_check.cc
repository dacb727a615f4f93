// The commands that build a grammar, where they do nothing without a message.
#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "check/grammar_sources.h"
#include "support/text.h"

namespace torvane {
namespace {

using Names = KnownNames::Names;

const Names kOfLinks{"modifier-cond", "modifiee-cond", "merged-cond", "head-cond",
                     "dep-type",      "max-dist",      "check-arg",   "allow-guest",
                     "dep-weight",    "percolate",     "block",       "check-slash"};
const Names kOfCategories{"visible-atts", "subcat-atts", "conj-atts", "full-pitem-cond",
                          "minimal-modifier-cond"};
const Names kMarks{"*", "?", "+", ":head", ":minimal", ":skip-adjunct", ":skip-word"};
const Names kTreeRules{"up", "down", "flat", "root"};

/// The keywords of a command: others do nothing.
struct Keywords {
  std::string_view command;
  Names names;
};
const std::array<Keywords, 4> kKeywords{{
    {"def-torvane-parser",
     {":attribute-vector-type", ":lexical-attributes", ":show-attributes",
      ":default-percolating-attributes", ":weights-of-words", ":lexical-analyzer", ":bad-triples",
      ":empty-category", ":empty-category-rel", ":hashtable-size"}},
    {"make-lex-analyzer",
     {":suggested-sentence-length", ":lexicon", ":lexical-rules", ":hook", ":meaning-selector"}},
    {"make-lexicon", {":ending-table"}},
    {"load-lex", {":no-dup"}},
}};

std::string quoted(std::string_view name) {
  return "'" + std::string(name) + "'";
}

class Commands {
 public:
  explicit Commands(GrammarSources& sources) : sources_(sources) {
    sources.each_command([this](const SourceFile&, const SourceForm& form) {
      const bool inserts = GrammarSources::same_name(form.head(), "insert-lex-rules");
      if (!inserts && !GrammarSources::same_name(form.head(), "def-rules")) return;
      for (std::size_t i = inserts ? 3 : 2; i < form.items.size(); ++i)
        anchors_[lower_text(form.text(1))].emplace_back(form.items[i].head());
    });
  }

  void look_at(const SourceFile& file, const SourceForm& form) {
    file_ = &file;
    const std::string_view head = form.head();
    auto is = [head](std::string_view name) { return GrammarSources::same_name(head, name); };
    if (!form.is_list) return;
    if (knows(kOfLinks, head) || knows(kOfCategories, head)) {
      homeless(form, knows(kOfLinks, head) ? "a link of def-modifiers" : "def-category");
    } else if (is("def-category")) {
      for (std::size_t i = 2; i < form.items.size(); ++i) of_category(form.items[i]);
    } else if (is("def-modifiers")) {
      category(form, 1);
      once(form);
      positions(form, 2);
    } else if (is("def-subcat")) {
      category(form, 2);
      positions(form, 3);
    } else if (is("def-subclass")) {
      category(form, 1);
      for (std::size_t i = 2; i < form.items.size(); ++i) of_link(form.items[i], 1);
    } else if (is("def-conj-constraints")) {
      category(form, 1);
      of_link(form, 2);
    } else if (is("roots")) {
      roots(form);
    } else if (is("def-rules")) {
      rules(form, 2);
    } else if (is("insert-lex-rules")) {
      anchor(form);
      rules(form, 3);
    } else if (is("def-tree-rules")) {
      tree_rules(form);
    } else if (is("make-lexicon")) {
      lexicon(form);
    }
    keywords(form);
  }

 private:
  void error(const SourceForm& form, std::string text) {
    sources_.error(*file_, form.line, std::move(text));
  }

  void homeless(const SourceForm& form, const std::string& home) {
    error(form, quoted(form.head()) + " does nothing here: it belongs inside " + home);
  }

  void category(const SourceForm& form, std::size_t n) {
    const std::string_view name = form.text(n);
    if (name.empty()) return error(form, std::string(form.head()) + " without a category");
    if (knows(sources_.names.categories, name)) return;
    error(form.items[n], "the category " + quoted(name) +
                             " is not defined: " + std::string(form.head()) + " does nothing" +
                             hint_for(name, sources_.names.categories));
  }

  /// The positions of a category are those of its last def-modifiers.
  void once(const SourceForm& form) {
    const auto [before, is_first] =
        modifiers_.try_emplace({file_, std::string(form.text(1))}, form.line);
    if (is_first || form.text(1).empty()) return;
    sources_.warn(*file_, form.line,
                  "the positions of " + quoted(form.text(1)) +
                      " are defined twice: those of line " + std::to_string(before->second) +
                      " are lost");
    before->second = form.line;
  }

  void positions(const SourceForm& form, std::size_t from) {
    for (std::size_t i = from; i < form.items.size(); ++i) {
      const SourceForm& position = form.items[i];
      if (!position.is_list) {
        error(position, quoted(position.atom) + " stands where a position is expected, a list");
        continue;
      }
      this->position(position);
    }
  }

  void position(const SourceForm& form) {
    bool in_marks = true;
    for (std::size_t i = 0; i < form.items.size(); ++i) {
      const SourceForm& item = form.items[i];
      if (GrammarSources::same_name(item.atom, ":skip-word")) {
        ++i;
      } else if (item.is_list) {
        in_marks = false;
        of_link(item, 1);
      } else if (in_marks && !knows(kMarks, item.atom)) {
        error(item, "the mark " + quoted(item.atom) + " of a position is not known" +
                        hint_for(item.atom, kMarks) + " A link is a list: (" + item.atom + " ...)");
      }
    }
  }

  void of_link(const SourceForm& form, std::size_t from) {
    for (std::size_t i = from; i < form.items.size(); ++i) {
      const SourceForm& command = form.items[i];
      if (!command.is_list)
        error(command, quoted(command.atom) + " stands where a command of a link is expected");
      else if (knows(kOfCategories, command.head()))
        homeless(command, "def-category");
    }
  }

  void of_category(const SourceForm& command) {
    if (!command.is_list)
      error(command, quoted(command.atom) + " stands where a command of a category is expected");
    else if (knows(kOfLinks, command.head()))
      homeless(command, "a link of def-modifiers");
  }

  void roots(const SourceForm& form) {
    for (std::size_t i = 1; i < form.items.size(); ++i) {
      const SourceForm& root = form.items[i];
      const std::string_view name = root.is_list ? root.head() : root.atom;
      if (!knows(sources_.names.categories, name))
        error(root, "the root " + quoted(name) + " is not a category" +
                        hint_for(name, sources_.names.categories));
    }
  }

  void rules(const SourceForm& form, std::size_t from) {
    auto& known = rules_[lower_text(form.text(1))];
    for (std::size_t i = from; i < form.items.size(); ++i) {
      const SourceForm& rule = form.items[i];
      if (!rule.is_list) {
        error(rule, quoted(rule.atom) + " stands where a rule is expected, a list");
        continue;
      }
      const auto [before, is_first] = known.try_emplace(lower_text(rule.head()), rule.line);
      if (!is_first)
        sources_.warn(*file_, rule.line,
                      "the rule " + quoted(rule.head()) + " is defined twice; before in line " +
                          std::to_string(before->second));
      parts(rule);
    }
  }

  /// A rule has options, a pattern and one action.
  void parts(const SourceForm& rule) {
    std::size_t count = 0;
    for (std::size_t i = 1; i < rule.items.size(); ++i)
      if (!rule.items[i].head().starts_with(':') && ++count == 3)
        error(rule.items[i],
              "a rule has a pattern and one action: what follows is left out; prog makes one "
              "action of several");
    if (count == 1)
      sources_.warn(*file_, rule.line, "the rule " + quoted(rule.head()) + " has no action");
  }

  void anchor(const SourceForm& form) {
    const std::string_view name = form.text(2);
    const Names& known = anchors_[lower_text(form.text(1))];
    if (name.empty() || knows(known, name)) return;
    error(form.items[2], "there is no rule " + quoted(name) +
                             " to put these in front of: they are "
                             "left out" +
                             hint_for(name, known));
  }

  void tree_rules(const SourceForm& form) {
    for (std::size_t i = 2; i < form.items.size(); ++i) {
      const SourceForm& rule = form.items[i];
      if (!rule.is_list) continue;
      const std::string head(rule.head());
      if (std::find(kTreeRules.begin(), kTreeRules.end(), head) == kTreeRules.end())
        error(rule, "a tree rule begins with up, down, flat or root: this one is left out" +
                        hint_for(head, kTreeRules));
    }
  }

  void lexicon(const SourceForm& form) {
    for (std::size_t i = 2; i + 1 < form.items.size(); ++i) {
      if (!GrammarSources::same_name(form.items[i].atom, ":ending-table")) continue;
      const SourceForm& table = form.items[i + 1];
      if (table.is_list)
        endings(table);
      else
        error(table, "an ending table by its name gives the lexicon no endings: only a list does");
    }
  }

  void endings(const SourceForm& table) {
    Names conditions;
    for (const SourceForm& row : table.items)
      if (GrammarSources::same_name(row.head(), ":conditions"))
        for (const SourceForm& pair : row.items)
          for (std::size_t i = 0; pair.is_list && i < pair.items.size() && i < 1; ++i) {
            if (!pair.items[i].is_list) conditions.push_back(pair.items[i].atom);
            for (const SourceForm& name : pair.items[i].items) conditions.push_back(name.atom);
          }
    for (const SourceForm& row : table.items) {
      const std::size_t n = row.head() == "e" && row.items.size() < 6 ? 5 : 4;
      const std::string_view name = row.text(n);
      if (!name.empty() && !knows(conditions, name))
        error(row, "the condition " + quoted(name) + " of an ending is not defined" +
                       hint_for(name, conditions));
    }
  }

  void keywords(const SourceForm& form) {
    for (const Keywords& known : kKeywords) {
      if (!GrammarSources::same_name(form.head(), known.command)) continue;
      for (const SourceForm& item : form.items)
        if (item.atom.starts_with(':') && !knows(known.names, item.atom))
          error(item, quoted(item.atom) + " is no keyword of " + std::string(known.command) +
                          hint_for(item.atom, known.names));
    }
  }

  static std::string lower_text(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
  }

  GrammarSources& sources_;
  const SourceFile* file_ = nullptr;
  std::map<std::pair<const SourceFile*, std::string>, std::uint32_t> modifiers_;
  std::map<std::string, std::map<std::string, std::uint32_t>> rules_;
  std::map<std::string, Names> anchors_;  // the rules of all files
};

}  // namespace

void check_grammar_commands(GrammarSources& sources) {
  Commands commands(sources);
  std::vector<std::pair<const SourceFile*, const SourceForm*>> all;
  sources.each_command(
      [&](const SourceFile& file, const SourceForm& form) { all.emplace_back(&file, &form); });
  for (const auto& [file, form] : all) commands.look_at(*file, *form);
}

}  // namespace torvane
