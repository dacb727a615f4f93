// A partial order: each node knows its closest neighbours above and below, and the set of all nodes
// that can be reached downwards from it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/array.h"
#include "support/bit_set.h"
#include "support/slist.h"

namespace torvane {

class Poset;

struct PosetNode {
  LBitSet reach;  ///< the indexes of the nodes reachable, its own included
  Slist<PosetNode*> above;
  Slist<PosetNode*> below;
  const void* value;
  Poset* poset;
  int index;
  std::string text;  ///< the value itself where values are texts compared byte by byte
};

class Poset {
 public:
  using Value = const void*;
  /// 0 for equal values; 2 and -2 for values that are not related.
  using Compare = int (*)(Value value, Value key);
  using KeyOf = Value (*)(const PosetNode& node);
  /// -1 if the first value belongs below the second.
  using Relation = int (*)(Value value, Value other);

  /// A null `key_of` takes the node's value as its key.
  explicit Poset(Compare compare, KeyOf key_of = nullptr) : compare_(compare), key_of_(key_of) {}
  /// The comparison of texts byte by byte: the nodes keep copies of their texts.
  static int compare_texts(Value a, Value b);

  /// The node of a value; a new one, related to none, if there is none and `add` is set.
  PosetNode* find_or_add(Value value, bool add);
  /// The same, with the edges to its closest neighbours.
  PosetNode* insert(Value value, Relation relation);
  /// `a` stands above `b`. Nothing happens if b is reachable already.
  void add_edge(PosetNode* a, PosetNode* b);

  int count() const { return nodes_.count(); }
  PosetNode* node(int i) { return nodes_[i].get(); }

 private:
  bool related(Value value, const PosetNode& node) const;
  void reach_more(PosetNode* node, const LBitSet& more);

  Array<std::unique_ptr<PosetNode>> nodes_;
  Compare compare_;
  KeyOf key_of_;
};

/// Walks a poset from below: a node comes after all its lower neighbours.
class PosetIterator {
 public:
  explicit PosetIterator(Poset& poset);
  /// Null at the end.
  PosetNode* current() const { return current_; }
  void next();
  /// Passes the current node without what stands above it only.
  void skip();
  bool skipped() const { return skipped_; }

 private:
  bool pop(const char* operation);

  bool skipped_ = false;
  PosetNode* current_ = nullptr;
  Slist<PosetNode*> ready_;   // nodes with no unvisited predecessor
  std::vector<int> pending_;  // by node index
};

}  // namespace torvane
