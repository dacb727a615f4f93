// The result of a parse: the words of the sentence and a tree over them. Counted; it can be written as
// text and read back, and packed into bytes.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "deps/dep_tree.h"
#include "lex/lex_analyzer.h"
#include "support/array.h"
#include "support/bit_set.h"
#include "support/ref.h"
#include "support/str_bufs.h"

namespace torvane {

using RefCounter = Counted<class Deps>;

class Deps : public RefCounter {
 public:
  Deps();
  virtual ~Deps();
  virtual DepTree* new_node();
  /// The tree as bytes; merges nothing: `unpack` reads into a cleared tree, never past `end`, and gives
  /// false for damaged bytes.
  virtual void pack(StrBufs& out) const;
  virtual bool unpack(const char*& p, const char* end);
  Deps(const Deps&) = delete;
  Deps& operator=(const Deps&) = delete;

  Array<const char*> _words;  ///< index 0 holds null
  Array<const char*> _gaps;   ///< the text before each word
  AttInterpreterList* _att_type = nullptr;
  DepTree* _root = nullptr;
  Slist<DepTree*> _labelled;
  struct AssertionArg {
    const char* left;
    const char* right;
    float weight;
  };
  struct Assertion {
    const char* name;
    std::vector<AssertionArg> args;
  };
  Array<Assertion> _assertions;
  int _next_empty = 0;  ///< counter for labels "E%d"
  std::string _id;      ///< the running number of trees made, unless set
  StrBufs _strings{512};
  DepTree* _nodes = nullptr;  ///< chain of all nodes
  LBitSet _separators;        ///< word indexes after which no blank stood

  /// The word, null outside 1 to the last.
  const char* word(int i) const { return i > 0 ? _words.at_or_zero(i) : nullptr; }
  const char* gap(int i) const { return i > 0 && _gaps.at_or_zero(i) ? _gaps.at_or_zero(i) : ""; }
  int word_count() const { return _words.count(); }
  void set_words(const LexAnalyzer& lex);
  void clear();
  void set_root(DepTree* node) { _root = node; }
  /// The words lo..hi, joined by a blank where a gap stood; in `_strings`.
  const char* span_text(int lo, int hi);
  DepTree* find_label(const char* text) const;
  /// Gives a label to every node of the tree that has none.
  void assign_labels();
  /// The text format; `show` names the attributes written (null: none).
  void print(std::ostream& out, const LBitSet* show = nullptr);
  void read(IRSlist* form);
};

namespace tags {
extern const TypeTag deps;  // counted
}
template <>
struct ValueTraits<Deps> : TagOf<Deps, tags::deps> {};

/// Flags of the text format, both on at the start.
extern bool PRINT_DEPTREE_WEIGHT;
extern bool PRINT_GOV;
/// `print-deptree-weight` and `print-governor`.
void register_deps_commands();

}  // namespace torvane
