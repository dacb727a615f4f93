// Builds a source of similar words from a database of triples.
//
// usage: similar_words TRIPLES.hdr SOURCE [MOST [LEAST_INFORMATION]]
//
// SOURCE gets for each word and part of speech the MOST similar words (200). Triples whose mutual
// information is below LEAST_INFORMATION (0.5) do not count.
#include <algorithm>
#include <fstream>
#include <iostream>

#include "shell/file_search.h"
#include "shell/world.h"
#include "store/header_file.h"
#include "support/text.h"
#include "wordsim/triple_features.h"

namespace {

constexpr long kMost = 200;
constexpr float kLeastInformation = 0.5F;

int build(const char* name, const char* source, long most, float least_information) {
  using namespace torvane;
  World world(World::Console::of_process());
  TripleDb db(59999, 200011, false);
  HeaderFile header(world.files, name, world.double_byte);
  if (db.link_file(world.objects, header, OpenMode::read) < 1) {
    std::cerr << name << " names no database of triples\n";
    return 1;
  }
  std::ofstream out(source, std::ios::binary);
  if (!out) {
    std::cerr << "Can't open " << source << '\n';
    return 1;
  }
  TripleFeatures features;
  features.read(db, least_information);
  features.write_source(out, static_cast<std::size_t>(most));
  out.close();
  const FeatureOverlap& overlap = features.overlap();
  std::cerr << overlap.item_count() << " words by part of speech, with "
            << overlap.occurrence_count() << " features\n";
  if (!out) std::cerr << source << " could not be written\n";
  return out ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3 || argc > 5) {
    std::cerr << "usage: similar_words TRIPLES.hdr SOURCE [MOST [LEAST_INFORMATION]]\n";
    return 2;
  }
  long most = kMost;
  float least_information = kLeastInformation;
  if (argc > 3) torvane::scan_long(argv[3], most);
  if (argc > 4) torvane::scan_float(argv[4], least_information);
  // Information below 0 would count against what two words share.
  return build(argv[1], argv[2], std::max(most, 1L), std::max(least_information, 1e-6F));
}
