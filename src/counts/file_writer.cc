#include "counts/file_writer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace torvane {
namespace {

constexpr const char* kStandardOutput = "-";

bool is_standard_output(const std::string& name) {
  return name.empty() || name == kStandardOutput;
}

int open_scratch(const std::string& folder) {
  std::string name = folder + "/torvane-XXXXXX";
  const int file = mkostemp(name.data(), O_CLOEXEC);
  if (file >= 0) unlink(name.c_str());
  return file;
}

}  // namespace

FileWriter::~FileWriter() = default;

void FileWriter::flush() {
  for (std::size_t done = 0; done < buffer_.size() && error_ == 0;) {
    const ssize_t wrote = ::write(file_, buffer_.data() + done, buffer_.size() - done);
    if (wrote >= 0) {
      done += static_cast<std::size_t>(wrote);
    } else if (errno != EINTR) {
      error_ = errno;
    }
  }
  buffer_.clear();
}

void FileWriter::close_file() {
  if (file_ >= 0) close(file_);
  file_ = -1;
}

WholeFile::WholeFile(const std::string& name) : FileWriter(STDOUT_FILENO), name_(name) {
  if (is_standard_output(name)) return;
  // What is no plain file, such as a pipe, cannot be put in its place.
  struct stat status;
  const bool is_special = stat(name.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
  if (!is_special) unfinished_ = name + ".tmp";
  const std::string& opened = is_special ? name_ : unfinished_;
  file_ = open(opened.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file_ < 0) error_ = errno;
}

WholeFile::~WholeFile() {
  if (is_standard_output(name_)) return;
  close_file();
  if (!unfinished_.empty()) unlink(unfinished_.c_str());
}

std::string WholeFile::finish() {
  flush();
  if (is_standard_output(name_))
    return error_ == 0 || error_ == EPIPE
               ? std::string()
               : std::string("standard output: ") + std::strerror(error_);
  if (error_ == 0 && !unfinished_.empty() && fsync(file_) != 0) error_ = errno;
  close_file();
  if (error_ == 0 && !unfinished_.empty()) {
    if (std::rename(unfinished_.c_str(), name_.c_str()) != 0) error_ = errno;
    if (error_ == 0) unfinished_.clear();
  }
  return error_ == 0 ? std::string() : name_ + ": " + std::strerror(error_);
}

ScratchFile::ScratchFile(const std::string& folder) : FileWriter(open_scratch(folder)) {
  if (file_ < 0) error_ = errno;
}

int ScratchFile::rewind() {
  flush();
  if (error_ == 0 && lseek(file_, 0, SEEK_SET) != 0) error_ = errno;
  return file_;
}

std::string scratch_folder_for(const std::string& output) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (is_standard_output(output)) {
    const fs::path folder = fs::temp_directory_path(error);
    return error ? "." : folder.string();
  }
  const fs::path folder = fs::path(output).parent_path();
  return folder.empty() ? "." : folder.string();
}

}  // namespace torvane
