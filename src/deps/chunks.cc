#include "deps/chunks.h"

#include <set>
#include <sstream>
#include <string>
#include <unordered_map>
#include <vector>

#include "deps/deps.h"
#include "deps/node_extent.h"
#include "deps/props.h"
#include "deps/tree_walk.h"

namespace torvane {

namespace {

constexpr const char* kSkip = "SKIP";
constexpr const char* kUnknown = "UKN";

class ChunkTable {
 public:
  explicit ChunkTable(DepTree& root)
      : root_(root), deps_(*root._deps), entries_(static_cast<std::size_t>(deps_.word_count())) {
    cut();
    hand_empty_words_on();
    mark_clauses();
  }

  void print(std::ostream& out) const {
    for (int i = 1; i < count(); ++i) {
      const Entry& word = at(i);
      out << deps_.gap(i) << std::string(word.around.opened, '{') << (word.open ? "[" : "");
      out << std::string(word.within.opened, '{') << deps_.word(i);
      out << std::string(word.within.closed, '}');
      if (word.close) out << ']' << *word.close;
      out << std::string(word.around.closed, '}');
    }
    out << '\n';
  }

 private:
  using Label = const std::string*;
  struct Clauses {
    std::size_t opened = 0;
    std::size_t closed = 0;
  };
  struct Entry {
    Label open = nullptr;
    Label close = nullptr;
    Clauses around;  // outside the brackets of chunks
    Clauses within;
  };

  int count() const { return static_cast<int>(entries_.size()); }
  Entry& at(int i) { return entries_[static_cast<std::size_t>(i)]; }
  const Entry& at(int i) const { return entries_[static_cast<std::size_t>(i)]; }

  /// The chunk root of each word's node; null for a word without one.
  std::vector<DepTree*> chunks() {
    int marked = deps_.properties().id("ckroot");
    std::unordered_map<const RSTree*, DepTree*> chunk_of;
    std::vector<DepTree*> nodes = nodes_by_word(&root_, deps_);
    for (TPreIterator<DepTree> walk(&root_); DepTree* node = walk.next();) {
      bool is_root = node == &root_ || find_prop(*node, marked);
      chunk_of[node] = is_root ? node : chunk_of[node->_parent];
    }
    for (DepTree*& node : nodes)
      if (node) node = chunk_of[node];
    return nodes;
  }

  void cut() {
    std::vector<DepTree*> chunk_at = chunks();
    DepTree* current = nullptr;
    int start = 1;       // of the current chunk
    int unattached = 0;  // start of a run of words without a node; 0: none
    auto leave = [&](int next) {
      int end = unattached ? unattached : next;
      if (current) set_stretch(start, end - 1, label_of(*current));
      if (unattached) set_stretch(unattached, next - 1, named(kSkip));
    };
    for (int i = 1; i < count(); ++i) {
      DepTree* chunk = chunk_at[static_cast<std::size_t>(i)];
      if (!chunk) {
        if (!unattached) unattached = i;
        continue;
      }
      if (chunk != current) {
        leave(i);
        current = chunk;
        start = i;
      }
      unattached = 0;
    }
    if (current) {
      leave(count());
    } else if (count() > 1) {
      set_stretch(1, count() - 1, named(kUnknown));
    }
  }

  void set_stretch(int first, int last, Label label) {
    at(first).open = label;
    at(last).close = label;
  }

  Label named(const std::string& text) { return &*labels_.insert(text).first; }

  Label label_of(DepTree& chunk) {
    const DepProp* prop = find_prop(chunk, deps_.properties().id("ckroot"));
    if (!prop || !prop->value) return named(chunk._cat ? chunk._cat : kUnknown);
    if (const char* text = prop->value.text()) return named(text);
    std::ostringstream text;
    deps_.properties().type(prop->id)->print(text, prop->value);
    return named(text.str());
  }

  bool is_empty(int i) const { return deps_.word(i)[0] == '\0'; }
  static bool is_skip(Label label) { return label && *label == kSkip; }

  // An empty word at the edge of a skipped stretch goes to the chunk beside it.
  void hand_empty_words_on() {
    for (int i = 2; i <= count() - 2; ++i) {
      Entry& word = at(i);
      Entry& before = at(i - 1);
      if (!before.close || !is_skip(word.open) || !is_empty(i)) continue;
      if (!word.close) at(i + 1).open = word.open;
      word.close = before.close;
      word.open = before.close = nullptr;
    }
    for (int i = count() - 1; i >= 2; --i) {
      Entry& word = at(i);
      Entry& before = at(i - 1);
      if (!word.open || !is_skip(before.close) || !is_empty(i)) continue;
      if (!before.open && i > 2) at(i - 2).close = before.close;
      before.open = word.open;
      before.close = word.open = nullptr;
    }
  }

  // A clause inside one chunk has its marks inside the brackets, so that they nest.
  void mark_clauses() {
    int clause = deps_.properties().id("clause");
    if (clause == 0) return;
    std::vector<int> stretch = stretches();
    auto extents = extents_in(root_);
    for (TPreIterator<DepTree> walk(&root_); DepTree* node = walk.next();) {
      if (!find_prop(*node, clause)) continue;
      auto [low, high] = extents[node];
      if (low == 0 || high >= count()) continue;
      bool in_one =
          stretch[static_cast<std::size_t>(low)] == stretch[static_cast<std::size_t>(high)];
      auto marks = in_one && !(at(low).open && at(high).close) ? &Entry::within : &Entry::around;
      ++(at(low).*marks).opened;
      ++(at(high).*marks).closed;
    }
  }

  /// For each word, how many stretches begin up to it.
  std::vector<int> stretches() const {
    std::vector<int> numbers(entries_.size());
    for (int i = 1, n = 0; i < count(); ++i) {
      if (at(i).open) ++n;
      numbers[static_cast<std::size_t>(i)] = n;
    }
    return numbers;
  }

  DepTree& root_;
  Deps& deps_;
  std::vector<Entry> entries_;
  std::set<std::string> labels_;
};

}  // namespace

void print_chunks(std::ostream& out, DepTree& node) {
  if (!node._deps) return;
  if (DepTree* root = dep_tree_of(node.root())) ChunkTable(*root).print(out);
}

}  // namespace torvane
