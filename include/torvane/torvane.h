// torvane for C++17 and later; for C it is torvane/c.h.
//
//   torvane::Engine english("english");
//   if (!english) std::cerr << english.error();
//   for (torvane::Sentence sentence : english.parse(text))
//     for (torvane::Word word : sentence) std::cout << word.form() << ' ' << word.relation() <<
//     '\n';
//
// Faults are values: an object that something is wrong with is false and has an error. What torvane
// does throws nothing. The classes are thin: the library behind them is the one of C, so that a
// program need not be built with the same compiler.
#ifndef TORVANE_TORVANE_H
#define TORVANE_TORVANE_H

#include <torvane/c.h>

#ifdef __cplusplus

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace torvane {
inline namespace v0 {

/// The options of an engine; what is empty or 0 is as on the command line without options.
struct Options {
  std::string data;           ///< folder of the grammars
  std::string style;          ///< head style: `content` or `grammar`
  std::size_t max_words = 0;  ///< a longer sentence is parsed piece by piece
  std::string counts{};       ///< folder of a database of counts that advises the grammar
  bool explains = false;      ///< `why` quotes the grammar's forms, which takes memory
};

/// A stretch of a text, the end not in it.
struct Span {
  std::size_t begin, end;
};

/// A word of a document, which outlives it.
class Word {
 public:
  explicit Word(const torvane_word* word) : word_(word) {}
  std::string_view form() const { return word_->form; }
  std::string_view lemma() const { return word_->lemma; }
  std::string_view upos() const { return word_->upos; }
  std::string_view xpos() const { return word_->xpos; }
  /// `Name=Value|Name=Value`
  std::string_view features() const { return word_->features; }
  std::string_view relation() const { return word_->relation; }
  /// Number of the head from 1; 0 for the root; -1: not known.
  int head() const { return word_->head; }
  /// The grammar took it into no tree.
  bool outside() const { return word_->outside != 0; }
  Span characters() const { return {word_->begin, word_->end}; }
  Span bytes() const { return {word_->begin_byte, word_->end_byte}; }

 private:
  const torvane_word* word_;
};

/// What is got by its number, for a range `for`.
template <class List>
class Iterator {
 public:
  Iterator(const List* list, std::size_t at) : list_(list), at_(at) {}
  auto operator*() const { return (*list_)[at_]; }
  Iterator& operator++() {
    ++at_;
    return *this;
  }
  bool operator!=(const Iterator& other) const { return at_ != other.at_; }

 private:
  const List* list_;
  std::size_t at_;
};

namespace detail {
inline std::optional<std::string> take_text(char* text, std::size_t length) {
  if (!text) return std::nullopt;
  const std::unique_ptr<char, void (*)(void*)> owner(text, torvane_free);
  return std::string(text, length);
}
}  // namespace detail

/// A sentence of a document, which outlives it: a row of words from 0.
class Sentence {
 public:
  Sentence(const torvane_document* document, std::size_t number)
      : document_(document),
        number_(number),
        sentence_(torvane_document_sentence(document, number)) {}
  std::string_view text() const { return sentence_->text; }
  std::string_view id() const { return sentence_->id; }
  /// What kept the parse from being complete: `words`, `items`; or empty.
  std::string_view cut() const { return sentence_->cut; }
  /// Trees that the grammar found; their tops hang on one root.
  int parts() const { return sentence_->parts; }
  bool starts_paragraph() const { return sentence_->starts_paragraph != 0; }
  Span characters() const { return {sentence_->begin, sentence_->end}; }
  Span bytes() const { return {sentence_->begin_byte, sentence_->end_byte}; }

  std::size_t size() const { return sentence_->words; }
  Word operator[](std::size_t word) const {
    return Word(torvane_document_word(document_, number_, word));
  }
  Iterator<Sentence> begin() const { return {this, 0}; }
  Iterator<Sentence> end() const { return {this, size()}; }

  /// In a format of `torvane parse --to`; nothing if there is none of that name.
  std::optional<std::string> to(const std::string& format) const {
    std::size_t length = 0;
    char* text = torvane_sentence_write(document_, number_, format.c_str(), &length);
    return detail::take_text(text, length);
  }

 private:
  const torvane_document* document_;
  std::size_t number_;
  const torvane_sentence* sentence_;
};

/// Sentences from 0. It can be moved, not copied.
class Document {
 public:
  /// Of a document of C, which ends with it.
  explicit Document(torvane_document* document) : document_(document, torvane_document_free) {}
  /// Reads trees without parsing: a format of `torvane convert`.
  static Document read(const std::string& format, std::string_view text) {
    return Document(torvane_read(format.c_str(), text.data(), text.size()));
  }

  /// All went well.
  explicit operator bool() const { return !torvane_document_error(document_.get()); }
  /// What was wrong, a line each; or empty.
  std::string_view error() const {
    const char* error = torvane_document_error(document_.get());
    return error ? error : "";
  }
  std::size_t size() const { return torvane_document_size(document_.get()); }
  Sentence operator[](std::size_t sentence) const { return {document_.get(), sentence}; }

  Iterator<Document> begin() const { return {this, 0}; }
  Iterator<Document> end() const { return {this, size()}; }

  /// In a format of `torvane parse --to`; nothing if there is none of that name.
  std::optional<std::string> to(const std::string& format) const {
    std::size_t length = 0;
    char* text = torvane_document_write(document_.get(), format.c_str(), &length);
    return detail::take_text(text, length);
  }
  std::string to_conllu() const { return to("conllu").value_or(""); }

 private:
  std::unique_ptr<torvane_document, void (*)(torvane_document*)> document_;
};

/// A loaded grammar. It may be moved, and used by any thread; it serves one call at a time.
class Engine {
 public:
  /// A grammar by its name, or the path of a start-up file.
  explicit Engine(const std::string& grammar = "english", const Options& options = {})
      : engine_(open(grammar, options), torvane_close) {}

  /// The grammar is loaded.
  explicit operator bool() const { return !torvane_engine_error(engine_.get()); }
  /// Why it did not load, with its messages; or empty.
  std::string_view error() const {
    const char* error = torvane_engine_error(engine_.get());
    return error ? error : "";
  }
  /// What the grammar has printed since the last call.
  std::string messages() {
    char* text = torvane_engine_messages(engine_.get());
    return detail::take_text(text, std::char_traits<char>::length(text ? text : "")).value_or("");
  }

  /// Parses running text.
  Document parse(std::string_view text) {
    return Document(torvane_parse(engine_.get(), text.data(), text.size()));
  }
  /// Parses text of another kind: `lines`, `tokens`, `conllu` and so on, as `torvane parse --from`.
  Document parse(std::string_view text, const std::string& kind) {
    return Document(torvane_parse_from(engine_.get(), kind.c_str(), text.data(), text.size()));
  }
  /// Parses a text as one sentence.
  Document parse_sentence(std::string_view text) {
    return Document(torvane_parse_sentence(engine_.get(), text.data(), text.size()));
  }
  /// Parses words as one sentence.
  Document parse_words(const std::vector<std::string>& words) {
    std::vector<const char*> texts;
    texts.reserve(words.size());
    for (const std::string& word : words) texts.push_back(word.c_str());
    return Document(torvane_parse_words(engine_.get(), texts.data(), texts.size()));
  }

  /// Why a word of a sentence is not under another one: words count from 1, head 0 is the root. The
  /// object that `torvane why --json` writes, with a member `fault` where there is no answer.
  std::optional<std::string> why(std::string_view text, int modifier, int head) {
    std::size_t length = 0;
    char* json = torvane_why(engine_.get(), text.data(), text.size(), modifier, head, &length);
    return detail::take_text(json, length);
  }
  /// Why the tree is as it is.
  std::optional<std::string> why(std::string_view text) { return why(text, 0, 0); }

 private:
  static torvane_engine* open(const std::string& grammar, const Options& options) {
    torvane_options all = TORVANE_OPTIONS;
    if (!options.data.empty()) all.data = options.data.c_str();
    if (!options.style.empty()) all.style = options.style.c_str();
    all.max_words = options.max_words;
    if (!options.counts.empty()) all.counts = options.counts.c_str();
    all.explains = options.explains ? 1 : 0;
    return torvane_open(grammar.c_str(), &all);
  }

  std::unique_ptr<torvane_engine, void (*)(torvane_engine*)> engine_;
};

}  // namespace v0
}  // namespace torvane

#endif
#endif
