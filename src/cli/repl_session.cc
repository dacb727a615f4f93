#include "cli/repl_session.h"

#include <atomic>
#include <iostream>
#include <optional>
#include <utility>

#include "text/plain_text.h"

namespace torvane {
namespace {

bool asked_to_end = false;

// At a prompt `(exit)` ends the prompt.
Value end_session(World&, IRSlist*) {
  asked_to_end = true;
  return Value();
}

/// While it lives, an engine is at work that may be stopped.
std::atomic<Engine*> at_work = nullptr;
class AtWork {
 public:
  explicit AtWork(Engine& engine) { at_work = &engine; }
  ~AtWork() { at_work = nullptr; }
  AtWork(const AtWork&) = delete;
  AtWork& operator=(const AtWork&) = delete;
};

}  // namespace

bool ReplSession::load() {
  std::unique_ptr<Engine> engine =
      load_grammar(find_grammar(grammar), grammar.max_words, Forms::kept, std::cout);
  if (!engine) return false;
  if (!counts.empty())
    if (const std::string fault = engine->use_counts(counts); !fault.empty()) {
      std::cerr << "torvane: " << fault << '\n';
      return false;
    }
  engine->world().interpreter.redefine("exit", end_session, nullptr);
  engine_ = std::move(engine);
  return true;
}

void ReplSession::parse(const std::string& sentence_text) {
  const AtWork working(*engine_);
  const PlainText plain(sentence_text);
  sentence = engine_->parse(plain.text());
  plain.restore(sentence);
  text = sentence_text;
  place_ = 1;
  stale_ = false;
}

bool ReplSession::next() {
  const AtWork working(*engine_);
  const PlainText plain(text);
  if (std::exchange(stale_, false)) {
    engine_->parse(plain.text());
    for (int i = 1; i < place_; ++i) engine_->next();
  }
  std::optional<Sentence> found = engine_->next();
  if (!found) return false;
  sentence = std::move(*found);
  plain.restore(sentence);
  sentence.best = ++place_;
  return true;
}

void ReplSession::run_form(const std::string& form) {
  const AtWork working(*engine_);
  engine_->run(form.c_str());
  stale_ = true;
  ended = ended || asked_to_end;
}

void ReplSession::show() const {
  std::string out;
  format->write(out, sentence, page_of(page, {}));
  std::cout << out;
  if (sentence.cut == "stopped") std::cout << "stopped: this is what there was by then\n";
}

bool ReplSession::stop() {
  Engine* engine = at_work;
  if (engine) engine->stop();
  return engine != nullptr;
}

}  // namespace torvane
