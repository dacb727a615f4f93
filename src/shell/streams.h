// The one stream class of the system. Input, output and standard streams travel through expressions
// as one untyped word; a counted object with a virtual destructor makes it safe to close any of
// them.
#pragma once

#include <istream>
#include <memory>
#include <ostream>
#include <string>

#include "support/ref.h"
#include "support/value.h"

namespace torvane {

class Stream : public Counted<Stream> {
 public:
  virtual ~Stream() = default;
  /// Null if the stream is not for reading, or closed.
  std::istream* in() const { return in_; }
  /// Null if the stream is not for writing, or closed.
  std::ostream* out() const { return out_; }
  bool is_standard() const { return standard_; }
  /// The path of a file that is read; empty for any other stream.
  const std::string& path() const { return path_; }
  /// A stream that several expressions share by its file's name: it is flushed, not closed.
  bool shared_by_name = false;
  /// In a good state: open, and nothing failed.
  bool good() const;
  /// Flushes and closes; a standard or shared stream is only flushed. The object stays valid.
  void close();

  /// A standard stream of a world: never closed. `in` or `out` outlives it.
  static Ref<Stream> standard(std::istream* in, std::ostream* out);
  /// Opens a file for reading / for writing (truncating), in binary mode, by the name as it stands.
  /// Never null; a failed open shows in good(). A directory counts as a failed open.
  static Ref<Stream> open_input(const char* name);
  static Ref<Stream> open_output(const char* name);
  /// A text as an input, copied.
  static Ref<Stream> from_text(const char* text, std::size_t length);

 protected:
  std::unique_ptr<std::istream> owned_in_;
  std::unique_ptr<std::ostream> owned_out_;
  std::string path_;
  std::istream* in_ = nullptr;
  std::ostream* out_ = nullptr;
  bool standard_ = false;
};

namespace tags {
extern const TypeTag stream;
}
template <>
struct ValueTraits<Stream> : TagOf<Stream, tags::stream> {};

}  // namespace torvane
