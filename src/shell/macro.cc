#include "shell/macro.h"

#include <iostream>
#include <vector>

#include "shell/exec.h"
#include "support/array.h"
#include "support/text.h"

namespace torvane {

namespace {

// What a body is made of, cut once when the macro is defined: texts as they stand, and the places
// of arguments.
struct Piece {
  std::string text;
  int param = -1;
};

}  // namespace

struct Macro {
  std::string name;
  std::vector<std::string> params;
  std::vector<bool> list_params;  // an argument list that is spread
  std::vector<Piece> body;
};

namespace {

// An expansion may lead to a longer one, or to two, and so on: as their depth, their length has an
// end.
thread_local DepthLimit length_limit{"The expansion of a macro is too long"};
thread_local std::size_t room = std::size_t{8} << 20;

NameTable<Macro*>& macros() {
  static auto& table = *new NameTable<Macro*>(1979);
  return table;
}

// The macro whose expansions are shown; all for a name that begins with "*".
std::string& debug_name() {
  static auto& name = *new std::string;
  return name;
}

void add_text(Macro& macro, std::string_view text) {
  if (macro.body.empty() || macro.body.back().param >= 0) macro.body.emplace_back();
  macro.body.back().text += text;
}

void add_token(Macro& macro, const char* token) {
  bool is_param = false;
  if (is_alpha(*token)) {
    for (std::size_t i = 0; i < macro.params.size(); ++i) {
      if (!same_word(macro.params[i].c_str(), token)) continue;
      macro.body.push_back({"", static_cast<int>(i)});
      is_param = true;
    }
  }
  if (is_param) return;
  if (*token && std::string_view("() \n\r\t").find(*token) != std::string_view::npos) {
    add_text(macro, token);
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
  add_text(macro, quoted && atom.empty() ? "\"\"" : atom);
}

void cut_body(Macro& macro, const char* text) {
  std::unique_ptr<Tokenizer> tokenizer = Tokenizer::make_default();
  tokenizer->set_string_input(text, -1);
  while (const char* token = tokenizer->next_token()) add_token(macro, token);
}

Value defmacro(IRSlist* form) {
  const char* name = form->get_str_val();
  std::unique_ptr<IRSlist> params = form->pop_front();
  if (!name || !params) return Value();
  auto macro = std::make_unique<Macro>();
  macro->name = name;
  for (const IRSlist* param : params->items) {
    macro->params.emplace_back(or_empty(param->is_list() ? param->nth_str_val(0) : param->atom));
    macro->list_params.push_back(param->is_list());
  }
  StrBufs text;
  for (const IRSlist* item : form->items) {
    item->to_text(text, true);
    text.add_char('\n');
  }
  cut_body(*macro, text.finish());
  bool added;
  macros().insert(name, macro.get(), nullptr, &added);
  if (added) macro.release();
  return Value();
}

Value debug_macro(IRSlist* form) {
  debug_name() = or_empty(form->get_str_val());
  return Value();
}

constexpr Command kCommands[] = {
    {"defmacro", defmacro, "(defmacro name (parameters) LExp) define a macro."},
    {"debug-macro", debug_macro, "(debug-macro [name]) print expanded instances of the macro"},
};

Array<const char*> argument_texts(const Macro& macro, const IRSlist& form, StrBufs& texts) {
  Array<const char*> arguments;
  for (const IRSlist* item : form.items) {
    auto i = static_cast<std::size_t>(arguments.count());
    texts.open();
    if (i < macro.list_params.size() && macro.list_params[i]) {
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

}  // namespace

const Macro* find_macro(const IRSlist& form) {
  const auto* entry = form.empty() ? nullptr : macros().find(form.items.front()->atom);
  return entry ? entry->value : nullptr;
}

std::string expand_macro(const Macro& macro, IRSlist& form) {
  std::unique_ptr<IRSlist> head = form.pop_front();
  // Kept: arguments-for-for
  if (form.length() != static_cast<int>(macro.params.size()))
    std::cerr << "Expecting " << macro.params.size() << " arguments for for '" << head->atom
              << "'. Found: " << form.length() << '\n';
  StrBufs texts;
  const Array<const char*> arguments = argument_texts(macro, form, texts);
  std::string expansion;
  for (const Piece& piece : macro.body) {
    std::string_view part = piece.text;
    if (piece.param >= 0) part = or_empty(arguments[piece.param]);
    if (part.size() > room) trip(length_limit);
    if (has_tripped(length_limit)) return "";
    room -= part.size();
    expansion += part;
  }
  const std::string& shown = debug_name();
  if (!shown.empty() && (shown[0] == '*' || same_word(shown.c_str(), macro.name.c_str())))
    std::cerr << "Expand macro: " << macro.name << '\n' << expansion << '\n';
  return expansion;
}

ExpansionScope::ExpansionScope() : room_before_(room) {}

ExpansionScope::~ExpansionScope() {
  room = room_before_;
}

void register_macro_commands() {
  static bool registered = false;
  if (std::exchange(registered, true)) return;
  interpreter().define(kCommands);
}

}  // namespace torvane
