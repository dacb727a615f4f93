#include "triples/reports/report_parts.h"

#include "shell/file_search.h"
#include "shell/named_objects.h"
#include "shell/world.h"

namespace torvane {

TripleDb* take_triple_db(World& world, IRSlist* form) {
  return world.objects.find_as<TripleDb>(form->get_str_val(), "TripleDb", true);
}

float take_float(IRSlist& form, const char* keyword, float otherwise) {
  form.find_keyword_float(keyword, otherwise);
  form.take_keyword_node(keyword);
  return otherwise;
}

Ref<Stream> take_output_file(World& world, IRSlist& form) {
  return world.make_ostream(form.take_keyword_str(":output"));
}

std::unique_ptr<WordClasses> take_wordset(World& world, IRSlist& form) {
  const char* name = form.take_keyword_str(":wordset");
  Ref<Stream> file = name ? world.files.open(name) : Ref<Stream>();
  return file && file->in() ? std::make_unique<WordClasses>(*file->in()) : nullptr;
}

}  // namespace torvane
