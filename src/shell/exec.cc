#include "shell/exec.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <string_view>
#include <vector>

#include "shell/macro.h"
#include "support/depth.h"
#include "support/text.h"

namespace torvane {

namespace {

Exec* first_exec = nullptr;

// What is being run, outermost first: files by their paths, macros by their names.
std::vector<std::string> running;

// After a file or macro has run itself too often, nothing that is running already is entered again,
// until the outermost one that was entered twice has ended: otherwise one that runs itself at two
// places would go on nearly for ever.
bool refusing = false;
std::size_t refuse_above = 0;

bool is_running(std::string_view source, std::size_t from = 0) {
  auto begin = running.begin() + static_cast<std::ptrdiff_t>(from);
  return std::find(begin, running.end(), source) != running.end();
}

// The place of the outermost source that runs more than once, with `source` on top of the rest.
std::size_t outermost_repeated(std::string_view source) {
  std::size_t i = 0;
  while (i + 1 < running.size() && running[i] != source && !is_running(running[i], i + 1)) ++i;
  return i;
}

class NestedRun {
 public:
  explicit NestedRun(const char* source) : entered_(may_enter(source)) {
    if (entered_) running.emplace_back(source);
  }
  ~NestedRun() {
    if (entered_) running.pop_back();
  }
  NestedRun(const NestedRun&) = delete;
  NestedRun& operator=(const NestedRun&) = delete;
  explicit operator bool() const { return entered_; }

 private:
  static constexpr std::size_t kMostNested = 500;
  static constexpr std::size_t kStackNeeded = 4 << 20;

  static bool may_enter(const char* source) {
    refusing = refusing && running.size() > refuse_above;
    if (refusing && is_running(source)) return false;
    if (running.size() < kMostNested && stack_left() > kStackNeeded) return true;
    std::cerr << "load: nested too deeply: " << source << '\n';
    refusing = true;
    refuse_above = outermost_repeated(source);
    return false;
  }

  bool entered_;
};

thread_local DepthLimit head_limit{"eval: the name of a command is nested too deeply", 100000};

}  // namespace

Exec& interpreter() {
  if (!first_exec) first_exec = new Exec;
  return *first_exec;
}

Exec::Exec(std::unique_ptr<TokenizerBase> given, char open, char close)
    : commands(1997), open_char(open), close_char(close), own_tokenizer_(std::move(given)) {
  if (!first_exec) first_exec = this;
  if (!own_tokenizer_) own_tokenizer_ = Tokenizer::make_default();
  tokenizer = own_tokenizer_.get();
  define(builtin_commands());
}

Exec::~Exec() {
  if (first_exec == this) first_exec = nullptr;
}

void Exec::define(const char* name, Handler handler, const char* doc) {
  commands.insert(name, handler, doc);
}

void Exec::define(std::span<const Command> table) {
  for (const Command& command : table) define(command.name, command.handler, command.doc);
}

void Exec::redefine(const char* name, Handler handler, const char* doc) {
  commands.replace(name, handler, doc);
}

Handler Exec::find(const char* name) const {
  const auto* entry = commands.find(name);
  return entry ? entry->value : nullptr;
}

void Exec::help(std::ostream& out, const char* expression) const {
  print_help(out, commands, expression);
}

void Exec::load(Stream* stream) {
  load(stream, stream ? stream->path().c_str() : "");
}

void Exec::load(Stream* stream, const char* source) {
  NestedRun run(source);
  if (!run) return;
  Tokenizer local(*tokenizer);
  local.set_input(stream);
  TokenizerBase* outer = std::exchange(tokenizer, &local);
  Round round;
  bool more = true;
  while (more) {
    local.reset_tokens();
    if (prompt) std::cout << "> " << std::flush;
    more = read_and_run();
    round.next();
  }
  if (prompt) std::cout << std::endl;
  tokenizer = outer;
}

void Exec::load_string(const char* text) {
  run_text(or_empty(text), "");
}

void Exec::run_text(const std::string& text, const char* source) {
  load(Stream::from_text(text.data(), text.size()).get(), source);
}

bool Exec::read_and_run() {
  IRSlist form;
  if (form.read(*tokenizer, open_char, close_char)) {
    if (show_commands) {
      form.print_item(std::cerr);
      std::cerr << '\n';
    }
    eval(form);
    form.clear();
  }
  if (frees_values && running.size() == 1) lifetimes().free_all();
  lift_depth_limits();
  return tokenizer->more_input;
}

Value Exec::eval(IRSlist& form) {
  if (form.empty()) return Value();
  const Macro* macro = find_macro(form);
  if (!macro) return run_command(form);
  ExpansionScope scope;
  const char* name = form.nth_str_val(0);
  const std::string expansion = expand_macro(*macro, form);
  bool outer_prompt = std::exchange(prompt, false);
  run_text(expansion, name);
  prompt = outer_prompt;
  return Value();
}

Value Exec::run_command(IRSlist& form) {
  std::unique_ptr<IRSlist> head = form.pop_front();
  const char* name = head->atom;
  if (!name) {
    DepthGuard guard(head_limit);
    // Only an atom that came through `quote` is a name.
    Value computed = guard ? eval(*head) : Value();
    if (computed.is(tags::name)) name = computed.text();
  }
  if (Handler handler = find(name)) return handler(&form);
  // Kept: errors-stop-nothing
  std::cerr << "unknown function " << or_empty(name) << '\n';
  form.print(std::cerr);
  std::cerr << '\n';
  return Value();
}

Value Exec::eval_all(IRSlist& forms) {
  // What the last one gives goes on.
  Value result;
  auto round = std::make_optional<Round>();
  for (IRSlist* form : forms.items) {
    if (form == forms.items.back()) round.reset();
    result = eval(*form);
    if (round) round->next();
  }
  return result;
}

}  // namespace torvane
