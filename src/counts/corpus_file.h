// A file of a corpus, read from front to back; what is compressed goes through the tool for it.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace torvane {

class CorpusFile {
 public:
  explicit CorpusFile(std::string name) : name_(std::move(name)) {}
  ~CorpusFile() { close(false); }
  CorpusFile(const CorpusFile&) = delete;
  CorpusFile& operator=(const CorpusFile&) = delete;

  /// `.gz`, `.zst`, `.bz2`.
  bool is_compressed() const;
  /// Empty, or what is wrong.
  std::string open();
  /// Of a file that is not compressed: goes to a place, and reads from another one.
  bool seek(std::uint64_t offset);
  bool read_at(std::uint64_t offset, char& byte) const;
  /// Adds what comes next, at most so many bytes, to a text; false at the end or an error.
  bool read(std::string& text, std::size_t most);
  /// Closes; behind the end, or an error, it tells what is wrong, or nothing.
  std::string close(bool at_end);

 private:
  const std::string name_;
  int file_ = -1;
  pid_t tool_ = 0;
  int error_ = 0;
};

/// The bytes of a file that a reader sees. In `fault` what is wrong, or nothing.
std::uint64_t size_of_corpus_file(const std::string& name, std::string& fault);

}  // namespace torvane
