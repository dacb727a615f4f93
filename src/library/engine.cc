// The C face: engines.
#include "engine/engine.h"

#include <algorithm>
#include <functional>
#include <istream>
#include <memory>
#include <mutex>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "engine/grammar_files.h"
#include "formats/why_format.h"
#include "library/handles.h"
#include "library/transcript.h"
#include "sources/explained.h"
#include "sources/given_text.h"
#include "sources/sources.h"
#include "support/depth.h"

struct torvane_engine {
  std::mutex mutex;
  torvane::Transcript transcript;
  std::istringstream nothing;
  std::ostream says{&transcript};
  std::unique_ptr<torvane::Engine> engine;
  std::string error;
};

namespace torvane {
namespace {

thread_local bool is_ending = false;
/// Made before anything that the engine keeps for the thread, and so destroyed after all of it.
struct ThreadEnd {
  ~ThreadEnd() { is_ending = true; }
};

/// Runs something where the guards on recursion have room and memory of the thread is there: here,
/// or in a thread of its own. A static object that is destroyed comes when its thread has neither.
void in_fit_thread(const std::function<void()>& work) {
  constexpr std::size_t kEnough = std::size_t{6} << 20;
  if (!is_ending) {
    static thread_local const ThreadEnd end;
    if (stack_left() >= kEnough) return work();
  }
  run_on_large_stack([&] {
    work();
    return 0;
  });
}

thread_local bool asked_to_exit = false;

/// In place of the command that ends the process, which belongs to somebody else here.
Value note_exit(World& world, IRSlist*) {
  asked_to_exit = true;
  world.err() << "exit: the grammar asks for the end of the program\n";
  return Value();
}

void load(torvane_engine& to, const GrammarChoice& choice, const std::string& counts,
          bool explains) {
  const GrammarFiles files = find_grammar(choice);
  to.error = files.fault;
  if (!to.error.empty()) return;
  to.engine = std::make_unique<Engine>(World::Console{&to.nothing, &to.says, &to.says});
  to.engine->world().interpreter.redefine("exit", note_exit, nullptr);
  to.engine->max_words = choice.max_words;
  if (explains) to.engine->keep_forms();
  asked_to_exit = false;
  to.error = to.engine->load(files.files, files.folders);
  if (to.error.empty() && asked_to_exit) to.error = "the grammar asks for the end of the program";
  if (to.error.empty() && !counts.empty()) to.error = to.engine->use_counts(counts);
  if (to.error.empty()) return;
  const std::string messages = to.transcript.take();
  if (!messages.empty()) to.error += '\n' + messages;
  to.engine.reset();
}

/// A document that the engine fills. `fill` tells whether its words are those of the text, to be
/// found in it.
torvane_document* filled(torvane_engine* engine, std::string_view text,
                         const std::function<bool(Engine&, torvane_document&)>& fill) {
  auto document = std::make_unique<torvane_document>();
  bool is_of_text = false;
  if (const char* error = torvane_engine_error(engine)) {
    document->error = error;
  } else {
    const std::lock_guard lock(engine->mutex);
    in_fit_thread([&] { is_of_text = fill(*engine->engine, *document); });
  }
  seal(*document, is_of_text ? text.data() : nullptr, text.size());
  return document.release();
}

torvane_document* parse_kind(torvane_engine* engine, const std::string& kind,
                             std::string_view text) {
  return filled(engine, text, [&](Engine& speaker, torvane_document& document) {
    GivenText given(text);
    const std::unique_ptr<Source> source = make_source(kind, given, speaker);
    if (!source) {
      document.error = "there is no kind of text " + kind;
      return false;
    }
    bool is_of_text = true;
    for (Task task; source->next(task);) {
      if (task.id.empty()) task.id = std::to_string(document.sentences.size() + 1);
      document.sentences.push_back(parse_task(speaker, task));
      if (task.read) is_of_text = false;
    }
    document.error = given.faults();
    return is_of_text;
  });
}

torvane_document* parse_one(torvane_engine* engine, Task&& task) {
  task.id = "1";
  return filled(engine, task.text, [&](Engine& speaker, torvane_document& document) {
    document.sentences.push_back(parse_task(speaker, task));
    return task.words.empty();
  });
}

std::string_view view(const char* text, std::size_t length) {
  return {text ? text : "", text ? length : 0};
}

}  // namespace
}  // namespace torvane

torvane_engine* torvane_open(const char* grammar, const torvane_options* options) noexcept {
  torvane_options all = TORVANE_OPTIONS;
  // A program that was built with older headers has fewer of them.
  if (options)
    std::copy_n(reinterpret_cast<const char*>(options), std::min(options->size, sizeof all),
                reinterpret_cast<char*>(&all));
  torvane::GrammarChoice choice;
  if (grammar) choice.grammar = grammar;
  if (all.data) choice.data = all.data;
  if (all.style) choice.style = all.style;
  if (all.max_words > 0) choice.max_words = all.max_words;
  auto engine = std::make_unique<torvane_engine>();
  const std::string counts = all.counts ? all.counts : "";
  torvane::in_fit_thread([&] { torvane::load(*engine, choice, counts, all.explains != 0); });
  return engine.release();
}

void torvane_close(torvane_engine* engine) noexcept {
  if (engine) torvane::in_fit_thread([&] { delete engine; });
}

const char* torvane_engine_error(const torvane_engine* engine) noexcept {
  if (!engine) return "there is no engine";
  return engine->error.empty() ? nullptr : engine->error.c_str();
}

char* torvane_engine_messages(torvane_engine* engine) noexcept {
  if (!engine) return nullptr;
  const std::lock_guard lock(engine->mutex);
  return torvane::copy_of(engine->transcript.take(), nullptr);
}

torvane_document* torvane_parse(torvane_engine* engine, const char* text, size_t length) noexcept {
  return torvane_parse_from(engine, "text", text, length);
}

torvane_document* torvane_parse_from(torvane_engine* engine, const char* kind, const char* text,
                                     size_t length) noexcept {
  return torvane::parse_kind(engine, kind ? kind : "", torvane::view(text, length));
}

torvane_document* torvane_parse_sentence(torvane_engine* engine, const char* text,
                                         size_t length) noexcept {
  torvane::Task task;
  task.text = torvane::view(text, length);
  return torvane::parse_one(engine, std::move(task));
}

torvane_document* torvane_parse_words(torvane_engine* engine, const char* const* words,
                                      size_t count) noexcept {
  torvane::Task task;
  for (size_t i = 0; words && i < count; ++i) task.words.emplace_back(words[i] ? words[i] : "");
  return torvane::parse_one(engine, std::move(task));
}

char* torvane_why(torvane_engine* engine, const char* text, size_t length, int modifier, int head,
                  size_t* written) noexcept {
  if (written) *written = 0;
  if (torvane_engine_error(engine)) return nullptr;
  const std::string sentence(torvane::view(text, length));
  std::string json;
  const std::lock_guard lock(engine->mutex);
  torvane::in_fit_thread([&] {
    if (modifier == 0)
      write_why_json(json, why_in_text(*engine->engine, sentence));
    else
      write_why_json(json, why_in_text(*engine->engine, sentence, modifier, head));
  });
  return torvane::copy_of(json, written);
}
