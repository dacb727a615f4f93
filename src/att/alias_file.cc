// The binary file of aliases.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include "att/aliases.h"
#include "support/big_endian.h"

namespace torvane {

namespace {

constexpr int kRecordSize = 20000;

bool write_all(int fd, const char* bytes, std::size_t n) {
  while (n > 0) {
    ssize_t written = ::write(fd, bytes, n);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes += written;
    n -= static_cast<std::size_t>(written);
  }
  return true;
}

// Reads n bytes, in pieces: a length that the file does not hold costs no more than the file.
bool read_bytes(std::istream& in, std::size_t n, std::string& out) {
  constexpr std::size_t kPiece = 65536;
  out.clear();
  while (out.size() < n) {
    std::size_t at = out.size();
    std::size_t piece = std::min(kPiece, n - at);
    out.resize(at + piece);
    in.read(&out[at], static_cast<std::streamsize>(piece));
    if (static_cast<std::size_t>(in.gcount()) < piece) return false;
  }
  return true;
}

}  // namespace

bool save_aliases(const AttInterpreterList& type, const char* file) {
  int fd = ::open(file, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) return false;
  StrBufs record(kRecordSize);
  bool ok = true;
  type.aliases.for_each([&](const auto& alias) {
    record.reset();
    record.add_be32(0);  // the length, once it is known
    record.add_text(alias.key);
    alias.value->pack(record);
    std::size_t size = record.object_size();
    store_be32(record.object(), static_cast<std::uint32_t>(size - 4));
    ok = ok && write_all(fd, record.object(), size);
    record.finish();
  });
  return ::close(fd) == 0 && ok;
}

void read_aliases(AttInterpreterList& type, std::istream& in) {
  std::string bytes;
  while (read_bytes(in, 4, bytes)) {
    std::size_t length = load_be32(bytes.data());
    if (!read_bytes(in, length, bytes)) return;
    std::size_t name_end = bytes.find('\0');
    if (name_end == std::string::npos) return;
    const char* p = bytes.data() + name_end + 1;
    auto vec = make_ref<AttVec>(&type);
    if (!vec->unpack(p, bytes.data() + bytes.size())) return;
    type.add_alias(bytes.c_str(), std::move(vec));
  }
}

}  // namespace torvane
