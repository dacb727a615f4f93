// Expressions and texts: the first line is the expression. A faulty expression ends the process, so
// only what the grammar of expressions allows is made from the bytes.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "support/regexp.h"

namespace {

// Turns bytes into an expression that compiles.
class Expression {
 public:
  explicit Expression(const std::string& bytes) : bytes_(bytes) {}

  std::string alternatives(int depth) {
    std::string text = sequence(depth);
    while (next() % 4 == 0) text += "|" + sequence(depth);
    return text;
  }

 private:
  unsigned char next() {
    return place_ < bytes_.size() ? static_cast<unsigned char>(bytes_[place_++]) : 1;
  }
  std::string sequence(int depth) {
    std::string text;
    do {
      text += piece(depth);
    } while (next() % 3 != 1);
    return text;
  }
  std::string piece(int depth) {
    unsigned char kind = next() % 16;
    if (kind == 0) return "^";
    if (kind == 1) return "$";
    std::string text = literal();
    if (kind == 2) text = ".";
    if (kind == 3) text = "[" + literal() + "-\xff]";
    if (kind == 4) text = "[^" + literal() + literal() + "]";
    // A group holds a literal in each alternative, so that it may be repeated.
    if (kind < 8 && kind > 4 && depth < 3 && groups_ < 9) {
      ++groups_;
      text = "(" + literal() + alternatives(depth + 1) + ")";
      if (text.find('|') != std::string::npos) return text;
    }
    static const char* const kRepeats[] = {"", "", "*", "+", "?"};
    return text + kRepeats[next() % 5];
  }
  std::string literal() { return std::string(1, "abc\xe9"[next() % 4]); }

  const std::string& bytes_;
  std::size_t place_ = 0;
  int groups_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace torvane;
  std::string bytes(reinterpret_cast<const char*>(data), size);
  std::size_t end = bytes.find('\n');
  std::string expression = Expression(bytes.substr(0, end)).alternatives(0);
  std::string text = end == std::string::npos ? "" : bytes.substr(end + 1).c_str();
  auto compiled = regcomp(expression.c_str());
  for (bool line_start : {true, false}) {
    if (!regexec(compiled.get(), text.c_str(), line_start)) continue;
    for (int i = 0; i < 10; ++i) {
      if (!compiled->startp[i] != !compiled->endp[i]) std::abort();
      if (!compiled->startp[i]) continue;
      if (compiled->startp[i] > compiled->endp[i] || compiled->startp[i] < text.c_str() ||
          compiled->endp[i] > text.c_str() + text.size())
        std::abort();
    }
    std::string out;
    regsub(compiled.get(), text.c_str(), out);
  }
  return 0;
}
