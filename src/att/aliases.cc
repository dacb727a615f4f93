#include "att/aliases.h"

#include <iostream>

#include "att/att_args.h"
#include "shell/exec.h"
#include "shell/file_search.h"

namespace torvane {

namespace {

// The vector of an alias: what a command gives, or a vector as `make-av` reads it. Null if there is
// none.
Ref<AttVec> alias_vector(IRSlist& form) {
  if (form.empty()) return {};
  IRSlist& first = *form.nth(0);
  if (first.is_atom()) return form.length() > 1 ? read_vector(form) : Ref<AttVec>();
  const char* head = first.nth_str_val(0);
  if (!head || !interpreter().find(head)) return read_vector(form);
  AttVec* vec = interpreter().eval(first).as<AttVec>();
  return vec ? make_ref<AttVec>(*vec) : Ref<AttVec>();
}

Value alias(IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return {};
  Ref<AttVec> vec = alias_vector(*form);
  if (!vec || !vec->interpreters) return {};
  AttInterpreterList& type = *vec->interpreters;
  type.add_alias(name, std::move(vec));
  AttVec* kept = type.find_alias(name);
  if (kept) lend(*kept);
  return Value::of(kept);
}

Value clear_alias(IRSlist* form) {
  AttInterpreterList* type = AttInterpreterList::find(form->get_str_val());
  if (type) type->aliases.clear();
  return Value::of(type);
}

void print_vector(const AttVec& vec) {
  vec.print(std::cout);
  std::cout << '\n';
}

Value print_alias(IRSlist* form) {
  AttInterpreterList* type = AttInterpreterList::current();
  const char* name = form->get_str_val();
  // Kept: print-alias-alone
  if (!name || !type) return {};
  if (std::string_view(name) == "*") {
    type->aliases.for_each([](const auto& entry) {
      std::cout << entry.key << ": ";
      print_vector(*entry.value);
    });
  } else if (AttVec* vec = type->find_alias(name)) {
    print_vector(*vec);
  } else {
    std::cerr << name << " is not an alias\n";
  }
  return {};
}

// The list that an optional argument names; null if it names none.
AttInterpreterList* list_argument(IRSlist* form) {
  return form->empty() ? AttInterpreterList::current()
                       : AttInterpreterList::find(form->get_str_val());
}

Value save_aliases_command(IRSlist* form) {
  const char* file = form->get_str_val();
  if (!file) return {};
  AttInterpreterList* type = list_argument(form);
  return type && save_aliases(*type, file) ? Value::of(type) : Value();
}

Value load_aliases(IRSlist* form) {
  const char* file = form->get_str_val();
  if (!file) return {};
  const std::string base = file;
  if (find_file((base + ".dat").c_str())) {
    AttInterpreterList* type = list_argument(form);
    Ref<Stream> stream = type ? open_file((base + ".dat").c_str()) : Ref<Stream>();
    if (!stream || !stream->in()) return {};
    read_aliases(*type, *stream->in());
    return Value::of(type);
  }
  Ref<Stream> stream = open_file((base + ".lsp").c_str());
  if (!stream) return {};
  AttInterpreterList* current = AttInterpreterList::current();
  interpreter().load(stream.get());
  AttInterpreterList::set_current(current);
  return Value::of(current);
}

constexpr Command kCommands[] = {
    {"load-aliases", load_aliases, "(load-aliases file) load alias definitions from file."},
    {"save-aliases", save_aliases_command, "(save-aliases file) save the aliases in file."},
    {"alias", alias, "(alias name [att-type] (ATTRIBUTES)) define an alias"},
    {"clear-alias", clear_alias, "(clear-alias att-type) remove all the definitions of att-type"},
    {"print-alias", print_alias, "(print-alias) print the aliases of the current att-type."},
};

}  // namespace

void register_alias_commands() {
  interpreter().define(kCommands);
}

}  // namespace torvane
