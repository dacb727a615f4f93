#include "shell/streams.h"

#include <sys/stat.h>

#include <fstream>
#include <iostream>
#include <sstream>

#include "shell/file_search.h"
#include "support/text.h"

namespace torvane {

namespace {

void retain_stream(Word word) {
  reinterpret_cast<Stream*>(word)->retain();
}
void release_stream(Word word) {
  reinterpret_cast<Stream*>(word)->release();
}

bool names_standard_stream(const char* name) {
  // Kept: dash-is-standard-stream
  return !name || *name == '-';
}

bool is_directory(const char* name) {
  struct stat status;
  return stat(name, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

namespace tags {
const TypeTag stream{"stream*", nullptr, Life::counted, retain_stream, release_stream};
}

bool Stream::good() const {
  if (in_) return in_->good();
  return out_ && out_->good();
}

void Stream::close() {
  if (out_) out_->flush();
  if (standard_ || shared_by_name) return;
  in_ = nullptr;
  out_ = nullptr;
  owned_in_.reset();
  owned_out_.reset();
}

Stream* Stream::standard_input() {
  static Ref<Stream> stream = [] {
    auto s = make_ref<Stream>();
    s->in_ = &std::cin;
    s->standard_ = true;
    return s;
  }();
  return stream.get();
}

Stream* Stream::standard_output() {
  static Ref<Stream> stream = [] {
    auto s = make_ref<Stream>();
    s->out_ = &std::cout;
    s->standard_ = true;
    return s;
  }();
  return stream.get();
}

Ref<Stream> Stream::open_input(const char* name) {
  auto stream = make_ref<Stream>();
  auto file = std::make_unique<std::ifstream>(or_empty(name), std::ios::in | std::ios::binary);
  if (is_directory(or_empty(name))) file->setstate(std::ios::failbit);
  stream->in_ = file.get();
  stream->owned_in_ = std::move(file);
  stream->path_ = or_empty(name);
  return stream;
}

Ref<Stream> Stream::open_output(const char* name) {
  auto stream = make_ref<Stream>();
  auto file = std::make_unique<std::ofstream>(or_empty(name),
                                              std::ios::out | std::ios::binary | std::ios::trunc);
  stream->out_ = file.get();
  stream->owned_out_ = std::move(file);
  return stream;
}

Ref<Stream> Stream::from_text(const char* text, std::size_t length) {
  auto stream = make_ref<Stream>();
  stream->owned_in_ = std::make_unique<std::istringstream>(std::string(text, length));
  stream->in_ = stream->owned_in_.get();
  return stream;
}

Ref<Stream> input_stream(const char* name) {
  return names_standard_stream(name) ? Ref<Stream>(Stream::standard_input()) : open_file(name);
}

Ref<Stream> make_ostream(const char* name) {
  if (names_standard_stream(name)) return Ref<Stream>(Stream::standard_output());
  Ref<Stream> stream = Stream::open_output(name);
  if (stream->good()) return stream;
  std::cerr << "make_ostream: cannot open the file '" << name << "'\n";
  return Ref<Stream>();
}

}  // namespace torvane
