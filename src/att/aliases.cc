#include "att/aliases.h"

#include <iostream>

#include "att/att_args.h"
#include "att/attributes.h"
#include "att/offers.h"
#include "shell/file_search.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

namespace {

// The vector of an alias: what a command gives, or a vector as `make-av` reads it. Null if there is
// none.
Ref<AttVec> alias_vector(World& world, IRSlist& form) {
  if (form.empty()) return {};
  IRSlist& first = *form.nth(0);
  if (first.is_atom()) return form.length() > 1 ? read_vector(world, form) : Ref<AttVec>();
  const char* head = first.nth_str_val(0);
  if (!head || !world.interpreter.find(head)) return read_vector(world, form);
  AttVec* vec = world.interpreter.eval(first).as<AttVec>();
  return vec ? make_ref<AttVec>(*vec) : Ref<AttVec>();
}

Value alias(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return {};
  Ref<AttVec> vec = alias_vector(world, *form);
  if (!vec || !vec->interpreters) return {};
  AttInterpreterList& type = *vec->interpreters;
  type.add_alias(name, std::move(vec));
  AttVec* kept = type.find_alias(name);
  if (kept) lend(*kept);
  return Value::of(kept);
}

Value clear_alias(World& world, IRSlist* form) {
  AttInterpreterList* type = find_att_list(world, form->get_str_val());
  if (type) type->aliases.clear();
  return Value::of(type);
}

void print_vector(World& world, const AttVec& vec) {
  vec.print(world.out());
  world.out() << '\n';
}

Value print_alias(World& world, IRSlist* form) {
  AttInterpreterList* type = attributes(world).current;
  const char* name = form->get_str_val();
  // Kept: print-alias-alone
  if (!name || !type) return {};
  if (std::string_view(name) == "*") {
    type->aliases.for_each([&](const auto& entry) {
      world.out() << entry.key << ": ";
      print_vector(world, *entry.value);
    });
  } else if (AttVec* vec = type->find_alias(name)) {
    print_vector(world, *vec);
  } else {
    messages() << name << " is not an alias\n";
  }
  return {};
}

// The list that an optional argument names; null if it names none.
AttInterpreterList* list_argument(World& world, IRSlist* form) {
  return form->empty() ? attributes(world).current : find_att_list(world, form->get_str_val());
}

Value save_aliases_command(World& world, IRSlist* form) {
  const char* file = form->get_str_val();
  if (!file) return {};
  AttInterpreterList* type = list_argument(world, form);
  return type && save_aliases(*type, file) ? Value::of(type) : Value();
}

Value load_aliases(World& world, IRSlist* form) {
  const char* file = form->get_str_val();
  if (!file) return {};
  const std::string base = file;
  if (world.files.find((base + ".dat").c_str())) {
    AttInterpreterList* type = list_argument(world, form);
    Ref<Stream> stream = type ? world.files.open((base + ".dat").c_str()) : Ref<Stream>();
    if (!stream || !stream->in()) return {};
    read_aliases(*type, *stream->in());
    return Value::of(type);
  }
  Ref<Stream> stream = world.files.open((base + ".lsp").c_str());
  if (!stream) return {};
  AttInterpreterList* current = attributes(world).current;
  world.interpreter.load(stream.get());
  attributes(world).current = current;
  return Value::of(current);
}

constexpr Command kAliasesCommands[] = {
    {"load-aliases", load_aliases, "(load-aliases file) load alias definitions from file."},
    {"save-aliases", save_aliases_command, "(save-aliases file) save the aliases in file."},
    {"alias", alias, "(alias name [att-type] (ATTRIBUTES)) define an alias"},
    {"clear-alias", clear_alias, "(clear-alias att-type) remove all the definitions of att-type"},
    {"print-alias", print_alias, "(print-alias) print the aliases of the current att-type."},
};

}  // namespace

constinit const Offer offers::aliases{kAliasesCommands};

}  // namespace torvane
