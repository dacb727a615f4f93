#include "lexp/print_forms.h"

#include <fstream>

#include "shell/irslist.h"
#include "shell/streams.h"
#include "shell/world.h"
#include "support/text.h"

namespace torvane {

namespace {

bool is_keyword(const IRSlist& item) {
  return item.is_atom() && (same_word(item.atom, ":prefix") || same_word(item.atom, ":suffix"));
}

// The first atom or list among the items that belong to no keyword.
IRSlist* first_item(const IRSlist& args, bool atom) {
  bool is_value = false;
  for (IRSlist* item : args.items) {
    if (!is_value && is_keyword(*item)) {
      is_value = true;
    } else if (is_value) {
      is_value = false;
    } else if (item->is_atom() == atom) {
      return item;
    }
  }
  return nullptr;
}

std::string keyword_text(const IRSlist& args, const char* keyword) {
  char* text = nullptr;
  return args.find_keyword_str(keyword, text) ? or_empty(text) : "";
}

}  // namespace

void PrintStr::init(World& world, IRSlist* args) {
  prefix_ = keyword_text(*args, ":prefix");
  suffix_ = keyword_text(*args, ":suffix");
  sub_ = get_exp(world, first_item(*args, false));
}

std::ostream* PrintStr::target(Value input, int type) const {
  auto* stream = sub_.eval(input, type).as<Stream>();
  return stream ? stream->out() : &world().out();
}

void PrintStr::write(std::ostream* out, std::string_view text) const {
  if (!out) return;
  *out << prefix_ << text;
  if (sub_ && out == &world().out()) out->flush();
  *out << suffix_;
}

Value PrintStr::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* text = input.text();
  if (!text) text = sub_ ? "" : "(null)";
  // Kept: print-str-gives-0
  write(target(input, type), text);
  return Value();
}

void PadStr::init(World& world, IRSlist* args) {
  if (const IRSlist* text = first_item(*args, true)) text_ = text->atom;
  PrintStr::init(world, args);
}

Value PadStr::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  if (text_) write(target(input, type), *text_);
  return input;
}

Value FlushOutput::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  if (std::ostream* out = target(input, type)) out->flush();
  return input;
}

void WriteToFile::init(World& world, IRSlist* args) {
  // Kept: write-mode-ignored
  args->take_keyword_node(":mode");
  file_name_ = get_exp(world, args->nth(0));
}

Value WriteToFile::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* text = input.text();
  const char* file = text ? file_name_.eval(input, type).text() : nullptr;
  if (file) std::ofstream(file) << text << std::flush;
  return input;
}

}  // namespace torvane
