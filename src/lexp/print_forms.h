// Forms that write: on standard output, on a stream that an expression gives, or into a file.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "lexp/form.h"

namespace torvane {

class PrintStr : public Form<PrintStr, CharPred> {
 public:
  static constexpr const char* kName = "print-str";
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

 protected:
  /// The stream that the expression gives, else standard output; null once it is closed.
  std::ostream* target(Value input, int type) const;
  /// Writes a text between prefix and suffix.
  void write(std::ostream* out, std::string_view text) const;

  std::string prefix_;
  std::string suffix_;
  ExpPtr sub_;
};

class PadStr : public Form<PadStr, PrintStr> {
 public:
  static constexpr const char* kName = "pad";
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

 private:
  std::optional<std::string> text_;
};

class FlushOutput : public Form<FlushOutput, PrintStr> {
 public:
  static constexpr const char* kName = "flush-output";
  Value eval(Value input, int type) override;
};

/// Writes the input as the whole content of the file that an expression names.
class WriteToFile : public Form<WriteToFile, CharPred> {
 public:
  static constexpr const char* kName = "write-to-file";
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

 private:
  ExpPtr file_name_;
};

}  // namespace torvane
