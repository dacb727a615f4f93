// The making of a parser from its form, and the commands that change its settings.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "att/att_interpreter_list.h"
#include "att/text_atts.h"
#include "deps/trees.h"
#include "parser/forms/att_names.h"
#include "parser/forms/offers.h"
#include "parser/grammar/contract.h"
#include "parser/parsing.h"
#include "parser/torvane_parser.h"
#include "shell/file_search.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {
namespace {

constexpr int kDefaultHashtableSize = 197;

template <class T>
T* named_object(World& world, IRSlist* form, const char* keyword, const char* type) {
  const char* name = form->take_keyword_str(keyword);
  return name ? world.objects.find_as<T>(name, type, true) : nullptr;
}

void read_bad_triples(World& world, TorvaneParser& parser, const char* file_name) {
  Ref<Stream> file = world.files.open(file_name);
  if (!file || !file->in()) return;
  parser.costs.set_bad_triples(*file->in());
}

// The parser keeps the head word's item in the attribute `lexitem`, and nobody else stores there.
void open_lexitem_att(const AttInterpreterList* type) {
  int index;
  EntAtt* att = type ? ent_att(type->lookup("lexitem", &index)) : nullptr;
  if (!att) return;
  att->printer = [](AttWord value, std::ostream& out) {
    out << or_empty(reinterpret_cast<const LexItem*>(value)->root);
  };
  att->viewer = [](AttWord value) { return Value::of(reinterpret_cast<const LexItem*>(value)); };
}

void read_settings(World& world, TorvaneParser& parser, IRSlist* form) {
  auto take_atts = [&](const char* keyword, const char* what) {
    auto names = form->take_keyword_node(keyword, false);
    return read_atts(names.get(), parser.grammar._att_type, what);
  };
  parser.grammar._att_type =
      named_object<AttInterpreterList>(world, form, ":attribute-vector-type", "AttInterpreterList");
  open_lexitem_att(parser.grammar._att_type);
  take_atts(":lexical-attributes", "lexical attributes");  // read for its messages alone
  parser._show = std::make_unique<AttSet>(take_atts(":show-attributes", "show attributes"));
  parser.grammar._percolating =
      take_atts(":default-percolating-attributes", "default percolating attributes");
  auto weights = form->take_keyword_node(":weights-of-words", false);
  if (weights) parser._word_weight = LExp::get_exp(world, weights.get());
  parser.grammar._lex = named_object<LexAnalyzer>(world, form, ":lexical-analyzer", "LexAnalyzer");
  if (const char* file = form->take_keyword_str(":bad-triples"))
    read_bad_triples(world, parser, file);
  const char* category = form->take_keyword_str(":empty-category");
  const char* relation = form->take_keyword_str(":empty-category-rel");
  if (category || relation)
    parser.grammar.set_empty_category(category ? category : contract::kEmptyCategory,
                                      relation ? relation : contract::kEmptyRelation);
}

Value def_torvane_parser(World& world, IRSlist* form) {
  if (refuse_while_parsing(world, "def-torvane-parser")) return Value();
  const char* name = form->get_str_val();
  if (!name) {
    messages() << "def-torvane-parser: a parser must have a name\n";
    return Value();
  }
  long size = kDefaultHashtableSize;
  form->find_keyword_long(":hashtable-size", size);
  constexpr long kMostBuckets = 1 << 20;
  if (size > kMostBuckets) size = kDefaultHashtableSize;
  TorvaneParser& parser = parsing(world).make_parser(world, static_cast<int>(std::max(size, 1L)));
  world.objects.add(name, Value::of(&parser), "TorvaneParser");
  read_settings(world, parser, form);
  return Value();
}

Value output_tree(World& world, IRSlist* form) {
  if (TorvaneParser* parser = current_parser(world))
    parser->_constituency = form->get_long_val() != 0;
  return Value();
}

Value show_attributes(World& world, IRSlist* form) {
  TorvaneParser* parser = current_parser(world);
  if (!parser) return Value();
  const IRSlist* names = form;
  if (const IRSlist* first = form->nth(0); first && first->is_list()) names = first;
  AttSet shown = names->empty() ? all_atts(parser->grammar._att_type)
                                : read_atts(names, parser->grammar._att_type, "show attributes");
  parser->_show = std::make_unique<AttSet>(std::move(shown));
  return Value();
}

TorvaneParser* take_parser(World& world, IRSlist* form) {
  return world.objects.find_as<TorvaneParser>(form->get_str_val(), "TorvaneParser", true);
}

Value set_reldb(World& world, IRSlist* form) {
  if (!current_parser(world)) return Value();
  TorvaneParser* parser = take_parser(world, form);
  Value database = world.objects.find(form->get_str_val(), "TripleDb", true);
  if (parser && database) {
    parser->costs._reldb = trees(world).statistics_of(database);
    parser->costs.use = CountsUse::replace;
    parser->costs.fixed_counts = false;
  }
  return Value();
}

Value set_deps_modifier(World& world, IRSlist* form) {
  if (!current_parser(world)) return Value();
  TorvaneParser* parser = take_parser(world, form);
  auto* modifier = world.objects.find_as<DepsModifier>(form->get_str_val(), "TreeModifier", true);
  if (parser && modifier) parser->_deps_modifier = modifier;
  return Value();
}

constexpr Command kParserDefinitionCommands[] = {
    // Kept: parser-by-keywords
    {"def-torvane-parser", def_torvane_parser,
     "(def-torvane-parser name size-of-hash att-type lex-attributes output-attributes "
     "default-percolating-attributes max-weight-difference ...)"},
    {"output-tree", output_tree, "(output-tree 0|1) turn off/on constituency format"},
    {"show-attributes", show_attributes,
     "(show-attributes [ ( ATTRIBUTE ATTRIBUTE ... ) ]) show these attributes when printing parse "
     "trees. If the attribute list is empty, all attributes are shown."},
    // Kept: det-reldb
    {"set-reldb", set_reldb, "(det-reldb PARSER DEPDB) use the DEPDB in the parser."},
    {"set-deps-modifier", set_deps_modifier,
     "(set-deps-modifier PARSER MODIFIER) use MODIFIER to change the dependency trees returned by "
     "PARSER"},
};

}  // namespace

constinit const Offer offers::parser_definition{kParserDefinitionCommands};

}  // namespace torvane
