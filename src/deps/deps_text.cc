// A tree as text: one line a node, in sentence order.
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include "att/contract.h"
#include "deps/deps.h"
#include "deps/node_extent.h"
#include "deps/print_text.h"
#include "deps/tree_walk.h"
#include "deps/trees.h"
#include "support/depth.h"
#include "support/text.h"

namespace torvane {
namespace {

thread_local DepthLimit short_form_limit{"The tree is nested too deeply to be printed"};

class TreeWriter {
 public:
  TreeWriter(Deps& deps, std::ostream& out, const LBitSet* show)
      : deps_(deps), flags_(trees(deps.world())), out_(out), show_(show) {}

  void write() {
    deps_.assign_labels();
    mark_covered();
    write_head();
    write_nodes();
    for (; counter_ < deps_.word_count(); ++counter_)
      if (!covered(counter_)) write_bare_word(false);
    write_assertions();
    out_ << ")\n";
  }

  void write_words(int low, int high) {
    deps_.assign_labels();
    std::vector<DepTree*> nodes = nodes_by_word(deps_._root, deps_);
    out_ << "(\n";
    for (counter_ = std::max(low, 1); counter_ <= high && counter_ < deps_.word_count();
         ++counter_) {
      if (DepTree* node = nodes[static_cast<std::size_t>(counter_)]) {
        write_node(*node);
      } else {
        write_bare_word(true);
      }
    }
    out_ << ")\n";
  }

 private:
  struct Step {
    DepTree* node;
    RSTree::Cell* cell;  // the next child; null behind the last
    bool written;
  };

  // Counts the nodes over each word, as differences: +1 where a span begins, -1 behind its end.
  void mark_covered() {
    int n = deps_.word_count();
    std::vector<int> change(static_cast<std::size_t>(n) + 1);
    for (TPreIterator<DepTree> walk(deps_._root); const DepTree* node = walk.next();) {
      int low = std::max<int>(node->_low, 1);
      int high = std::min<int>(node->_high, n - 1);
      if (node->_low < 0 || low > high) continue;
      ++change[static_cast<std::size_t>(low)];
      --change[static_cast<std::size_t>(high) + 1];
    }
    covered_.resize(static_cast<std::size_t>(n));
    int over = 0;
    for (std::size_t i = 0; i < covered_.size(); ++i) covered_[i] = (over += change[i]) > 0;
  }

  bool covered(int i) const { return covered_[static_cast<std::size_t>(i)]; }

  const std::string& quoted(const char* text) {
    quoted_.clear();
    append_quoted(quoted_, or_empty(text), QuoteComma::yes);
    return quoted_;
  }

  void write_head() {
    out_ << '(';
    if (!deps_._id.empty()) out_ << ":id " << quoted(deps_._id.c_str());
    if (flags_.print_weight) {
      double total = 0;
      for (TPreIterator<DepTree> walk(deps_._root); const DepTree* node = walk.next();)
        total += node->_weight;
      out_ << " ;;total-weight " << float_text(total);
    }
    out_ << '\n';
  }

  // In order: a node stands before its first child that does not stand before it.
  void write_nodes() {
    std::vector<Step> path;
    if (deps_._root) path.push_back({deps_._root, deps_._root->head(), false});
    while (!path.empty()) {
      Step& step = path.back();
      auto* child = step.cell ? static_cast<DepTree*>(RSTree::value_of(step.cell)) : nullptr;
      if (!step.written && (!child || child->order() >= step.node->order())) {
        step.written = true;
        write_line(*step.node);
      } else if (child) {
        step.cell = step.node->next_of(step.cell);
        path.push_back({child, child->head(), false});
      } else {
        path.pop_back();
      }
    }
  }

  void write_bare_word(bool with_gap) {
    out_ << counter_ << "\t(" << quoted(deps_.word(counter_)) << ')';
    if (with_gap && deps_._separators.test(counter_)) out_ << " :nogap";
    out_ << '\n';
  }

  void write_line(DepTree& node) {
    if (node.is_holder()) return;
    for (; counter_ < node._pos && counter_ < deps_.word_count(); ++counter_)
      if (!covered(counter_)) write_bare_word(true);
    if (node.spans_words() && counter_ <= node._pos) ++counter_;
    write_node(node);
  }

