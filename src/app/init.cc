#include "app/init.h"

#include "lexp/lexp.h"
#include "shell/exec.h"
#include "shell/file_search.h"
#include "shell/object_factory.h"

namespace torvane {

namespace {

constexpr Registration kRegistrations[] = {
    {"attribute types", nullptr},
    {"tokenizers", register_tokenizer_commands},
    {"the object factory", register_object_factory_commands},
    {"the lexicon", nullptr},
    {"the lexical analyser", nullptr},
    {"the family of lexical patterns", nullptr},
    {"lexical patterns", nullptr},
    {"core forms", nullptr},
    {"rule actions and antecedent lists", nullptr},
    {"attribute predicates", nullptr},
    {"lexical item predicates", nullptr},
    {"string functions and word lists", nullptr},
    {"integer and regular expression functions", nullptr},
    {"constants", nullptr},
    {"tree rules", nullptr},
    {"dependency tree expressions", nullptr},
    {"sentence boundaries", nullptr},
    {"left and right context rules", nullptr},
    {"attributes", nullptr},
    {"the parser", nullptr},
    {"initial attributes", nullptr},
    {"the sentence separator", nullptr},
    {"antecedent list expressions", nullptr},
    {"the attribute vector meaning", nullptr},
    {"triple databases", nullptr},
    {"similar words", nullptr},
};

}  // namespace

std::span<const Registration> registrations() { return kRegistrations; }

void register_modules() {
  for (const Registration& row : kRegistrations)
    if (row.run) row.run();
}

void init(const char* data_dir) {
  Exec& exec = interpreter();
  set_search_path(data_dir);
  register_modules();
  Ref<Stream> start_up = open_file("torvane.lsp");
  exec.prompt = false;
  exec.frees_values = true;
  exec.load(start_up.get());
  exec.frees_values = false;
}

}  // namespace torvane
