// Tree text from any bytes, by lines, and back: what is written must be read without a fault, and
// stay as it is.
#include <vector>

#include "formats/format.h"
#include "formats/tree_text_reader.h"
#include "fuzz_input.h"

namespace torvane {
namespace {

std::vector<TreeText> read(const std::string& text, bool& faulty) {
  TreeTextReader reader;
  std::vector<TreeText> trees;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) reader.add(line);
  reader.end();
  for (TreeText tree; reader.next(tree);) trees.push_back(std::move(tree));
  faulty = !reader.take_faults().empty();
  return trees;
}

std::string written(const std::vector<TreeText>& trees) {
  std::string text;
  for (const TreeText& tree : trees) write_deps(text, tree.sentence);
  return text;
}

/// A parser that does not parse: the tree rules are what is asked of it.
Engine& rewriting_engine() {
  static Engine& engine = *[] {
    auto* made = new Engine;
    made->run(
        "(def-att-list syn (defattribute b BinAtt))"
        "(make-lexicon words 101) (make-lex-analyzer analyser :lexicon words)"
        "(def-torvane-parser parser :attribute-vector-type syn :lexical-analyzer analyser)");
    if (!made->load({}, {}).empty()) std::abort();
    return made;
  }();
  return engine;
}

}  // namespace

void read_input(const std::string& bytes) {
  bool faulty = false;
  const std::vector<TreeText> trees = read(bytes, faulty);
  const std::string once = written(trees);
  const std::string twice = written(read(once, faulty));
  if (faulty || written(read(twice, faulty)) != twice) std::abort();
  for (const TreeText& tree : trees) {
    for (const Format& format : all_formats()) {
      std::string out;
      format.write(out, tree.sentence, {.width = 30});
    }
    if (tree.sentence.words.size() < 1000) rewriting_engine().rewrite(tree.form);
  }
}

}  // namespace torvane
