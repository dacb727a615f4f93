// CoNLL-U from any text, and back: what is written must be read without a fault, and stay as it is.
#include <vector>

#include "formats/conllu_reader.h"
#include "formats/format.h"
#include "fuzz_input.h"

namespace torvane {
namespace {

std::vector<Sentence> read(const std::string& text, bool& faulty) {
  ConlluReader reader;
  std::vector<Sentence> sentences;
  std::istringstream lines(text + "\n\n");
  for (std::string line; std::getline(lines, line);)
    if (reader.add(line)) sentences.push_back(reader.take());
  faulty = !reader.take_faults().empty();
  return sentences;
}

std::string written(const std::vector<Sentence>& sentences) {
  std::string text;
  for (const Sentence& sentence : sentences) write_conllu(text, sentence);
  return text;
}

}  // namespace

void read_input(const std::string& bytes) {
  bool faulty = false;
  const std::vector<Sentence> sentences = read(bytes, faulty);
  const std::string once = written(sentences);
  const std::string twice = written(read(once, faulty));
  if (faulty || written(read(twice, faulty)) != twice) std::abort();
  for (const Sentence& sentence : sentences)
    for (const Format& format : all_formats()) {
      std::string out;
      format.write(out, sentence, {.width = 30});
    }
}

}  // namespace torvane
