// The C face: documents.
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "formats/format.h"
#include "library/handles.h"
#include "library/text_search.h"
#include "sources/given_text.h"
#include "sources/sources.h"

namespace torvane {
namespace {

torvane_word row_of(const SentenceWord& word, const std::vector<TextPlace>& places) {
  torvane_word row = {};
  row.form = word.form.c_str();
  row.lemma = word.lemma.c_str();
  row.upos = word.upos.c_str();
  row.xpos = word.xpos.c_str();
  row.features = word.features.c_str();
  row.relation = word.relation.c_str();
  row.head = word.head;
  row.outside = word.outside ? 1 : 0;
  if (word.begin >= word.end || word.end > places.size()) return row;
  row.begin = places[word.begin].character;
  row.end = places[word.end - 1].character + 1;
  row.begin_byte = places[word.begin].byte;
  row.end_byte = places[word.end - 1].byte + 1;
  return row;
}

torvane_sentence row_of(const Sentence& sentence, const std::vector<TextPlace>& places) {
  torvane_sentence row = {};
  row.text = sentence.text.c_str();
  row.id = sentence.id.c_str();
  row.cut = sentence.cut.c_str();
  row.parts = sentence.parts;
  row.starts_paragraph = sentence.starts_paragraph ? 1 : 0;
  row.words = sentence.words.size();
  if (places.empty()) return row;
  row.begin = places.front().character;
  row.end = places.back().character + 1;
  row.begin_byte = places.front().byte;
  row.end_byte = places.back().byte + 1;
  return row;
}

}  // namespace

void seal(torvane_document& document, const char* text, std::size_t length) {
  TextSearch given(text ? std::string_view(text, length) : std::string_view());
  for (const Sentence& sentence : document.sentences) {
    const std::vector<TextPlace> places =
        text ? given.find(sentence.text) : TextSearch(sentence.text).find(sentence.text);
    document.sentence_rows.push_back(row_of(sentence, places));
    std::vector<torvane_word>& rows = document.word_rows.emplace_back();
    rows.reserve(sentence.words.size());
    for (const SentenceWord& word : sentence.words) rows.push_back(row_of(word, places));
  }
}

char* copy_of(const std::string& text, std::size_t* length) {
  auto* copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (!copy) return nullptr;
  std::memcpy(copy, text.c_str(), text.size() + 1);
  if (length) *length = text.size();
  return copy;
}

}  // namespace torvane

const char* torvane_version() noexcept {
  return TORVANE_VERSION;
}

torvane_document* torvane_read(const char* format, const char* text, size_t length) noexcept {
  auto document = std::make_unique<torvane_document>();
  const std::string name = format ? format : "";
  torvane::GivenText given({text ? text : "", text ? length : 0});
  const auto source = torvane::make_tree_source(name, given);
  if (!source) {
    document->error = "there is no format " + name + " to be read";
    return document.release();
  }
  for (torvane::Task task; source->next(task);)
    document->sentences.push_back(std::move(*task.read));
  document->error = given.faults();
  torvane::seal(*document, nullptr, 0);
  return document.release();
}

void torvane_document_free(torvane_document* document) noexcept {
  delete document;
}

const char* torvane_document_error(const torvane_document* document) noexcept {
  return document && !document->error.empty() ? document->error.c_str() : nullptr;
}

size_t torvane_document_size(const torvane_document* document) noexcept {
  return document ? document->sentences.size() : 0;
}

const torvane_sentence* torvane_document_sentence(const torvane_document* document,
                                                  size_t sentence) noexcept {
  return sentence < torvane_document_size(document) ? &document->sentence_rows[sentence] : nullptr;
}

const torvane_word* torvane_document_word(const torvane_document* document, size_t sentence,
                                          size_t word) noexcept {
  if (sentence >= torvane_document_size(document)) return nullptr;
  const auto& rows = document->word_rows[sentence];
  return word < rows.size() ? &rows[word] : nullptr;
}

char* torvane_document_write(const torvane_document* document, const char* format,
                             size_t* length) noexcept {
  const torvane::Format* found = torvane::find_format(format ? format : "");
  if (!found) return nullptr;
  std::string out;
  found->begin(out);
  for (size_t i = 0; i < torvane_document_size(document); ++i)
    found->write(out, document->sentences[i]);
  found->end(out);
  return torvane::copy_of(out, length);
}

char* torvane_sentence_write(const torvane_document* document, size_t sentence, const char* format,
                             size_t* length) noexcept {
  const torvane::Format* found = torvane::find_format(format ? format : "");
  if (!found || sentence >= torvane_document_size(document)) return nullptr;
  std::string out;
  found->begin(out);
  found->write(out, document->sentences[sentence]);
  found->end(out);
  return torvane::copy_of(out, length);
}

void torvane_free(void* text) noexcept {
  std::free(text);
}
