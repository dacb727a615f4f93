// The commands of the interpreter itself.
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "shell/file_search.h"
#include "shell/offers.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

// A list that came through `quote`: true as a value, and nothing that anyone may look into, since
// it goes with its form.
struct QuotedList;
constexpr TypeTag kQuotedList{"IRSlist*", nullptr, Life::transient};

}  // namespace

template <>
struct ValueTraits<QuotedList> : TagOf<QuotedList, kQuotedList> {};

namespace {

Value load(World& world, IRSlist* form) {
  while (!form->empty()) {
    const char* name = form->get_str_val();
    if (!name) continue;
    if (Ref<Stream> stream = world.files.open(name)) world.interpreter.load(stream.get());
  }
  return Value();
}

Value exit_process(World&, IRSlist*) {
  std::exit(EXIT_SUCCESS);
}

Value quote(World&, IRSlist* form) {
  if (form->length() != 1) {
    messages() << "quote must take one argument\n";
    return Value();
  }
  std::unique_ptr<IRSlist> item = form->pop_front();
  if (item->is_atom()) return Value::of_text(item->atom, tags::name);
  return Value::of(reinterpret_cast<const QuotedList*>(item.get()));
}

Value echo(World& world, IRSlist* form) {
  std::string line;
  for (bool first = true; !form->empty();) {
    const char* text = form->get_str_val();
    if (!text) continue;
    if (!std::exchange(first, false)) line += ' ';
    line += text;
  }
  world.out() << line << std::endl;
  return Value();
}

Value help(World& world, IRSlist* form) {
  world.interpreter.help(world.out(), form->get_str_val());
  return Value();
}

Value system_command(World& world, IRSlist* form) {
  const char* command = form->get_str_val();
  if (!command) return Value();
  // What was printed so far comes before what the command prints.
  world.out().flush();
  [[maybe_unused]] int status = std::system(command);
  return Value();
}

Value show_commands(World& world, IRSlist* form) {
  world.interpreter.show_commands = form->get_long_val() != 0;
  return Value();
}

Value set_search_path_command(World& world, IRSlist* form) {
  const char* paths = or_empty(form->get_str_val());
  const char* given = form->get_str_val();
  const char* delimiters = given ? given : ":";
  world.files.clear();
  while (*paths) {
    std::size_t length = std::strcspn(paths, delimiters);
    if (length > 0) world.files.add(std::string(paths, length).c_str());
    paths += length;
    paths += std::strspn(paths, delimiters);
  }
  return Value();
}

constexpr Command kShellCommands[] = {
    {"load", load, "(load file) execute the commands in file"},
    {"exit", exit_process, "(exit) exit the interpreter"},
    {"quote", quote, "(quote <list>) return <list> without evaluating it"},
    {"echo", echo, "(echo <strings>) print the strings"},
    {"help", help, "(help <regexp>) the comments of symbols matching the regular expression"},
    {"?", help, "same as 'help'"},
    {"system", system_command, "(system <command>) execute the shell command"},
    {"show-commands", show_commands, "(show-commands 0|1) turn on/off showing commands"},
    {"set-search-path", set_search_path_command,
     "(set-search-path <paths> <deliminator>) set the search path"},
};

}  // namespace

constinit const Offer offers::shell_commands{kShellCommands};

}  // namespace torvane
