// The streams that expressions have opened, and those that they share by the name of the file.
#pragma once

#include <memory>
#include <vector>

#include "shell/streams.h"
#include "support/value.h"

namespace torvane {

/// The stream of a file that several expressions name: a named object under the file's name. Record
/// and stream stay for the rest of the run.
struct SharedStream {
  int refs = 0;  ///< users but the first
  Ref<Stream> stream;
};
namespace tags {
extern const TypeTag shared_stream;
}
template <>
struct ValueTraits<SharedStream> : TagOf<SharedStream, tags::shared_stream> {};

/// The streams that expressions leave open. What was written to them reaches its file with `flush`,
/// and when they go.
struct OpenStreams {
  OpenStreams() = default;
  ~OpenStreams();
  void flush();
  static void flush(Stream& stream);

  std::vector<Ref<Stream>> files;
  std::vector<std::unique_ptr<SharedStream>> shared;
};

}  // namespace torvane
