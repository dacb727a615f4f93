#include "shell/streams.h"

#include <sys/stat.h>

#include <fstream>
#include <sstream>

#include "support/text.h"

namespace torvane {

namespace {

bool is_directory(const char* name) {
  struct stat status;
  return stat(name, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

namespace tags {
const TypeTag stream = counted_tag<Stream>("stream*");
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

Ref<Stream> Stream::standard(std::istream* in, std::ostream* out) {
  auto stream = make_ref<Stream>();
  stream->in_ = in;
  stream->out_ = out;
  stream->standard_ = true;
  return stream;
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

}  // namespace torvane