  void write_node(DepTree& node) {
    const char* word = node.word();
    const char* root = node._root_word;
    out_ << quoted(node.label()) << "\t(" << (word ? quoted(word) : "()") << '\t';
    bool same = !root || !*root || (word && std::strcmp(root, word) == 0);
    out_ << (same ? contract::kNoWord : quoted(root));
    out_ << ' ' << (node._cat && *node._cat ? quoted(node._cat) : contract::kNoCategory) << '\t';
    DepTree* parent = node.parent();
    write_parent(parent);
    if (node._rel && *node._rel) out_ << '\t' << quoted(node._rel);
    const char* governor = flags_.print_governor && parent ? parent->root_word() : nullptr;
    if (governor && *governor) out_ << "\t(gov " << quoted(governor) << ')';
    for (const DepProp& prop : node._props) write_prop(prop);
    if (show_ && node._atts) {
      out_ << "\t(atts ";
      node._atts->print(out_, show_);
      out_ << ')';
    }
    if (flags_.print_weight) out_ << " (w " << float_text(node._weight) << ')';
    out_ << ')';
    if (node._pos > 0 && deps_._separators.test(node._pos)) out_ << " :nogap";
    out_ << '\n';
  }

  // A label that would read as a direction, or as no parent, is marked as a label.
  void write_parent(DepTree* parent) {
    if (!parent || parent->has_no_span()) {
      out_ << '*';
      return;
    }
    const char* label = parent->label();
    bool misleads = std::strchr("<>-", label[0]) != nullptr || std::strcmp(label, "*") == 0;
    out_ << (misleads ? "- " : "") << quoted(label);
  }

  void write_prop(const DepProp& prop) {
    const ValType* type = deps_.properties().type(prop.id);
    if (!type) return;
    out_ << " (" << quoted(deps_.properties().name(prop.id)) << ' ';
    type->print(out_, prop.value);
    out_ << ')';
  }

  void write_assertions() {
    if (deps_._assertions.empty()) return;
    out_ << "assertions: (\n";
    for (const Deps::Assertion& assertion : deps_._assertions) {
      out_ << " (";
      write_atom(out_, assertion.name);
      for (const Deps::AssertionArg& arg : assertion.args) {
        out_ << " (";
        write_atom(out_, arg.left);
        out_ << ' ';
        write_atom(out_, arg.right);
        out_ << ' ' << float_text(arg.weight) << ')';
      }
      out_ << ")\n";
    }
    out_ << " )\n";
  }

  Deps& deps_;
  const Trees& flags_;
  std::ostream& out_;
  const LBitSet* show_;
  int counter_ = 1;
  std::vector<bool> covered_;
  std::string quoted_;
};

const char* direction_mark(const DepTree& node) {
  const DepTree* parent = node.parent();
  if (!parent) return "";
  if (parent->_pos < node._pos) return "+++ ";
  return parent->_pos > node._pos ? "--- " : "=== ";
}

void write_short(std::ostream& out, const DepTree& node, int level) {
  DepthGuard guard(short_form_limit);
  if (!guard) return;
  out << direction_mark(node);
  const char* root = node.root_word();
  if (root && *root) {
    out << root;
  } else {
    out << node._pos;
  }
  bool one_a_line = !node.empty() && node.first_child() != node.last_child();
  node.for_each_child([&](const DepTree* child) {
    if (one_a_line) {
      out << '\n' << std::string(static_cast<std::size_t>(2 * (level + 1)), ' ');
    } else {
      out << ' ';
    }
    out << '(';
    write_short(out, *child, level + 1);
    out << ')';
  });
}

}  // namespace

void Deps::print(std::ostream& out, const LBitSet* show) {
  TreeWriter(*this, out, show).write();
}

void Deps::print_word_lines(std::ostream& out, int low, int high, const LBitSet* show) {
  TreeWriter(*this, out, show).write_words(low, high);
}

void Deps::print_short(std::ostream& out, const DepTree& node) const {
  write_short(out, node, 0);
}

}  // namespace torvane
