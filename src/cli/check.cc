// torvane check: what is wrong with a grammar, where editors can jump to it.
#include "check/check.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/output.h"
#include "formats/json_string.h"

namespace torvane {
namespace {

struct CheckOptions {
  std::vector<std::string> grammars;
  GrammarChoice choice;
  bool json = false;
};

std::string_view name_of(Severity severity) {
  return severity == Severity::error ? "error" : "warning";
}

void write_finding(std::string& out, const Finding& finding, bool json) {
  const std::string line = std::to_string(finding.line);
  const std::string_view severity = name_of(finding.severity);
  if (json) {
    out += "{\"file\":";
    add_json_string(out, finding.file);
    out.append(",\"line\":").append(line).append(",\"severity\":\"").append(severity);
    out += "\",\"text\":";
    add_json_string(out, finding.text);
    out += "}\n";
  } else {
    out.append(finding.file).append(":").append(line).append(": ");
    out.append(severity).append(": ").append(finding.text).append("\n");
  }
}

int check(const CheckOptions& options) {
  Output output("");
  bool has_errors = false;
  for (const std::string& grammar : options.grammars) {
    GrammarChoice choice = options.choice;
    choice.grammar = grammar;
    const GrammarFiles files = find_grammar(choice);
    if (!files.fault.empty()) {
      std::cerr << "torvane: " << files.fault << '\n';
      has_errors = true;
      continue;
    }
    check_grammar(files, [&](const Findings& found) {
      for (const Finding& finding : found) {
        has_errors = has_errors || finding.severity == Severity::error;
        write_finding(output.buffer, finding, options.json);
      }
      output.flush(true);
    });
  }
  return has_errors || output.failed() ? kInputOutput : kDone;
}

}  // namespace

std::function<int()> declare_check(CLI::App& app) {
  auto options = std::make_shared<CheckOptions>();
  options->grammars = {options->choice.grammar};
  app.add_option("GRAMMAR", options->grammars, "Names of grammars, or start-up files")
      ->take_all()
      ->capture_default_str();
  app.add_option("--data", options->choice.data, "Folder of the grammars");
  app.add_option("--style", options->choice.style,
                 "Head style that is loaded too: content, where the grammar has it, or grammar");
  app.add_flag("--json", options->json, "An object a line");
  return [options] { return check(*options); };
}

}  // namespace torvane
