// Streams as values: opened and closed by an expression, shared by the name of the file, or set as
// the input of a tokenizer.
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "lexp/expressions.h"
#include "lexp/form.h"
#include "lexp/lexp.h"
#include "lexp/offers.h"
#include "shell/irslist.h"
#include "shell/named_objects.h"
#include "shell/streams.h"
#include "shell/tokenizer.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

namespace {

bool failed(const Stream& stream) {
  return stream.in() ? stream.in()->fail() : !stream.out() || stream.out()->fail();
}

void make_directories(std::string path) {
  for (std::size_t i = path.find('/'); i != std::string::npos; i = path.find('/', i + 1)) {
    path[i] = 0;
    mkdir(path.c_str(), 0777);
    path[i] = '/';
  }
}

class OpenFile : public Form<OpenFile, LAdaptor> {
 public:
  static constexpr const char* kName = "open-file";
  static constexpr const char* kUsage =
      "`(open-file [:write] [exp])` opens the file named by the input; with `:write` for writing, "
      "making its folders";
  OpenFile() {
    in_type = type_id_of<const char*>();
    mid_type = type_id_of<Stream>();
  }
  void init(World& world, IRSlist* args) override {
    write = args->take_flag(":write");
    LAdaptor::init(world, args);
  }
  Value convert(Value input) override {
    const char* name = input.text();
    if (!name) return Value();
    if (write) make_directories(name);
    // Kept: streams-skip-search-path
    Ref<Stream> stream = write ? Stream::open_output(name) : Stream::open_input(name);
    expressions(world()).streams.files.push_back(stream);
    // Kept: open-file-untested
    lend(*stream);  // whoever has just read it may still use it when it is closed
    return Value::of(stream.get());
  }

  bool write = false;  ///< also makes the directories of the path
};

/// Takes a "char*" by its declaration, as `open-file` does: a stream must come through an untyped
/// channel.
// Kept: close-file-takes-text
class CloseFile : public Form<CloseFile, OpenFile> {
 public:
  static constexpr const char* kName = "close-file";
  static constexpr const char* kUsage =
      "`(close-file [exp])` closes a stream that comes through an untyped channel; 0";
  Value convert(Value input) override {
    auto* stream = input.as<Stream>();
    if (!stream) return Value();
    stream->close();
    if (stream->is_standard() || stream->shared_by_name) return Value();
    std::vector<Ref<Stream>>& files = expressions(world()).streams.files;
    auto place = std::find(files.begin(), files.end(), Ref<Stream>(stream));
    if (place == files.end()) return Value();
    files.erase(place);
    return Value();
  }
};

class SetTokenizerInput : public Form<SetTokenizerInput> {
 public:
  static constexpr const char* kName = "set-tokenizer-input";
  static constexpr const char* kUsage =
      "`(set-tokenizer-input NAME-or-exp [exp])` sets the tokenizer on the stream that `exp` gives "
      "(standard input if none); the tokenizer";
  void init(World& world, IRSlist* args) override {
    IRSlist* first = args->nth(0);
    if (first && first->is_atom()) {
      tokenizer = world.objects.find_as<TokenizerBase>(first->atom, "Tokenizer", true);
    } else {
      tokenizer_exp = get_exp(world, first);
    }
    source_exp = get_exp(world, args->nth(1));
  }
  Value eval(Value input, int type) override {
    TokenizerBase* target = find_tokenizer(input, type);
    if (!target) return Value();
    auto* stream = source_exp.eval(input, type).as<Stream>();
    target->set_input(stream ? stream : world().standard_input());
    return Value::of(target);
  }

  TokenizerBase* tokenizer = nullptr;
  ExpPtr tokenizer_exp;
  ExpPtr source_exp;

 protected:
  TokenizerBase* find_tokenizer(Value input, int type) const {
    return tokenizer ? tokenizer : tokenizer_exp.eval(input, type).as<TokenizerBase>();
  }
};

class SetTokenizerStringInput : public Form<SetTokenizerStringInput, SetTokenizerInput> {
 public:
  static constexpr const char* kName = "set-tokenizer-string-input";
  static constexpr const char* kUsage =
      "`(set-tokenizer-string-input NAME-or-exp exp)` sets the tokenizer on the text that `exp` "
      "gives; the tokenizer";
  Value eval(Value input, int type) override {
    TokenizerBase* target = find_tokenizer(input, type);
    if (!target) return Value();
    target->set_string_input(source_exp.eval(input, type).text(), -1);
    return Value::of(target);
  }
};

/// What `input` and `output` have in common: a standard stream, or the shared stream of a file.
class StreamConst : public LConst {
 public:
  StreamConst() = default;
  StreamConst(const StreamConst& other)
      : LConst(other), file_name(other.file_name), record_(other.record_) {
    if (record_) ++record_->refs;
  }
  ~StreamConst() override {
    if (record_ && --record_->refs == 0) OpenStreams::flush(*record_->stream);
  }
  void init(World& world, IRSlist* args) override {
    const char* name_arg = args->get_str_val();
    if (!name_arg || std::strcmp(name_arg, "-") == 0) {
      value = Value::of((world.*kind().standard)());
      return;
    }
    file_name = name_arg;
    // Kept: first-use-not-found
    record_ = world.objects.find_as<SharedStream>(name_arg, kind().type, true);
    if (record_) {
      ++record_->refs;
    } else {
      auto& shared = expressions(world).streams.shared;
      record_ = shared.emplace_back(std::make_unique<SharedStream>()).get();
      record_->stream = kind().open(name_arg);
      record_->stream->shared_by_name = true;
      world.objects.add(name_arg, Value::of(record_), kind().type);
    }
    value = Value::of(record_->stream.get());
    if (failed(*record_->stream)) messages() << "Can't open file: " << name_arg << '\n';
  }

  std::string file_name;  ///< empty for a standard stream

 protected:
  struct Kind {
    const char* type;
    Stream* (World::*standard)() const;
    Ref<Stream> (*open)(const char* name);
  };
  virtual const Kind& kind() const = 0;

 private:
  SharedStream* record_ = nullptr;
};

class IstrmConst : public Form<IstrmConst, StreamConst> {
 public:
  static constexpr const char* kName = "input";
  static constexpr const char* kUsage =
      "`(input [FILE])` an input stream, shared by name; standard input without one";

 protected:
  const Kind& kind() const override {
    static constexpr Kind kInput{"InputStrmPtr", &World::standard_input, Stream::open_input};
    return kInput;
  }
};

class OstrmConst : public Form<OstrmConst, StreamConst> {
 public:
  static constexpr const char* kName = "output";
  static constexpr const char* kUsage =
      "`(output [FILE])` an output stream, shared by name; standard output without one";

 protected:
  const Kind& kind() const override {
    static constexpr Kind kOutput{"OutputStrmPtr", &World::standard_output, Stream::open_output};
    return kOutput;
  }
};

Value flush_command(World& world, IRSlist* form) {
  auto* record = world.objects.find_as<SharedStream>(form->get_str_val(), "OutputStrmPtr", true);
  if (record) OpenStreams::flush(*record->stream);
  return Value();
}

constexpr Command kStreamFormsCommands[] = {
    {"flush", flush_command, nullptr, "`(flush FILE)` flushes a stream that `output` opened"},
};

constexpr Prototype kStreamForms[] = {
    form<OpenFile>(),          form<CloseFile>(),
    form<SetTokenizerInput>(), form<SetTokenizerStringInput>(),
    form<IstrmConst>(),        form<OstrmConst>(),
};

}  // namespace

constinit const Offer offers::stream_forms{kStreamForms, kStreamFormsCommands};

}  // namespace torvane
