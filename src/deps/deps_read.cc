// A tree from text. A first pass over the form makes the words and nodes, a second fills the nodes
// in and finds their parents, so that a line may name a parent that stands further down.
#include <cstring>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "att/att_interpreter_list.h"
#include "att/attributes.h"
#include "deps/deps.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {
namespace {

/// The items of a list, taken one by one, without taking the list apart.
class Items {
 public:
  explicit Items(const IRSlist& list) : cell_(list.items.head()), tail_(list.items.tail()) {}
  const IRSlist* next() {
    if (!cell_) return nullptr;
    const IRSlist* item = Slist<IRSlist*>::value_of(cell_);
    cell_ = cell_ == tail_ ? nullptr : cell_->next;
    return item;
  }
  /// The next item if it is an atom, else null with the item left.
  const char* atom() {
    const IRSlist* item = cell_ ? Slist<IRSlist*>::value_of(cell_) : nullptr;
    return item && item->is_atom() ? next()->atom : nullptr;
  }

 private:
  Slist<IRSlist*>::Cell* cell_;
  Slist<IRSlist*>::Cell* tail_;
};

bool is(const char* atom, const char* text) {
  return atom && std::strcmp(atom, text) == 0;
}

class TreeReader {
 public:
  explicit TreeReader(Deps& deps) : deps_(deps) {}

  void read(const IRSlist& form) {
    make_nodes(form);
    for (Line& line : lines_) fill_in(line);
    DepTree* root = deps_.new_node();
    for (const Line& line : lines_)
      if (!line.node->_parent && line.node->_cat && *line.node->_cat) root->append(line.node);
    // Kept: orphan-under-the-top
    deps_.set_root(root);
  }

 private:
  /// A list that stands for a node.
  struct Line {
    const IRSlist* list;
    DepTree* node;
    bool covered;  // it names a category, be it the empty one
  };

  void make_nodes(const IRSlist& form) {
    Items items(form);
    const char* label = nullptr;
    const char* gap = " ";
    while (const IRSlist* item = items.next()) {
      if (item->is_list()) {
        if (DepTree* node = make_node(*item, label, gap)) {
          Items parts(*item);
          parts.next();
          bool has_root = parts.atom() != nullptr;
          const char* cat = has_root ? parts.atom() : nullptr;
          lines_.push_back({item, node, cat != nullptr});
          by_index_.resize(static_cast<std::size_t>(deps_.word_count()));
          if (node->_pos > 0) by_index_[static_cast<std::size_t>(node->_pos)] = lines_.size();
        }
        label = nullptr;
      } else if (same_word(item->atom, ":nogap")) {
        gap = "";
      } else if (same_word(item->atom, ":id")) {
        if (const char* id = items.atom()) deps_._id = id;
      } else if (is(item->atom, "assertions:")) {
        read_assertions(items.next());
        return;
      } else {
        label = item->atom;
      }
    }
  }

  DepTree* make_node(const IRSlist& list, const char* label, const char*& gap) {
    const IRSlist* first = list.nth(0);
    if (!first) return nullptr;
    if (first->is_list() && !first->empty()) {
      list.peek_str_val();  // reports the list
      return nullptr;
    }
    DepTree* node;
    if (first->is_atom() && *first->atom) {
      if (!deps_.add_word(first->atom, gap)) {
        if (!full_)
          messages() << "Deps::read: only the first " << Deps::kMostWords << " words are read\n";
        full_ = true;
        return nullptr;
      }
      gap = " ";
      node = deps_.new_node();
      node->_low = node->_high = node->_pos = static_cast<std::int16_t>(deps_.word_count() - 1);
    } else {
      if (!label) return nullptr;
      int next_word = std::max(deps_.word_count(), 1);
      node = deps_.new_node();
      node->_low = static_cast<std::int16_t>(std::min(next_word, Deps::kMostWords));
      node->_high = static_cast<std::int16_t>(node->_low - 1);
    }
    if (label) {
      node->set_label(label);
      labels_.try_emplace(node->_label, lines_.size() + 1);
    }
    return node;
  }

