#include "triples/report_parts.h"

#include <cstdlib>

#include "shell/file_search.h"
#include "shell/world.h"
#include "triples/mutual_info.h"

namespace torvane {

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

RelationName::RelationName(const TripleDb& db, int signed_id)
    : name(db.id_to_string(std::abs(signed_id))), inverse(signed_id < 0) {}

}  // namespace torvane
