#include "counts/corpus_file.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

extern char** environ;

namespace torvane {
namespace {

struct Tool {
  const char* ending;
  const char* program;
};
constexpr std::array<Tool, 3> kTools{{{".gz", "gzip"}, {".zst", "zstd"}, {".bz2", "bzip2"}}};
constexpr std::size_t kFilePiece = std::size_t{1} << 20;

const char* tool_for(const std::string& name) {
  for (const Tool& tool : kTools)
    if (name.ends_with(tool.ending)) return tool.program;
  return nullptr;
}

/// Starts a tool that writes a file's content into a pipe. 0, or an error number.
int start_tool(const char* program, const std::string& name, pid_t& process, int& from) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return errno;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  // It ends when nobody reads on.
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t pipe_signal;
  sigemptyset(&pipe_signal);
  sigaddset(&pipe_signal, SIGPIPE);
  posix_spawnattr_setsigdefault(&attributes, &pipe_signal);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  std::string own = program, options = "-dc", end = "--", file = name;
  char* const arguments[] = {own.data(), options.data(), end.data(), file.data(), nullptr};
  const int error = posix_spawnp(&process, program, &actions, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  from = ends[0];
  if (error != 0) close(ends[0]);
  return error;
}

}  // namespace

bool CorpusFile::is_compressed() const {
  return tool_for(name_) != nullptr;
}

std::string CorpusFile::open() {
  const char* const program = tool_for(name_);
  // A tool tells nothing about a file that is not there.
  file_ = ::open(name_.c_str(), O_RDONLY | O_CLOEXEC);
  if (file_ < 0) return name_ + ": " + std::strerror(errno);
  if (!program) return {};
  ::close(file_);
  file_ = -1;
  const int error = start_tool(program, name_, tool_, file_);
  if (error == 0) return {};
  tool_ = 0;
  file_ = -1;
  return std::string(program) + ": " + std::strerror(error);
}

bool CorpusFile::seek(std::uint64_t offset) {
  return lseek(file_, static_cast<off_t>(offset), SEEK_SET) >= 0;
}

bool CorpusFile::read_at(std::uint64_t offset, char& byte) const {
  return pread(file_, &byte, 1, static_cast<off_t>(offset)) == 1;
}

bool CorpusFile::read(std::string& text, std::size_t most) {
  const std::size_t had = text.size();
  text.resize(had + most);
  ssize_t got;
  do {
    got = ::read(file_, text.data() + had, most);
  } while (got < 0 && errno == EINTR);
  if (got < 0) error_ = errno;
  text.resize(had + (got > 0 ? static_cast<std::size_t>(got) : 0));
  return got > 0;
}

std::string CorpusFile::close(bool at_end) {
  if (file_ >= 0) ::close(file_);
  file_ = -1;
  int status = 0;
  if (tool_ != 0) waitpid(tool_, &status, 0);
  const bool tool_failed = tool_ != 0 && at_end && status != 0;
  tool_ = 0;
  if (error_ != 0) return name_ + ": " + std::strerror(error_);
  return tool_failed ? name_ + ": " + tool_for(name_) + " cannot read it to its end"
                     : std::string();
}

std::uint64_t size_of_corpus_file(const std::string& name, std::string& fault) {
  CorpusFile file(name);
  fault = file.open();
  if (!fault.empty()) return 0;
  struct stat status;
  if (!file.is_compressed() && stat(name.c_str(), &status) == 0)
    return static_cast<std::uint64_t>(status.st_size);
  std::uint64_t size = 0;
  for (std::string piece; file.read(piece, kFilePiece); piece.clear()) size += piece.size();
  fault = file.close(true);
  return size;
}

}  // namespace torvane
