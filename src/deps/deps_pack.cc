// A tree as bytes: a node, then its children, in order. The words go another way.
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <vector>

#include "deps/deps.h"
#include "support/messages.h"
#include "support/packed_reader.h"

namespace torvane {
namespace {

enum Flag : unsigned char { kOnePosition = 1, kCategory = 2, kRelation = 4, kRoot = 8, kAtts = 16 };
constexpr int kMostChildren = 65535;

[[noreturn]] void fail_without_att_type() {
  // Kept: no-vector-type-ends-the-run
  messages() << "The type of AttVec in dependency tree is not defined\n" << std::flush;
  end_process(1);
}

bool fits_one_byte(const DepTree& node) {
  return node._low == node._high && node._low == node._pos && node._pos >= -1 && node._pos < 128;
}

bool root_is_told(const DepTree& node) {
  const char* word = node.word();
  return node._root_word && !(word && std::strcmp(node._root_word, word) == 0);
}

int packed_children(const DepTree& node) {
  return std::min(node.length(), kMostChildren);
}

void pack_node(const DepTree& node, StrBufs& out) {
  unsigned char flags = 0;
  if (fits_one_byte(node)) flags |= kOnePosition;
  if (node._cat) flags |= kCategory;
  if (node._rel) flags |= kRelation;
  if (root_is_told(node)) flags |= kRoot;
  if (node._atts) flags |= kAtts;
  out.add_char(static_cast<char>(flags));
  if (flags & kOnePosition) {
    out.add_char(static_cast<char>(node._pos));
  } else {
    for (std::int16_t position : {node._low, node._high, node._pos})
      out.add_be16(static_cast<std::uint16_t>(position));
  }
  if (flags & kCategory) out.add_text(node._cat);
  if (flags & kRelation) out.add_text(node._rel);
  if (flags & kRoot) out.add_text(node._root_word);
  if (flags & kAtts) {
    if (!node._deps->_att_type) fail_without_att_type();
    node._atts->pack(out);
  }
  out.add_be16(static_cast<std::uint16_t>(packed_children(node)));
}

/// The number of children that follow; -1 for damaged bytes.
int unpack_node(DepTree& node, AttInterpreterList* att_type, PackedReader& in) {
  int flags = in.byte();
  if (flags & kOnePosition) {
    node._low = node._high = node._pos = in.byte();
  } else {
    for (std::int16_t* position : {&node._low, &node._high, &node._pos})
      *position = static_cast<std::int16_t>(in.half());
  }
  if (flags & kCategory) node.set_cat(in.text());
  if (flags & kRelation) node.set_rel(in.text());
  if (flags & kRoot) node.set_root_word(in.text());
  if (in.good() && (flags & kAtts)) {
    if (!att_type) fail_without_att_type();
    node._atts = make_ref<AttVec>(att_type);
    in.read(*node._atts);
  }
  int children = in.half();
  return in.good() ? children : -1;
}

}  // namespace

void Deps::pack(StrBufs& out) const {
  if (!_root) return;
  struct Step {
    const DepTree* node;
    RSTree::Cell* cell;
    int left;
  };
  std::vector<Step> path;
  auto enter = [&](const DepTree* node) {
    pack_node(*node, out);
    path.push_back({node, node->head(), packed_children(*node)});
  };
  enter(_root);
  while (!path.empty()) {
    Step& step = path.back();
    if (step.left-- == 0) {
      path.pop_back();
      continue;
    }
    auto* child = static_cast<const DepTree*>(RSTree::value_of(step.cell));
    step.cell = step.cell->next;
    enter(child);
  }
}

bool Deps::unpack(const char*& p, const char* end) {
  eras.renew();
  drop_nodes();
  struct Step {
    DepTree* node;
    int left;
  };
  std::vector<Step> path;
  PackedReader in(p, end);
  DepTree* root = nullptr;
  auto enter = [&] {
    DepTree* node = new_node();
    int children = unpack_node(*node, _att_type, in);
    if (root) {
      path.back().node->append(node);
    } else {
      root = node;
    }
    path.push_back({node, children});
    return children >= 0;
  };
  bool good = p != end && enter();
  while (good && !path.empty()) {
    if (path.back().left-- == 0) {
      path.pop_back();
    } else {
      good = enter();
    }
  }
  if (!good) return false;
  p = in.at();
  _root = root;
  return true;
}

}  // namespace torvane
