// What the tests of stores share: a folder of their own, whole files, and how much is to be run.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

namespace torvane {

/// The full number of rounds when the environment asks for it, as script/store-torture does.
inline int rounds(int full, int usual) {
  return std::getenv("STORE_TORTURE") ? full : usual;
}

class StoreTest : public testing::Test {
 protected:
  StoreTest() {
    // In memory if there is such a folder: the tests flush to the device at each step.
    std::filesystem::path base = "/dev/shm";
    if (access(base.c_str(), W_OK) != 0) base = std::filesystem::temp_directory_path();
    std::string pattern = (base / "store-test-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  ~StoreTest() override { std::filesystem::remove_all(folder_); }

  std::string path(const char* name = "store.db") const { return folder_ + "/" + name; }
  static std::string bytes_of(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  static void write_bytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
  }
  /// What `run` says on the error stream.
  static std::string messages_of(const std::function<void()>& run) {
    testing::internal::CaptureStderr();
    run();
    return testing::internal::GetCapturedStderr();
  }
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
  std::string folder_;
};

/// A record of a hash: a key and what is known of it.
inline std::string packed(const std::string& key, const std::string& value) {
  return key + '\0' + value;
}

/// Bytes from hexadecimal digits, a text in quotes, and COUNT*XX for repeated bytes.
inline std::string bytes_from(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size();) {
    if (text[i] == ' ') {
      ++i;
    } else if (text[i] == '\'') {
      std::size_t end = text.find('\'', i + 1);
      bytes += text.substr(i + 1, end - i - 1);
      i = end + 1;
    } else {
      std::size_t end = std::min(text.find(' ', i), text.size());
      std::string word = text.substr(i, end - i);
      std::size_t star = word.find('*');
      std::size_t count = star == std::string::npos ? 1 : std::stoul(word);
      std::string digits = star == std::string::npos ? word : word.substr(star + 1);
      for (; count > 0; --count)
        for (std::size_t k = 0; k < digits.size(); k += 2)
          bytes += static_cast<char>(std::stoi(digits.substr(k, 2), nullptr, 16));
      i = end;
    }
  }
  return bytes;
}

}  // namespace torvane
