#include "lexp/stream_forms.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "lexp/expressions.h"
#include "shell/named_objects.h"
#include "shell/tokenizer.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

namespace tags {
const TypeTag shared_stream{"SharedStream*"};
}

namespace {

void flush(Stream& stream) {
  if (std::ostream* out = stream.out()) out->flush();
}

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

}  // namespace

OpenStreams::~OpenStreams() {
  flush();
}

void OpenStreams::flush() {
  for (Ref<Stream>& stream : files) torvane::flush(*stream);
  for (auto& record : shared) torvane::flush(*record->stream);
}

OpenFile::OpenFile() {
  in_type = type_id_of<const char*>();
  mid_type = type_id_of<Stream>();
}

void OpenFile::init(World& world, IRSlist* args) {
  write = args->take_flag(":write");
  LAdaptor::init(world, args);
}

Value OpenFile::convert(Value input) {
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

Value CloseFile::convert(Value input) {
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

void SetTokenizerInput::init(World& world, IRSlist* args) {
  IRSlist* first = args->nth(0);
  if (first && first->is_atom()) {
    tokenizer = world.objects.find_as<TokenizerBase>(first->atom, "Tokenizer", true);
  } else {
    tokenizer_exp = get_exp(world, first);
  }
  source_exp = get_exp(world, args->nth(1));
}

TokenizerBase* SetTokenizerInput::find_tokenizer(Value input, int type) const {
  return tokenizer ? tokenizer : tokenizer_exp.eval(input, type).as<TokenizerBase>();
}

Value SetTokenizerInput::eval(Value input, int type) {
  TokenizerBase* target = find_tokenizer(input, type);
  if (!target) return Value();
  auto* stream = source_exp.eval(input, type).as<Stream>();
  target->set_input(stream ? stream : world().standard_input());
  return Value::of(target);
}

Value SetTokenizerStringInput::eval(Value input, int type) {
  TokenizerBase* target = find_tokenizer(input, type);
  if (!target) return Value();
  target->set_string_input(source_exp.eval(input, type).text(), -1);
  return Value::of(target);
}

void StreamConst::init(World& world, IRSlist* args) {
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

StreamConst::StreamConst(const StreamConst& other)
    : LConst(other), file_name(other.file_name), record_(other.record_) {
  if (record_) ++record_->refs;
}

StreamConst::~StreamConst() {
  if (record_ && --record_->refs == 0) flush(*record_->stream);
}

const StreamConst::Kind& IstrmConst::kind() const {
  static constexpr Kind kInput{"InputStrmPtr", &World::standard_input, Stream::open_input};
  return kInput;
}

const StreamConst::Kind& OstrmConst::kind() const {
  static constexpr Kind kOutput{"OutputStrmPtr", &World::standard_output, Stream::open_output};
  return kOutput;
}

Value flush_command(World& world, IRSlist* form) {
  auto* record = world.objects.find_as<SharedStream>(form->get_str_val(), "OutputStrmPtr", true);
  if (record) flush(*record->stream);
  return Value();
}

}  // namespace torvane
