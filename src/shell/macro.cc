#include "shell/macro.h"

#include <vector>

#include "shell/offers.h"
#include "shell/tokenizer.h"
#include "shell/world.h"
#include "support/array.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

thread_local DepthLimit length_limit{"The expansion of a macro is too long"};

}  // namespace

struct Macro {
  // What a body is made of, cut once when the macro is defined: texts as they stand, and the places
  // of arguments.
  struct Piece {
    std::string text;
    int param = -1;
  };

  std::string name;
  std::vector<std::string> params;
  std::vector<bool> list_params;  // an argument list that is spread
  std::vector<Piece> body;

  void cut_body(const char* text, bool double_byte);
  void add_token(const char* token);
  void add_text(std::string_view text);
  Array<const char*> argument_texts(const IRSlist& form, StrBufs& texts) const;
};

void Macro::add_text(std::string_view text) {
  if (body.empty() || body.back().param >= 0) body.emplace_back();
  body.back().text += text;
}

void Macro::add_token(const char* token) {
  bool is_param = false;
  if (is_alpha(*token)) {
    for (std::size_t i = 0; i < params.size(); ++i) {
      if (!same_word(params[i].c_str(), token)) continue;
      body.push_back({"", static_cast<int>(i)});
      is_param = true;
    }
  }
  if (is_param) return;
  if (*token && std::string_view("() \n\r\t").find(*token) != std::string_view::npos) {
    add_text(token);
    return;
  }
  std::string_view text = token;
  bool quoted = *token == '"';
  if (quoted) {
    text.remove_prefix(1);
    if (!text.empty()) text.remove_suffix(1);
  }
  std::string atom;
  append_quoted(atom, text, QuoteComma::yes);
  add_text(quoted && atom.empty() ? "\"\"" : atom);
}

void Macro::cut_body(const char* text, bool double_byte) {
  std::unique_ptr<Tokenizer> tokenizer = Tokenizer::make_default(double_byte);
  tokenizer->set_string_input(text, -1);
  while (const char* token = tokenizer->next_token()) add_token(token);
}

Array<const char*> Macro::argument_texts(const IRSlist& form, StrBufs& texts) const {
  Array<const char*> arguments;
  for (const IRSlist* item : form.items) {
    auto i = static_cast<std::size_t>(arguments.count());
    texts.open();
    if (i < list_params.size() && list_params[i]) {
      for (const IRSlist* element : item->items) {
        element->to_text(texts);
        texts.add_char('\n');
      }
    } else {
      item->to_text(texts);
    }
    arguments.append(texts.finish());
  }
  return arguments;
}

Macros::Macros() : table_(1979) {}

Macros::~Macros() = default;

void Macros::define(IRSlist& form, bool double_byte) {
  const char* name = form.get_str_val();
  std::unique_ptr<IRSlist> params = form.pop_front();
  if (!name || !params) return;
  auto macro = std::make_unique<Macro>();
  macro->name = name;
  for (const IRSlist* param : params->items) {
    macro->params.emplace_back(or_empty(param->is_list() ? param->nth_str_val(0) : param->atom));
    macro->list_params.push_back(param->is_list());
  }
  StrBufs text;
  for (const IRSlist* item : form.items) {
    item->to_text(text, true);
    text.add_char('\n');
  }
  macro->cut_body(text.finish(), double_byte);
  table_.insert(name, std::move(macro));
}

const Macro* Macros::find(const IRSlist& form) const {
  const auto* entry = form.empty() ? nullptr : table_.find(form.items.front()->atom);
  return entry ? entry->value.get() : nullptr;
}

std::string Macros::expand(const Macro& macro, IRSlist& form) {
  std::unique_ptr<IRSlist> head = form.pop_front();
  // Kept: arguments-for-for
  if (form.length() != static_cast<int>(macro.params.size()))
    messages() << "Expecting " << macro.params.size() << " arguments for for '" << head->atom
               << "'. Found: " << form.length() << '\n';
  StrBufs texts;
  const Array<const char*> arguments = macro.argument_texts(form, texts);
  std::string expansion;
  for (const Macro::Piece& piece : macro.body) {
    std::string_view part = piece.text;
    if (piece.param >= 0) part = or_empty(arguments[piece.param]);
    if (part.size() > room_) trip(length_limit);
    if (has_tripped(length_limit)) return "";
    room_ -= part.size();
    expansion += part;
  }
  if (!shown_name.empty() &&
      (shown_name[0] == '*' || same_word(shown_name.c_str(), macro.name.c_str())))
    messages() << "Expand macro: " << macro.name << '\n' << expansion << '\n';
  return expansion;
}

ExpansionScope::ExpansionScope(Macros& macros) : macros_(macros), room_before_(macros.room_) {}

ExpansionScope::~ExpansionScope() {
  macros_.room_ = room_before_;
}

namespace {

Value defmacro(World& world, IRSlist* form) {
  world.macros.define(*form, world.double_byte);
  return Value();
}

Value debug_macro(World& world, IRSlist* form) {
  world.macros.shown_name = or_empty(form->get_str_val());
  return Value();
}

constexpr Command kMacroCommands[] = {
    {"defmacro", defmacro, "(defmacro name (parameters) LExp) define a macro."},
    {"debug-macro", debug_macro, "(debug-macro [name]) print expanded instances of the macro"},
};

}  // namespace

constinit const Offer offers::macro{kMacroCommands};

}  // namespace torvane
