// The process: one line of text in, its dependency tree out.
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "cli/command_line.h"
#include "engine/engine.h"
#include "support/depth.h"
#include "support/messages.h"

namespace torvane {

namespace {

constexpr const char* kDataDir = "./data";

// The normal end of a run has status 1; only the command `exit` ends with 0.
// Kept: normal-end-status-1
constexpr int kNormalEnd = 1;

int run() {
  // Kept: sentense-dat
  std::FILE* file = std::fopen("sentense.dat", "r");
  if (!file) {
    messages() << "File Open Error.\n";
    return EXIT_FAILURE;
  }
  // An empty file leaves the empty text.
  // Kept: first-1023-bytes
  char line[1024] = {};
  if (!std::fgets(line, sizeof line, file)) line[0] = '\0';

  // Nothing is torn down at the end of the process, wherever that is: only what was written goes
  // out.
  struct Flush {
    World& world;
    ~Flush() { world.flush(); }
  };
  auto& engine = *new Engine;
  static Flush at_the_end{engine.world()};
  engine.start(kDataDir);
  {
    SentenceTree tree;
    engine.parse(line, tree);
    print_tree(std::cout, tree.root);
    std::cout << std::endl;
  }
  std::fclose(file);
  return kNormalEnd;
}

// Memory of another thread than the first would be asked for a page and a system call at a time, by
// which the lexicon takes an eighth longer to load.
void take_memory_in_large_pieces() {
  constexpr int kPiece = 2 << 20;
  mallopt(M_ARENA_MAX, 1);
  mallopt(M_TOP_PAD, kPiece);
}

}  // namespace

}  // namespace torvane

// Arguments are for people; start-up files know of none.
int main(int argc, char** argv) {
  torvane::take_memory_in_large_pieces();
  if (argc == 1) return torvane::run_on_large_stack(torvane::run);
  return torvane::run_on_large_stack(
      [&] { return torvane::run_command_line(argc, argv, TORVANE_VERSION); });
}
