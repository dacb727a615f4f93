#include "shell/exec.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "shell/offers.h"
#include "shell/tokenizer.h"
#include "shell/world.h"
#include "support/depth.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

constexpr std::size_t kMostNested = 500;
constexpr std::size_t kStackNeeded = 4 << 20;

thread_local DepthLimit head_limit{"eval: the name of a command is nested too deeply", 100000};

}  // namespace

class Exec::NestedRun {
 public:
  NestedRun(Exec& exec, const char* source) : exec_(exec), entered_(exec.may_enter(source)) {
    if (entered_) exec_.running_.emplace_back(source);
  }
  ~NestedRun() {
    if (entered_) exec_.running_.pop_back();
  }
  NestedRun(const NestedRun&) = delete;
  NestedRun& operator=(const NestedRun&) = delete;
  explicit operator bool() const { return entered_; }

 private:
  Exec& exec_;
  bool entered_;
};

bool Exec::is_running(std::string_view source, std::size_t from) const {
  auto begin = running_.begin() + static_cast<std::ptrdiff_t>(from);
  return std::find(begin, running_.end(), source) != running_.end();
}

// The place of the outermost source that runs more than once, with `source` on top of the rest.
std::size_t Exec::outermost_repeated(std::string_view source) const {
  std::size_t i = 0;
  while (i + 1 < running_.size() && running_[i] != source && !is_running(running_[i], i + 1)) ++i;
  return i;
}

bool Exec::may_enter(const char* source) {
  refusing_ = refusing_ && running_.size() > refuse_above_;
  if (refusing_ && is_running(source)) return false;
  if (running_.size() < kMostNested && stack_left() > kStackNeeded) return true;
  messages() << "load: nested too deeply: " << source << '\n';
  refusing_ = true;
  refuse_above_ = outermost_repeated(source);
  return false;
}

Exec::~Exec() = default;

Exec::Exec(World& its_world, std::unique_ptr<TokenizerBase> given, char open, char close)
    : commands(1997),
      open_char(open),
      close_char(close),
      world_(its_world),
      own_tokenizer_(std::move(given)) {
  if (!own_tokenizer_) own_tokenizer_ = Tokenizer::make_default(false);
  tokenizer = own_tokenizer_.get();
  define(offers::shell_commands.commands);
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
  NestedRun run(*this, source);
  if (!run) return;
  Tokenizer local(*tokenizer);
  local.set_input(stream);
  if (stream && !stream->path().empty())
    local.stand_at(world_.places.begin_file(stream->path()));
  else
    local.stay_at(world_.places.current);
  TokenizerBase* outer = std::exchange(tokenizer, &local);
  Round round;
  bool more = true;
  while (more) {
    local.reset_tokens();
    if (prompt) world_.out() << "> " << std::flush;
    more = read_and_run();
    round.next();
  }
  if (prompt) world_.out() << std::endl;
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
      form.print_item(messages());
      messages() << '\n';
    }
    std::optional<TopFormScope> top;
    if (world_.places.messages() && tokenizer->reads_file()) top.emplace(world_.places, form);
    eval(form);
    form.clear();
  }
  if (frees_values && running_.size() == 1) lifetimes().end_all();
  lift_depth_limits();
  return tokenizer->more_input;
}

Value Exec::eval(IRSlist& form) {
  if (form.empty()) return Value();
  PlaceScope here(world_.places, form.place);
  const Macro* macro = world_.macros.find(form);
  if (!macro) return run_command(form);
  ExpansionScope scope(world_.macros);
  const char* name = form.nth_str_val(0);
  const std::string expansion = world_.macros.expand(*macro, form);
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
  if (Handler handler = find(name)) return handler(world_, &form);
  // Kept: errors-stop-nothing
  std::ostream& out = messages() << "unknown function " << or_empty(name) << '\n';
  form.print(out);
  out << '\n';
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
