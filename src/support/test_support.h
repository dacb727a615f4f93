// For tests: what comes on the error stream, and bytes that can be read.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace torvane {

/// What `run` says on the error stream.
template <class Run>
std::string messages_of(const Run& run) {
  testing::internal::CaptureStderr();
  run();
  return testing::internal::GetCapturedStderr();
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
