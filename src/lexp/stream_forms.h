// Streams as values: opened and closed by an expression, shared by the name of the file, or set as
// the input of a tokenizer.
#pragma once

#include <string>

#include "lexp/form.h"
#include "lexp/lexp.h"
#include "shell/irslist.h"
#include "shell/streams.h"

namespace torvane {

class OpenFile : public Form<OpenFile, LAdaptor> {
 public:
  static constexpr const char* kName = "open-file";
  OpenFile();
  void init(World& world, IRSlist* args) override;
  Value convert(Value input) override;

  bool write = false;  ///< also makes the directories of the path
};

/// Takes a "char*" by its declaration, as `open-file` does: a stream must come through an untyped
/// channel.
// Kept: close-file-takes-text
class CloseFile : public Form<CloseFile, OpenFile> {
 public:
  static constexpr const char* kName = "close-file";
  Value convert(Value input) override;
};

class SetTokenizerInput : public Form<SetTokenizerInput> {
 public:
  static constexpr const char* kName = "set-tokenizer-input";
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

  TokenizerBase* tokenizer = nullptr;
  ExpPtr tokenizer_exp;
  ExpPtr source_exp;

 protected:
  TokenizerBase* find_tokenizer(Value input, int type) const;
};

class SetTokenizerStringInput : public Form<SetTokenizerStringInput, SetTokenizerInput> {
 public:
  static constexpr const char* kName = "set-tokenizer-string-input";
  Value eval(Value input, int type) override;
};

/// The stream of a file that several expressions name: a named object under the file's name. Record
/// and stream stay for the rest of the run.
struct SharedStream {
  int refs = 0;  ///< users but the first
  Ref<Stream> stream;
};
namespace tags {
extern const TypeTag shared_stream;
}
template <>
struct ValueTraits<SharedStream> : TagOf<SharedStream, tags::shared_stream> {};

/// The streams that expressions leave open. What was written to them reaches its file with `flush`,
/// and when they go.
struct OpenStreams {
  OpenStreams() = default;
  ~OpenStreams();
  void flush();

  std::vector<Ref<Stream>> files;
  std::vector<std::unique_ptr<SharedStream>> shared;
};

/// What `input` and `output` have in common: a standard stream, or the shared stream of a file.
class StreamConst : public LConst {
 public:
  StreamConst() = default;
  StreamConst(const StreamConst& other);
  ~StreamConst() override;
  void init(World& world, IRSlist* args) override;

  std::string file_name;  ///< empty for a standard stream

 protected:
  struct Kind {
    const char* type;
    Stream* (World::*standard)() const;
    Ref<Stream> (*open)(const char* name);
  };
  virtual const Kind& kind() const = 0;

 private:
  SharedStream* record_ = nullptr;
};

class IstrmConst : public Form<IstrmConst, StreamConst> {
 public:
  static constexpr const char* kName = "input";

 protected:
  const Kind& kind() const override;
};

class OstrmConst : public Form<OstrmConst, StreamConst> {
 public:
  static constexpr const char* kName = "output";

 protected:
  const Kind& kind() const override;
};

/// `(flush FILE)`
Value flush_command(World& world, IRSlist* form);

}  // namespace torvane
