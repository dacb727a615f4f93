#include "parser/forms/item_text.h"

#include <algorithm>

#include "support/regexp.h"
#include "support/text.h"

namespace torvane {
namespace {

void print_alternative(std::ostream& out, const PItem& item, const TorvaneParser& parser) {
  out << "\n  w=" << item._weight << ' ';
  item._atts->print(out, parser._show.get());
  bool projection = item._link && (!item._modifier || !item._head_child);
  if (projection) out << " from " << (item._link->_child ? item._link->_child->_name : "");
  const LexItem* lexitem = lexitem_of(item);
  if (lexitem && parser.grammar._lex)
    out << ' ' << or_empty(parser.grammar._lex->surface(lexitem->low, lexitem->high));
}

}  // namespace

void print_item(std::ostream& out, const PItem& item, const TorvaneParser& parser) {
  out << '[' << item._low << ',' << item._high << "] ";
  for (int i = item._low; i <= item._high; ++i)
    out << (i > item._low ? " " : "") << or_empty(parser.grammar.word(i));
  for (const PItem* alternative = &item; alternative; alternative = alternative->_next)
    print_alternative(out, *alternative, parser);
}

namespace {

void print_items(std::ostream& out, const TorvaneParser& parser, const Chart::Items& items) {
  for (const PItem* item : items) {
    print_item(out, *item, parser);
    out << '\n';
  }
}

void print_row(std::ostream& out, const TorvaneParser& parser, const GCate& node, int word) {
  auto bucket = [&](int position) -> const Chart::Items& {
    return parser.chart.bucket(node, position, word);
  };
  bool any = false;
  for (int position = 0; position <= node.n_positions(); ++position)
    any = any || !bucket(position).empty();
  if (!any) return;
  out << "\nBucket " << word << ":\n";
  for (int position = std::max(node.head(), 0); position <= node.n_positions(); ++position) {
    if (bucket(position).empty()) continue;
    out << "Position: " << position << ":\n";
    print_items(out, parser, bucket(position));
  }
}

}  // namespace

void print_chart(std::ostream& out, const TorvaneParser& parser, const GCate& node) {
  for (int word = 0; word < parser.chart.row_count(); ++word) print_row(out, parser, node, word);
}

void print_waiting(std::ostream& out, const TorvaneParser& parser, const GCate& node,
                   const char* type_regexp) {
  auto wanted = regcomp(type_regexp);
  if (!wanted) return;
  for (int position = 0; position <= node.n_positions(); ++position)
    for (const Link* link : node.links_at(position)) {
      if (!link->type() || !regexec(wanted.get(), link->type().c_str())) continue;
      out << "Link: " << link->type().c_str() << '\n';
      for (int word = 0; word < parser.chart.row_count(); ++word)
        print_items(out, parser, parser.chart.waiting_at(*link, word));
    }
}

}  // namespace torvane
