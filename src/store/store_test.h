// What the tests of stores share: a folder of their own, and how much is to be run.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "shell/world.h"
#include "store/page_file.h"
#include "support/scratch_folder.h"
#include "support/test_support.h"

namespace torvane {

/// The full number of rounds when the environment asks for it, as script/store-torture does.
inline int rounds(int full, int usual) {
  return std::getenv("STORE_TORTURE") ? full : usual;
}

class StoreTest : public testing::Test {
 protected:
  World world_{World::Console::of_process()};

  std::string path(const char* name = "store.db") const { return folder_ / name; }
  /// Runs in a process of its own, for 20 seconds at most; how that ended, as `waitpid` tells it.
  int status_of(const std::function<void()>& run) const {
    pid_t child = fork();
    if (child == 0) {
      alarm(20);
      if (!freopen(path("messages").c_str(), "w", stderr)) _exit(9);
      run();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
  }

 private:
  ScratchFolder folder_;
};

/// A record of a hash: a key and what is known of it.
inline std::string packed(const std::string& key, const std::string& value) {
  return key + '\0' + value;
}

/// The committed bytes of a file, for who opens it so.
inline std::string content_of(const std::string& path, bool writable) {
  auto file = PageFile::open(path, writable, 8);
  if (!file) return "not open";
  std::string bytes(file->length(), ' ');
  EXPECT_TRUE(file->read(0, bytes.data(), bytes.size()));
  return bytes;
}

}  // namespace torvane
