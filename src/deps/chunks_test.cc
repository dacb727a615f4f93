#include "deps/chunks.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "deps/deps.h"
#include "deps/trees.h"
#include "deps/val_types.h"

namespace torvane {
namespace {

/// Words, each with the label of the chunk that its node is the root of, or null for no node.
struct Word {
  const char* text;
  const char* chunk;
};

std::string chunked(const std::vector<Word>& words) {
  World world(World::Console::of_process());
  WorldScope here(world);
  static const StrValue text;
  trees(world).properties.define("ckroot", &text);
  Ref<Deps> deps = make_ref<Deps>(world);
  DepTree* root = deps->new_node();
  deps->set_root(root);
  for (const Word& word : words) {
    deps->add_word(word.text, " ");
    if (!word.chunk) continue;
    DepTree* node = deps->new_node();
    node->_pos = static_cast<std::int16_t>(deps->word_count() - 1);
    node->_props.append({trees(world).properties.id("ckroot"), Value::constant(word.chunk), 1.0f});
    root->append(node);
  }
  std::ostringstream out;
  print_chunks(out, *root);
  return out.str();
}

// Forward an empty word at the front of a skipped stretch goes to the chunk before it; backward a
// chunk that begins with an empty word takes the skipped word before it.
TEST(Chunks, EmptyWordsMoveTheEdgesOfSkippedStretches) {
  EXPECT_EQ(chunked({{"a", "A"}, {"", nullptr}, {"x", nullptr}, {"", nullptr}, {"b", "B"}}),
            " [a ]A [x ]SKIP [b]B\n");
  EXPECT_EQ(chunked({{"a", "A"}, {"", nullptr}, {"", nullptr}, {"b", "B"}}), " [a  ]A [b]B\n");
  EXPECT_EQ(chunked({{"a", "A"}, {"x", nullptr}, {"", nullptr}}), " [a]A [x ]SKIP\n");
  EXPECT_EQ(chunked({{"x", nullptr}, {"y", nullptr}, {"", "B"}}), " [x]SKIP [y ]B\n");
  EXPECT_EQ(chunked({{"x", nullptr}, {"", "B"}}), " [x ]B\n");
}

}  // namespace
}  // namespace torvane
