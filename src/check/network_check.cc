// The network of categories as it was built: what it lacks, and what nothing leads to.
#include <map>
#include <set>

#include "check/grammar_sources.h"
#include "check/lexicon_names.h"
#include "lex/lexicon/lexicon.h"
#include "parser/parsing.h"

namespace torvane {
namespace {

struct Defined {
  const SourceFile* file = nullptr;
  std::uint32_t line = 1;
};

class Network {
 public:
  Network(GrammarSources& sources, const Grammar& grammar) : sources_(sources), grammar_(grammar) {
    sources.each_command([this](const SourceFile& file, const SourceForm& form) {
      if (GrammarSources::same_name(form.head(), "roots"))
        has_all_roots_ = form.items.size() == grammar_._roots.size() + 1;
      const bool makes = GrammarSources::same_name(form.head(), "def-category") ||
                         GrammarSources::same_name(form.head(), "def-subcat");
      const bool fills = GrammarSources::same_name(form.head(), "def-modifiers");
      if (!makes && !fills) return;
      if (const GCate* node = find(form.text(1)))
        (makes ? categories_ : rows_).try_emplace(node, Defined{&file, form.line});
    });
    for (const std::string& name : entered_categories(sources))
      if (const GCate* node = find(name)) entered_.insert(node);
    for (const RootRule& root : grammar._roots) reach(*root.node);
    if (grammar.adjunct_node()) reach(*grammar.adjunct_node());
  }

  void look_at(const GCate& node) {
    const Defined at = place_of(node);
    if (!at.file) return;
    const std::string name = "the category '" + node._name + "'";
    if (node.head() < 0)
      sources_.error(*row_of(node).file, row_of(node).line,
                     name + " has no :head among its positions");
    else if (!entered_.contains(&node) && !is_entered(node))
      sources_.warn(*at.file, at.line,
                    name + " is empty: no word enters it, and no link leads to its head");
    if (has_all_roots_ && !reached_.contains(&node))
      sources_.warn(*at.file, at.line, name + " is never reached from the roots");
  }

 private:
  const GCate* find(std::string_view name) const {
    const auto* entry = grammar_._nodes.find(std::string(name).c_str());
    return entry ? entry->value : nullptr;
  }

  Defined place_of(const GCate& node) const {
    const auto found = categories_.find(&node);
    return found == categories_.end() ? Defined() : found->second;
  }
  Defined row_of(const GCate& node) const {
    const auto found = rows_.find(&node);
    return found == rows_.end() ? place_of(node) : found->second;
  }

  bool is_entered(const GCate& node) const {
    if (node._is_subcat) return true;
    for (const int position : {node.head(), node.n_positions()})
      if (!node.links_at(position).empty()) return true;
    return false;
  }

  void reach(const GCate& root) {
    std::vector<const GCate*> waiting{&root};
    while (!waiting.empty()) {
      const GCate& node = *waiting.back();
      waiting.pop_back();
      if (!reached_.insert(&node).second) continue;
      for (int position = 0; position <= node.n_positions(); ++position)
        for (const Link* link : node.links_at(position))
          if (link->_child) waiting.push_back(link->_child);
      // Its frames are made when words bring them.
      const auto frames = arguments_.find(node._name);
      if (frames == arguments_.end()) continue;
      for (const std::string& name : frames->second)
        if (const GCate* part = find(name)) waiting.push_back(part);
    }
  }

  GrammarSources& sources_;
  const Grammar& grammar_;
  const std::map<std::string, std::set<std::string>> arguments_ = argument_categories(sources_);
  std::map<const GCate*, Defined> categories_, rows_;
  std::set<const GCate*> entered_, reached_;
  bool has_all_roots_ = true;  // those that the command `roots` names last
};

/// The line of the first command of a name, in the last file that has it; else the first file.
Defined command_place(const GrammarSources& sources, std::string_view name) {
  Defined found{&sources.files.front(), 1};
  sources.each_command([&](const SourceFile& file, const SourceForm& form) {
    if (GrammarSources::same_name(form.head(), name)) found = {&file, form.line};
  });
  return found;
}

}  // namespace

void check_network(GrammarSources& sources) {
  TorvaneParser* parser = current_parser(sources.world);
  if (!parser) {
    sources.error(sources.files.front(), 1,
                  "the grammar makes no parser: there is no (def-torvane-parser ...)");
    return;
  }
  const Defined made = command_place(sources, "def-torvane-parser");
  if (!parser->grammar._lex)
    sources.error(*made.file, made.line, "the parser has no lexical analyser");
  if (!parsing(sources.world).atts.type)
    sources.error(*made.file, made.line,
                  "there is no (init-attributes) behind the parser: it reads no attribute");
  if (parser->grammar._roots.empty())
    sources.error(*made.file, made.line, "there are no roots: no sentence gets a tree");
  if (parser->grammar._nodes.count() == 0) return;
  Network network(sources, parser->grammar);
  parser->grammar._nodes.for_each([&](const auto& entry) { network.look_at(*entry.value); });
}

}  // namespace torvane
