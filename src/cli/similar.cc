// torvane similar: a database of triples in, similar words out.
#include "cli/similar.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstring>
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/counting.h"
#include "cli/interrupt.h"
#include "cli/summary.h"
#include "counts/similar_words.h"

namespace torvane {
namespace {

int similar(const SimilarChoice& choice, bool tells) {
  catch_interrupts();
  const std::string fault = find_similar_words(choice, tells);
  if (is_interrupted()) end_by_interrupt();
  if (!fault.empty()) tell_fault(fault);
  return fault.empty() ? kDone : kInputOutput;
}

}  // namespace

std::string find_similar_words(const SimilarChoice& choice, bool tells) {
  SimilarWords words(choice.memory << 20, scratch_folder_for(choice.output));
  // Information below 0 would count against what two words share.
  constexpr float kLeast = 1e-6F;
  if (!words.read(choice.folder, std::max(choice.least, kLeast)))
    return choice.folder + " has no counts that can be read";
  words.compare(choice.most, choice.jobs);
  WholeFile out(choice.output);
  words.write(out, choice.most);
  if (words.error() != 0) return std::strerror(words.error());
  std::string fault = out.finish();
  if (fault.empty() && tells)
    std::cerr << with_commas(words.word_count()) << " words by part of speech, with "
              << with_commas(words.feature_count()) << " features\n";
  return fault;
}

std::function<int()> declare_similar(CLI::App& app) {
  auto choice = std::make_shared<SimilarChoice>();
  auto quiet = std::make_shared<bool>(false);
  app.add_option("DIR", choice->folder, "Folder with a database of counts")->required();
  app.add_option("-o,--output", choice->output, "File to write; none, or -: standard output");
  app.add_option("--most", choice->most, "Words a list")
      ->check(CLI::Range(1, 1000000))
      ->capture_default_str();
  app.add_option("--least", choice->least, "Mutual information that a triple must have to count")
      ->capture_default_str();
  app.add_option("-j,--jobs", choice->jobs, "Words compared at the same time")
      ->check(CLI::Range(1, 256))
      ->capture_default_str();
  app.add_option("--memory", choice->memory, "Megabytes for comparing")
      ->check(CLI::Range(1, 1 << 20))
      ->capture_default_str();
  app.add_flag("--quiet", *quiet, "No summary on standard error");
  return [choice, quiet] { return similar(*choice, !*quiet); };
}

}  // namespace torvane
