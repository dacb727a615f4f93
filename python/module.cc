// The module torvane._torvane: the C++ face for Python.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <torvane/torvane.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace py = pybind11;

namespace {

/// Text of the library; bytes that are no UTF-8 become lone surrogates, as Python does it with
/// names of files.
py::str text_of(std::string_view text) {
  PyObject* object =
      PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
  if (!object) throw py::error_already_set();
  return py::reinterpret_steal<py::str>(object);
}

/// The way back.
std::string bytes_of(const py::str& text) {
  PyObject* object = PyUnicode_AsEncodedString(text.ptr(), "utf-8", "surrogateescape");
  if (!object) throw py::error_already_set();
  return std::string(py::reinterpret_steal<py::bytes>(object));
}

py::object text_or_none(const std::optional<std::string>& text) {
  return text ? py::object(text_of(*text)) : py::object(py::none());
}

using Shared = std::shared_ptr<torvane::Document>;

// Words and sentences keep their document.
struct Word {
  Shared document;
  std::size_t sentence, number;
  torvane::Word get() const { return (*document)[sentence][number]; }
};

struct Sentence {
  Shared document;
  std::size_t number;
  torvane::Sentence get() const { return (*document)[number]; }
};

std::size_t index_of(py::ssize_t i, std::size_t size) {
  const auto count = static_cast<py::ssize_t>(size);
  if (i < 0) i += count;
  if (i < 0 || i >= count) throw py::index_error("there is no such one");
  return static_cast<std::size_t>(i);
}

Word word_of(const Sentence& sentence, py::ssize_t i) {
  return {sentence.document, sentence.number, index_of(i, sentence.get().size())};
}

Sentence sentence_of(const Shared& document, py::ssize_t i) {
  return {document, index_of(i, document->size())};
}

/// Runs what needs no interpreter.
template <class Work>
Shared parsed(const Work& work) {
  const py::gil_scoped_release released;
  return std::make_shared<torvane::Document>(work());
}

std::unique_ptr<torvane::Engine> load(const std::string& grammar, const torvane::Options& options) {
  const py::gil_scoped_release released;
  return std::make_unique<torvane::Engine>(grammar, options);
}

void define_word(py::module_& module) {
  py::class_<Word>(module, "Word")
      .def_property_readonly("form", [](const Word& word) { return text_of(word.get().form()); })
      .def_property_readonly("lemma", [](const Word& word) { return text_of(word.get().lemma()); })
      .def_property_readonly("upos", [](const Word& word) { return text_of(word.get().upos()); })
      .def_property_readonly("xpos", [](const Word& word) { return text_of(word.get().xpos()); })
      .def_property_readonly("features",
                             [](const Word& word) { return text_of(word.get().features()); })
      .def_property_readonly("relation",
                             [](const Word& word) { return text_of(word.get().relation()); })
      .def_property_readonly("number", [](const Word& word) { return word.number + 1; })
      .def_property_readonly("head", [](const Word& word) { return word.get().head(); })
      .def_property_readonly("outside", [](const Word& word) { return word.get().outside(); })
      .def_property_readonly("begin",
                             [](const Word& word) { return word.get().characters().begin; })
      .def_property_readonly("end", [](const Word& word) { return word.get().characters().end; })
      .def("__repr__", [](const Word& word) {
        return py::str("<Word {} {} {}>")
            .format(text_of(word.get().form()), word.get().head(), text_of(word.get().relation()));
      });
}

void define_sentence(py::module_& module) {
  py::class_<Sentence>(module, "Sentence")
      .def_property_readonly(
          "text", [](const Sentence& sentence) { return text_of(sentence.get().text()); })
      .def_property_readonly("id",
                             [](const Sentence& sentence) { return text_of(sentence.get().id()); })
      .def_property_readonly("cut",
                             [](const Sentence& sentence) { return text_of(sentence.get().cut()); })
      .def_property_readonly("parts",
                             [](const Sentence& sentence) { return sentence.get().parts(); })
      .def_property_readonly(
          "starts_paragraph",
          [](const Sentence& sentence) { return sentence.get().starts_paragraph(); })
      .def_property_readonly(
          "begin", [](const Sentence& sentence) { return sentence.get().characters().begin; })
      .def_property_readonly(
          "end", [](const Sentence& sentence) { return sentence.get().characters().end; })
      .def_property_readonly("words",
                             [](const Sentence& sentence) {
                               py::list words;
                               for (std::size_t i = 0; i < sentence.get().size(); ++i)
                                 words.append(word_of(sentence, static_cast<py::ssize_t>(i)));
                               return words;
                             })
      .def("__len__", [](const Sentence& sentence) { return sentence.get().size(); })
      .def("__getitem__", word_of)
      .def("_write", [](const Sentence& sentence, const std::string& format) {
        return text_or_none(sentence.get().to(format));
      });
}

void define_document(py::module_& module) {
  py::class_<torvane::Document, Shared>(module, "Document")
      .def_property_readonly(
          "error", [](const torvane::Document& document) { return text_of(document.error()); })
      .def_property_readonly(
          "sentences",
          [](const Shared& document) {
            py::list sentences;
            for (std::size_t i = 0; i < document->size(); ++i)
              sentences.append(sentence_of(document, static_cast<py::ssize_t>(i)));
            return sentences;
          })
      .def("__len__", &torvane::Document::size)
      .def("__getitem__", sentence_of)
      .def("_write", [](const torvane::Document& document, const std::string& format) {
        return text_or_none(document.to(format));
      });
  module.def("read", [](const py::str& text, const std::string& format) {
    const std::string bytes = bytes_of(text);
    return parsed([&] { return torvane::Document::read(format, bytes); });
  });
}

void define_engine(py::module_& module) {
  py::class_<torvane::Engine>(module, "Engine")
      .def(
          py::init([](const std::string& grammar, const std::string& data, const std::string& style,
                      std::size_t max_words, const std::string& counts, bool explains) {
            return load(grammar, {data, style, max_words, counts, explains});
          }))
      .def_property_readonly("error",
                             [](const torvane::Engine& engine) { return text_of(engine.error()); })
      .def("messages",
           [](torvane::Engine& engine) {
             const py::gil_scoped_release released;
             return engine.messages();
           })
      .def("parse",
           [](torvane::Engine& engine, const py::str& text, const std::string& kind) {
             const std::string bytes = bytes_of(text);
             return parsed([&] { return engine.parse(bytes, kind); });
           })
      .def("parse_sentence",
           [](torvane::Engine& engine, const py::str& text) {
             const std::string bytes = bytes_of(text);
             return parsed([&] { return engine.parse_sentence(bytes); });
           })
      .def("why",
           [](torvane::Engine& engine, const py::str& text, int modifier, int head) {
             const std::string bytes = bytes_of(text);
             std::optional<std::string> json;
             {
               const py::gil_scoped_release released;
               json = engine.why(bytes, modifier, head);
             }
             return text_or_none(json);
           })
      .def("parse_words", [](torvane::Engine& engine, const std::vector<py::str>& words) {
        std::vector<std::string> texts;
        texts.reserve(words.size());
        for (const py::str& word : words) texts.push_back(bytes_of(word));
        return parsed([&] { return engine.parse_words(texts); });
      });
}

}  // namespace

PYBIND11_MODULE(_torvane, module) {
  module.attr("__version__") = torvane_version();
  define_word(module);
  define_sentence(module);
  define_document(module);
  define_engine(module);
}
