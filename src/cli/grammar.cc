#include "cli/grammar.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>

#include "cli/command.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

bool is_file(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

/// Beside the program: `bin/torvane`, `share/torvane`.
fs::path installed_data() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return program.parent_path().parent_path() / "share" / "torvane";
}

// A grammar can run `exit`, in any thread. Whoever asked for a parse has none.
Value end_program(World&, IRSlist*) {
  std::cerr << "torvane: the grammar ended the program" << std::endl;
  _exit(kNoGrammar);
}

}  // namespace

GrammarFiles find_grammar(const GrammarChoice& choice) {
  GrammarFiles found;
  const fs::path data = choice.data.empty() ? installed_data() : fs::path(choice.data);
  const fs::path named = data / choice.grammar / (choice.grammar + ".lsp");
  const bool by_file = choice.grammar.find('/') != std::string::npos ||
                       choice.grammar.ends_with(".lsp") || !is_file(named);
  const fs::path file = by_file ? fs::path(choice.grammar) : named;
  if (!is_file(file)) {
    found.fault = "no grammar " + choice.grammar + " in " + data.string() + ", and no file";
    return found;
  }
  found.files.push_back(file.string());
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  if (by_file) found.folders.push_back(folder.string());
  found.folders.push_back(data.string());
  const fs::path style =
      folder / ("style-" + (choice.style.empty() ? std::string("content") : choice.style) + ".lsp");
  if (is_file(style)) {
    found.files.push_back(style.string());
  } else if (!choice.style.empty() && choice.style != "grammar") {
    found.fault = "the grammar " + choice.grammar + " has no style " + choice.style;
  }
  return found;
}

std::unique_ptr<Engine> load_grammar(const GrammarFiles& files, std::size_t max_words) {
  static thread_local std::istringstream nothing;
  std::string fault = files.fault;
  std::unique_ptr<Engine> engine;
  if (fault.empty()) {
    engine = std::make_unique<Engine>(World::Console{&nothing, &std::cerr, &std::cerr});
    engine->max_words = max_words;
    engine->world().interpreter.redefine("exit", end_program, nullptr);
    fault = engine->load(files.files, files.folders);
  }
  if (fault.empty()) return engine;
  std::cerr << "torvane: " << fault << '\n';
  return nullptr;
}

}  // namespace torvane
