// Files that are written from front to back, in large pieces.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace torvane {

/// Writes to a descriptor. After the first error nothing is written any more.
class FileWriter {
 public:
  explicit FileWriter(int file) : file_(file) {}
  ~FileWriter();
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;

  void write(std::string_view bytes) {
    buffer_ += bytes;
    if (buffer_.size() >= kBlock) flush();
  }
  void flush();
  /// The error number of what failed; 0 if nothing did.
  int error() const { return error_; }

 protected:
  static constexpr std::size_t kBlock = std::size_t{1} << 16;
  void close_file();

  int file_;
  int error_ = 0;

 private:
  std::string buffer_;
};

/// A file that appears under its name when it is whole; without a name, or for "-", standard
/// output.
class WholeFile : public FileWriter {
 public:
  explicit WholeFile(const std::string& name);
  /// Takes away what is not whole.
  ~WholeFile();

  /// Writes out what is left and gives the file its name. Empty, or what is wrong; nobody who reads
  /// standard output any more is no fault.
  std::string finish();

 private:
  std::string name_, unfinished_;
};

/// A file without a name, which ends with the process at the latest.
class ScratchFile : public FileWriter {
 public:
  explicit ScratchFile(const std::string& folder);
  ~ScratchFile() { close_file(); }

  /// Writes out what is left and goes to the start, to be read.
  int rewind();
};

/// The folder for files without a name: that of a file that is to be written, else the system's.
std::string scratch_folder_for(const std::string& output);

}  // namespace torvane
