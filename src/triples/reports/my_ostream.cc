#include "triples/reports/my_ostream.h"

#include <cstdio>

namespace torvane {

void MyOStream::put(char c) {
  out_.put(c);
}
void MyOStream::flush() {
  out_.flush();
}

MyOStream& MyOStream::operator<<(const char* text) {
  for (; text && *text; ++text) put(*text);
  return *this;
}

MyOStream& MyOStream::operator<<(float number) {
  char digits[64];  // the largest float has 39 digits before its point
  std::snprintf(digits, sizeof digits, "%f", static_cast<double>(number));
  return *this << digits;
}

}  // namespace torvane
