// Where pages go: to standard output, or to an object that a program puts in its place under a
// name of the type "MyOStream".
#pragma once

#include <ostream>

#include "support/value.h"

namespace torvane {

class MyOStream {
 public:
  explicit MyOStream(std::ostream& out) : out_(out) {}
  virtual void put(char c);
  virtual void flush();
  virtual ~MyOStream() = default;

  /// A null text writes nothing.
  MyOStream& operator<<(const char* text);
  /// In the "%f" format.
  MyOStream& operator<<(float number);

 private:
  std::ostream& out_;
};

namespace tags {
inline constexpr TypeTag my_ostream{"MyOStream"};
}
template <>
struct ValueTraits<MyOStream> : TagOf<MyOStream, tags::my_ostream> {};

}  // namespace torvane
