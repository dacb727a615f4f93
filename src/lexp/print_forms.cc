// Forms that write: on standard output, on a stream that an expression gives, or into a file.
#include <fstream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "lexp/form.h"
#include "lexp/offers.h"
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

class PrintStr : public Form<PrintStr, CharPred> {
 public:
  static constexpr const char* kName = "print-str";
  static constexpr const char* kUsage =
      "`(print-str [:prefix P] [:suffix S] [exp])` writes the text on the stream that `exp` gives, "
      "or standard output; 0";
  void init(World& world, IRSlist* args) override {
    prefix_ = keyword_text(*args, ":prefix");
    suffix_ = keyword_text(*args, ":suffix");
    sub_ = get_exp(world, first_item(*args, false));
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* text = input.text();
    if (!text) text = sub_ ? "" : "(null)";
    // Kept: print-str-gives-0
    write(target(input, type), text);
    return Value();
  }

 protected:
  /// The stream that the expression gives, else standard output; null once it is closed.
  std::ostream* target(Value input, int type) const {
    auto* stream = sub_.eval(input, type).as<Stream>();
    return stream ? stream->out() : &world().out();
  }
  /// Writes a text between prefix and suffix.
  void write(std::ostream* out, std::string_view text) const {
    if (!out) return;
    *out << prefix_ << text;
    if (sub_ && out == &world().out()) out->flush();
    *out << suffix_;
  }

  std::string prefix_;
  std::string suffix_;
  ExpPtr sub_;
};

class PadStr : public Form<PadStr, PrintStr> {
 public:
  static constexpr const char* kName = "pad";
  static constexpr const char* kUsage =
      "`(pad TEXT [:prefix P] [:suffix S] [exp])` writes TEXT; the input";
  void init(World& world, IRSlist* args) override {
    if (const IRSlist* text = first_item(*args, true)) text_ = text->atom;
    PrintStr::init(world, args);
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    if (text_) write(target(input, type), *text_);
    return input;
  }

 private:
  std::optional<std::string> text_;
};

class FlushOutput : public Form<FlushOutput, PrintStr> {
 public:
  static constexpr const char* kName = "flush-output";
  static constexpr const char* kUsage =
      "`(flush-output [exp])` flushes the stream that `exp` gives, or standard output; the input";
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    if (std::ostream* out = target(input, type)) out->flush();
    return input;
  }
};

/// Writes the input as the whole content of the file that an expression names.
class WriteToFile : public Form<WriteToFile, CharPred> {
 public:
  static constexpr const char* kName = "write-to-file";
  static constexpr const char* kUsage =
      "`(write-to-file exp)` writes the text to the file that `exp` names; the text";
  void init(World& world, IRSlist* args) override {
    // Kept: write-mode-ignored
    args->take_keyword_node(":mode");
    file_name_ = get_exp(world, args->nth(0));
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* text = input.text();
    const char* file = text ? file_name_.eval(input, type).text() : nullptr;
    if (file) std::ofstream(file) << text << std::flush;
    return input;
  }

 private:
  ExpPtr file_name_;
};

constexpr Prototype kPrintForms[] = {
    form<PrintStr>(),
    form<PadStr>(),
    form<FlushOutput>(),
    form<WriteToFile>(),
};

}  // namespace

constinit const Offer offers::print_forms{kPrintForms};

}  // namespace torvane
