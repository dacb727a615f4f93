// Reading of a dump's rows: lines of fields separated by tabs.
#pragma once

#include <array>
#include <istream>
#include <string>

namespace torvane {

class TripleRowReader {
 public:
  static constexpr int kFields = 4;

  explicit TripleRowReader(std::istream& in) : in_(in) {}

  /// Goes to the next line of at least `wanted` fields and a first field that is not empty; false
  /// at the end.
  bool next(int wanted = kFields);
  const char* word() const { return fields_[0]; }
  const char* relation() const { return fields_[1]; }
  const char* other() const { return fields_[2]; }
  /// The fourth field as a number; 0 if it is none, or none that a count can be.
  float count() const;

 private:
  std::istream& in_;
  std::string line_;
  std::array<const char*, kFields> fields_{};
};

/// A field that stands for nothing.
inline bool is_blank_field(const char* field) {
  return *field == ' ' || *field == 0;
}

}  // namespace torvane