  void fill_in(Line& line) {
    DepTree& node = *line.node;
    Items parts(*line.list);
    parts.next();
    const char* root = parts.atom();
    if (!root) return;
    node.set_root_word(*root ? root : "~");
    if (!line.covered) return;
    node.set_cat(parts.atom());
    if (const char* parent = parts.atom()) {
      bool has_word = parent[0] == '<' || parent[0] == '>' || parent[0] == '-';
      const char* word = has_word ? parts.atom() : nullptr;
      if (!is(parent, "*")) attach(node, parent, has_word ? or_empty(word) : nullptr);
      if (const char* rel = parts.atom()) node.set_rel(rel);
    }
    while (const IRSlist* part = parts.next())
      if (part->is_list()) read_element(node, *part);
  }

  /// `word` is null where the parent is given as a bare label.
  void attach(DepTree& node, const char* direction, const char* word) {
    const char* label = !word ? direction : direction[0] == '-' ? word : nullptr;
    const Line* line = label ? line_of(label) : line_of(find_index(node, direction, word));
    const char* problem = nullptr;
    if (!line) {
      problem = "' is not found, specified as: ";
    } else if (line->node == &node || node.is_ancestor_of(line->node)) {
      // Kept: descendent
      problem = "' is already its descendent: ";
    }
    if (!problem) {
      line->node->append(&node);
      return;
    }
    messages() << "the parent of `" << or_empty(node.word()) << problem << (word ? direction : "-")
               << ' ' << (word ? word : direction) << '\n';
  }

  int find_index(const DepTree& node, const char* direction, const char* word) const {
    return deps_.find_word(node._low, direction, word, node._pos < 0);
  }

  const Line* line_of(const char* label) const {
    auto found = labels_.find(label);
    return found == labels_.end() ? nullptr : &lines_[found->second - 1];
  }
  const Line* line_of(int index) const {
    std::size_t line = by_index_.empty() ? 0 : by_index_[static_cast<std::size_t>(index)];
    return line == 0 ? nullptr : &lines_[line - 1];
  }

  void read_element(DepTree& node, const IRSlist& element) {
    Items parts(element);
    const char* name = parts.atom();
    if (!name || is(name, "gov")) return;
    IRSlist rest;  // a copy, since whoever reads a value takes its form apart
    StrBufs texts;
    rest.copy_into(element, texts);
    rest.pop_front();
    if (is(name, "w")) {
      node._weight = rest.get_float_val();
    } else if (is(name, "atts")) {
      read_atts(node, rest);
    } else if (int id = deps_.properties().id(name)) {
      node._props.append({id, deps_.properties().type(id)->parse(&rest, deps_), 1.0f});
    }
  }

  // As written: the vector in its parentheses; its items may also stand bare.
  void read_atts(DepTree& node, IRSlist& form) {
    if (!deps_._att_type) {
      messages() << "The type of AttVec in dependency tree is not defined\n";
      return;
    }
    IRSlist* only = form.length() == 1 ? form.nth(0) : nullptr;
    const IRSlist* first = only && only->is_list() ? only->nth(0) : nullptr;
    bool whole = only && only->is_list() &&
                 (!first || first->is_list() || std::strchr("+-~", first->atom[0]) != nullptr);
    node._atts = make_ref<AttVec>(whole ? only : &form, deps_._att_type);
  }

  void read_assertions(const IRSlist* list) {
    if (!list || list->is_atom()) return;
    Items records(*list);
    while (const IRSlist* record = records.next()) {
      if (record->is_atom()) continue;
      Items parts(*record);
      const char* name = parts.atom();
      if (!name) continue;
      Deps::Assertion assertion{deps_._strings.copy(name), {}};
      while (const IRSlist* part = parts.next())
        if (part->is_list()) assertion.args.push_back(read_assertion_arg(*part));
      deps_._assertions.append(std::move(assertion));
    }
  }

  Deps::AssertionArg read_assertion_arg(const IRSlist& list) {
    Items parts(list);
    Deps::AssertionArg arg{"", "", 1.0f};
    if (const char* left = parts.atom()) arg.left = deps_._strings.copy(left);
    if (const char* right = parts.atom()) arg.right = deps_._strings.copy(right);
    if (const char* weight = parts.atom()) scan_float(weight, arg.weight);
    return arg;
  }

  Deps& deps_;
  std::vector<Line> lines_;
  std::vector<std::size_t> by_index_;  // word index to line number, from 1; 0: none
  std::unordered_map<std::string_view, std::size_t> labels_;  // to line number, from 1
  bool full_ = false;
};

}  // namespace

void Deps::read(const IRSlist& form) {
  if (!is_clear()) clear();
  if (!_att_type) _att_type = attributes(world_).current;
  TreeReader(*this).read(form);
}

}  // namespace torvane
