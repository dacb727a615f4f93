// The result of a parse: the words of the sentence and a tree over them. Counted; it can be written
// as text and read back, and packed into bytes.
#pragma once

#include <cstdint>
#include <deque>
#include <ostream>
#include <string>
#include <vector>

#include "deps/dep_tree.h"
#include "deps/text_list.h"
#include "lex/chart/lex_analyzer.h"
#include "support/array.h"
#include "support/bit_set.h"
#include "support/ref.h"
#include "support/str_bufs.h"

namespace torvane {

class World;

using RefCounter = Counted<class Deps>;

class Deps : public RefCounter {
 public:
  /// Positions are 16 bits wide.
  static constexpr int kMostWords = 32767;

  explicit Deps(World& world);
  virtual ~Deps();
  virtual DepTree* new_node();
  /// The nodes as bytes. The words are not among them.
  virtual void pack(StrBufs& out) const;
  /// Replaces the tree by one read from bytes, never past `end`; advances `p`. False, with no root,
  /// for damaged bytes.
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
  DepTree* _nodes = nullptr;    ///< chain of all nodes
  LBitSet _separators;          ///< word indexes after which no blank stood
  std::deque<TextList> _lists;  ///< values of properties
  Eras eras;                    ///< of the trees, one after the other

  /// The word, null outside 1 to the last.
  const char* word(int i) const { return i > 0 ? _words.at_or_zero(i) : nullptr; }
  /// The text before a word; empty outside.
  const char* gap(int i) const {
    const char* text = i > 0 ? _gaps.at_or_zero(i) : nullptr;
    return text ? text : "";
  }
  /// Number of positions, the one before the first word included; 0 without words.
  int word_count() const { return _words.count(); }
  void set_words(const LexAnalyzer& lex);
  /// Appends a word, with the text before it. False if there is no room for more.
  bool add_word(const char* text, const char* gap_text);
  /// Clears words, nodes, labels and assertions, and takes a new id; whatever a variable still
  /// holds of them reads as null. A tree that is clear stays as it is.
  void clear();
  World& world() const { return world_; }
  const Properties& properties() const;
  bool is_clear() const { return !_nodes && _words.empty(); }
  void set_root(DepTree* node) { _root = node; }
  /// The words lo..hi, joined by a blank where a gap stood; in `_strings`.
  const char* span_text(int lo, int hi);
  /// A text of the tree as a value.
  Value text_value(const char* text) { return eras.now()->text(text); }
  DepTree* find_label(const char* text) const;
  /// The index that a direction leads to: each character is a step, to the next occurrence of the
  /// word to the right ("<", "*") or to the left (">"). 0 if it leads out of the sentence, or
  /// (reported) is none.
  int find_word(int from, const char* direction, const char* word, bool from_empty) const;
  /// Gives a label to every node of the tree that has none.
  void assign_labels();

  /// The text format; `show` names the attributes written (null: none).
  void print(std::ostream& out, const LBitSet* show = nullptr);
  /// The lines of the words low..high, in parentheses: a node's, or that of a bare word.
  void print_word_lines(std::ostream& out, int low, int high, const LBitSet* show);
  /// The words of a node and what is below it, in short: where the parent lies, and the root form.
  // Part of the interface; nothing in the engine calls it yet.
  void print_short(std::ostream& out, const DepTree& node) const;
  /// Reads the text format, a form that stays as it is.
  void read(const IRSlist& form);

 private:
  void drop_nodes();
  void take_number();

  World& world_;
  int number_ = 0;
  DepTree* spare_nodes_ = nullptr;
};

namespace tags {
extern const TypeTag deps;  // counted
}
template <>
struct ValueTraits<Deps> : TagOf<Deps, tags::deps> {};

}  // namespace torvane
