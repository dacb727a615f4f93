// A grammar: the network of categories and links, its roots, and what a sentence is read with. The
// commands of a grammar file build it; while a sentence is parsed it stays as it is.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lex/chart/lex_analyzer.h"
#include "parser/grammar/g_cate.h"
#include "support/name_table.h"

namespace torvane {

class World;

/// One record of the root table.
struct RootRule {
  GCate* node;
  ExpPtr filter;   ///< on PItem*, null passes
  ExpPtr penalty;  ///< on PItem*, an integer; null is 0
};

class Grammar {
 public:
  explicit Grammar(int hashtable_size);
  Grammar(const Grammar&) = delete;
  Grammar& operator=(const Grammar&) = delete;

  NameTable<GCate*> _nodes;
  LexAnalyzer* _lex = nullptr;
  AttInterpreterList* _att_type = nullptr;
  AttSet _percolating;
  std::vector<RootRule> _roots;
  /// The links to frames stand by the frames' names, not as the words came that brought them: then
  /// a parse does not depend on those before it.
  bool frames_by_name = false;

  /// The node of a name; made if `create`, else null when missing.
  GCate* get_node(const char* name, bool create);
  /// The node of a lexical vector, a frame node being made on demand; null: the word takes no part.
  GCate* node_of_vec(const AttVec& vec);
  /// Keeps a link for the whole run.
  Link* make_link(GCate* parent, GCate* child);
  /// A link by which a subcategory's items become heads of the parent's; none if it has no head.
  Link* link_subcat(GCate& parent, GCate& child);
  /// The node and the link by which displaced constituents are marked, outside the table.
  void set_empty_category(const char* name, const char* relation);
  const GCate& empty_node() const { return *_empty_node; }
  const Link& empty_link() const { return *_empty_link; }
  /// The node of adjuncts, null if there is none.
  const GCate* adjunct_node() const { return adjunct_; }

  int node_count() const { return static_cast<int>(own_nodes_.size()); }
  /// How many columns a chart has; and takes so many, side by side: gives the first.
  int column_count() const { return columns_; }
  int new_columns(int n);

  const char* word(int i) const { return _lex ? _lex->word(i) : nullptr; }
  bool skipped(int i) const { return _lex && _lex->skipped.test(i); }

 private:
  GCate* new_node(const char* name);
  GCate* make_frame(const char* name, GCate& base, const AttVec& vec);

  std::vector<std::unique_ptr<GCate>> own_nodes_;
  std::vector<std::unique_ptr<Link>> own_links_;
  GCate* _empty_node = nullptr;
  Link* _empty_link = nullptr;
  const GCate* adjunct_ = nullptr;
  int columns_ = 0;
  std::string name_buffer_;
};

/// The name of the node of a lexical vector; empty for none.
std::string node_name_of(const AttVec& vec);

}  // namespace torvane
