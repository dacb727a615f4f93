// torvane why: why a sentence has its tree, and not another one.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>
#include <utility>

#include "cli/command.h"
#include "cli/grammar.h"
#include "cli/output.h"
#include "formats/why_format.h"
#include "sources/explained.h"
#include "text/plain_text.h"

namespace torvane {
namespace {

constexpr std::size_t kMostLinks = 6;

struct WhyOptions {
  std::string sentence, modifier, head;
  GrammarChoice grammar;
  std::string counts;
  bool json = false, all = false;
};

int tell(const std::string& fault, int status) {
  std::cerr << "torvane: " << fault << '\n';
  return status;
}

int explain(Engine& engine, const WhyOptions& options, std::string& out) {
  if (options.modifier.empty()) {
    const WhyTree why = why_in_text(engine, options.sentence);
    if (!why.fault.empty()) return tell(why.fault, kUsage);
    if (options.json) {
      write_why_json(out, why);
    } else {
      write_why_text(out, why);
    }
    return kDone;
  }
  const PlainText plain(options.sentence);
  Sentence sentence = engine.parse(plain.text());
  plain.restore(sentence);
  std::string fault;
  const int modifier = word_meant(sentence, options.modifier, false, fault);
  const int head = modifier < 0 ? -1 : word_meant(sentence, options.head, true, fault);
  if (head < 0) return tell(fault, kUsage);
  const WhyPair why = why_in_text(engine, options.sentence, modifier, head);
  if (!why.fault.empty()) return tell(why.fault, kUsage);
  if (options.json) {
    write_why_json(out, why);
  } else {
    write_why_text(out, why, options.all ? 0 : kMostLinks);
  }
  return kDone;
}

int why(const WhyOptions& options) {
  if (options.modifier.empty() != options.head.empty())
    return tell("why takes a sentence, or a sentence and two words", kUsage);
  const std::unique_ptr<Engine> engine =
      load_grammar(find_grammar(options.grammar), options.grammar.max_words, Forms::kept);
  if (!engine) return kNoGrammar;
  if (!options.counts.empty())
    if (const std::string fault = engine->use_counts(options.counts); !fault.empty())
      return tell(fault, kNoGrammar);
  Output output("-");
  const int status = explain(*engine, options, output.buffer);
  output.flush(true);
  return output.failed() ? kInputOutput : status;
}

}  // namespace

std::function<int()> declare_why(CLI::App& app) {
  auto options = std::make_shared<WhyOptions>();
  app.add_option("SENTENCE", options->sentence, "The sentence to be explained")->required();
  app.add_option("MODIFIER", options->modifier, "A word of it, by its number or its form");
  app.add_option("HEAD", options->head,
                 "Another one: why the first is not under it; 0: not the root");
  app.add_option("--grammar", options->grammar.grammar, "Name of a grammar, or a start-up file")
      ->capture_default_str();
  app.add_option("--data", options->grammar.data, "Folder of the grammars");
  app.add_option("--style", options->grammar.style,
                 "Head style: content, where the grammar has it, or grammar");
  app.add_option(
      "--counts", options->counts,
      "Folder of a database of counts, as torvane learn leaves it: weigh dependencies by it");
  app.add_flag("--json", options->json, "One JSON object instead of text");
  app.add_flag("--all", options->all, "All links that could join the two, however far they came");
  return [options] { return why(*options); };
}

}  // namespace torvane
