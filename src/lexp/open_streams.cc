#include "lexp/open_streams.h"

namespace torvane {

namespace tags {
const TypeTag shared_stream{"SharedStream*"};
}

OpenStreams::~OpenStreams() {
  flush();
}

void OpenStreams::flush(Stream& stream) {
  if (std::ostream* out = stream.out()) out->flush();
}

void OpenStreams::flush() {
  for (Ref<Stream>& stream : files) flush(*stream);
  for (auto& record : shared) flush(*record->stream);
}

}  // namespace torvane
