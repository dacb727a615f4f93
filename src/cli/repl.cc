// torvane repl: a prompt at which sentences are parsed and explained.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/line_reader.h"
#include "cli/repl_session.h"
#include "support/nearest.h"

namespace torvane {
namespace {

struct ReplOptions {
  ReplSession session;
  std::string format = "arcs";
};

ReplSession* session_of_process = nullptr;

// Outside a parse a prompt at a terminal goes on; else it ends the process.
void on_interrupt(int signal) {
  if (session_of_process && (session_of_process->stop() || isatty(STDIN_FILENO) == 1)) return;
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

/// The one thing that is taken from the environment: where lines are kept between runs.
std::string history_file() {
  const char* home = std::getenv("HOME");
  if (!home || !*home) return {};
  const std::filesystem::path folder = std::filesystem::path(home) / ".local/state/torvane";
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  return error ? std::string() : (folder / "history").string();
}

/// How many parentheses of a form are still open.
int open_parentheses(const std::string& form) {
  int open = 0;
  bool in_text = false;
  for (std::size_t i = 0; i < form.size(); ++i) {
    const char c = form[i];
    if (c == '\\') {
      ++i;
    } else if (c == '"') {
      in_text = !in_text;
    } else if (!in_text && c == ';') {
      i = std::min(form.find('\n', i), form.size());
    } else if (!in_text) {
      open += c == '(' ? 1 : c == ')' ? -1 : 0;
    }
  }
  return open;
}

void run_command(ReplSession& session, const std::string& line) {
  std::vector<std::string> words;
  for (std::size_t at = 1; (at = line.find_first_not_of(" \t", at)) != line.npos;) {
    const std::size_t end = std::min(line.find_first_of(" \t", at), line.size());
    words.push_back(line.substr(at, end - at));
    at = end;
  }
  if (words.empty()) return;
  const std::string name = words.front();
  words.erase(words.begin());
  std::vector<std::string> names;
  for (const ReplCommand& command : repl_commands()) {
    if (name == command.name) return command.run(session, words);
    names.emplace_back(command.name);
  }
  std::cout << "no command :" << name << hint_for(name, names) << " (:help)\n";
}

void run_line(ReplSession& session, const std::string& line) {
  const std::size_t from = line.find_first_not_of(" \t");
  if (from == line.npos) return;
  if (line[from] == ':') return run_command(session, line.substr(from));
  if (line[from] == '(') return session.run_form(line.substr(from));
  session.parse(line);
  session.show();
}

int repl(ReplOptions& options) {
  ReplSession& session = options.session;
  session.format = find_format(options.format);
  if (!session.load()) return kNoGrammar;
  session_of_process = &session;
  struct sigaction action = {};
  action.sa_handler = on_interrupt;
  action.sa_flags = SA_RESTART;
  sigaction(SIGINT, &action, nullptr);
  const std::unique_ptr<LineReader> reader = make_line_reader(
      [&](const std::string& line, std::size_t word) { return complete_in(session, line, word); },
      history_file());
  for (std::string line, more; !session.ended && reader->read("> ", line);) {
    while (line.find_first_not_of(" \t") != line.npos &&
           line[line.find_first_not_of(" \t")] == '(' && open_parentheses(line) > 0 &&
           reader->read("... ", more) && !more.empty())
      line += '\n' + more;
    run_line(session, line);
    std::cout << std::flush;
  }
  session_of_process = nullptr;
  return kDone;
}

}  // namespace

std::function<int()> declare_repl(CLI::App& app) {
  auto options = std::make_shared<ReplOptions>();
  ReplSession& session = options->session;
  std::vector<std::string> formats;
  for (const Format& format : all_formats()) formats.emplace_back(format.name);
  app.add_option("--to", options->format, "How trees are shown")
      ->check(CLI::IsMember(formats))
      ->capture_default_str();
  declare_page(app, session.page);
  app.add_option("--grammar", session.grammar.grammar, "Name of a grammar, or a start-up file")
      ->capture_default_str();
  app.add_option("--data", session.grammar.data, "Folder of the grammars");
  app.add_option("--style", session.grammar.style,
                 "Head style: content, where the grammar has it, or grammar");
  app.add_option(
      "--counts", session.counts,
      "Folder of a database of counts, as torvane learn leaves it: weigh dependencies by it");
  return [options] { return repl(*options); };
}

}  // namespace torvane
