#include "parser/item_text.h"

#include <algorithm>

#include "parser/torvane_parser.h"
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
  if (lexitem && parser._lex)
    out << ' ' << or_empty(parser._lex->surface(lexitem->low, lexitem->high));
}

}  // namespace

void print_item(std::ostream& out, const PItem& item, const TorvaneParser& parser) {
  out << '[' << item._low << ',' << item._high << "] ";
  for (int i = item._low; i <= item._high; ++i)
    out << (i > item._low ? " " : "") << or_empty(parser.word(i));
  for (const PItem* alternative = &item; alternative; alternative = alternative->_next)
    print_alternative(out, *alternative, parser);
}

void print_chart(std::ostream& out, const GCate& node) {
  for (int word = 0; word < static_cast<int>(node._items.size()); ++word) {
    bool any = false;
    for (int position = 0; position <= node._n_positions; ++position)
      any = any || !node.bucket(position, word).empty();
    if (!any) continue;
    out << "\nBucket " << word << ":\n";
    for (int position = std::max(node._head, 0); position <= node._n_positions; ++position) {
      if (node.bucket(position, word).empty()) continue;
      out << "Position: " << position << ":\n";
      for (const PItem* item : node.bucket(position, word)) {
        print_item(out, *item, *node._parser);
        out << '\n';
      }
    }
  }
}

void print_waiting(std::ostream& out, const GCate& node, const char* type_regexp) {
  auto wanted = regcomp(type_regexp);
  if (!wanted) return;
  for (const auto& links : node._positions)
    for (const Link* link : links) {
      if (!link->_type || !regexec(wanted.get(), link->_type)) continue;
      out << "Link: " << link->_type << '\n';
      for (const auto& cell : link->_waiting)
        for (const PItem* item : cell) {
          print_item(out, *item, *node._parser);
          out << '\n';
        }
    }
}

}  // namespace torvane
