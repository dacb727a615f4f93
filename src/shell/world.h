// The world: everything that one start-up file builds. Commands are given theirs with their form;
// forms when they are compiled. Two worlds know nothing of each other.
#pragma once

#include <array>
#include <istream>
#include <memory>
#include <ostream>
#include <vector>

#include "shell/exec.h"
#include "shell/file_search.h"
#include "shell/macro.h"
#include "shell/named_objects.h"
#include "shell/object_factory.h"
#include "shell/places.h"
#include "shell/streams.h"
#include "support/lifetime.h"
#include "support/messages.h"

namespace torvane {

/// What a layer keeps for a world. A part P names its place: `static constexpr WorldPart::Place
/// kPlace`.
class WorldPart {
 public:
  enum Place { store, lexp, att, lex, deps, treerules, triples, wordsim, parser, kPlaces };
  virtual ~WorldPart() = default;
  /// Writes out what is waiting in open files.
  virtual void flush() {}
  /// Drops what leans on layers above: the first step to the world's end.
  virtual void drop_values() {}
};

class World {
 public:
  /// Where results and messages go and standard input comes from; they outlive the world.
  struct Console {
    std::istream* in;
    std::ostream* out;
    std::ostream* err;
    /// The process's own.
    static Console of_process();
  };

  explicit World(const Console& console);
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  Lifetimes lifetimes;
  Families families;
  NamedObjects objects;
  Macros macros;
  FileSearch files;
  Places places;
  /// Whether tokenizers built from now on take two high bytes as one character.
  bool double_byte = false;
  Exec interpreter;

  /// Writes out what is waiting in open files: before the process ends without the world's end.
  void flush();
  std::ostream& out() const { return *console_.out; }
  std::ostream& err() const { return *console_.err; }
  Stream* standard_input() const { return standard_input_.get(); }
  Stream* standard_output() const { return standard_output_.get(); }

  /// The input that a command names: standard input for null or a name that begins with "-", else
  /// the file found along the search path (null after its message).
  Ref<Stream> input_stream(const char* name);
  /// The output that a command names: standard output for null or a name that begins with "-", else
  /// a new file by the name as it stands. On failure "make_ostream: cannot open the file '", and
  /// null.
  Ref<Stream> make_ostream(const char* name) const;

  /// A layer's part, made at the first call.
  template <class P>
  P& part() {
    std::unique_ptr<WorldPart>& slot = parts_[P::kPlace];
    if (!slot) slot = std::make_unique<P>();
    return static_cast<P&>(*slot);
  }

  /// Keeps a thing, such as a prototype, as long as the world.
  template <class T>
  T* own(std::unique_ptr<T> thing) {
    T* address = thing.get();
    owned_.push_back(std::make_unique<Owned<T>>(std::move(thing)));
    return address;
  }
  /// The same under a name, as an object of a type; null, reported, if the name stands already.
  template <class T, class Base = T>
  T* own_object(const char* name, std::unique_ptr<T> thing, const char* type) {
    if (!objects.add(name, Value::of(static_cast<Base*>(thing.get())), type)) return nullptr;
    return own(std::move(thing));
  }

 private:
  struct Thing {
    virtual ~Thing() = default;
  };
  template <class T>
  struct Owned : Thing {
    explicit Owned(std::unique_ptr<T> thing) : kept(std::move(thing)) {}
    std::unique_ptr<T> kept;
  };

  Console console_;
  Ref<Stream> standard_input_;
  Ref<Stream> standard_output_;
  std::array<std::unique_ptr<WorldPart>, WorldPart::kPlaces> parts_;
  std::vector<std::unique_ptr<Thing>> owned_;
};

/// While it lives, the thread's messages go where the world wants them.
class WorldMessages {
 public:
  explicit WorldMessages(World& world);
  ~WorldMessages();
  WorldMessages(const WorldMessages&) = delete;
  WorldMessages& operator=(const WorldMessages&) = delete;

 private:
  PlacedMessages* placed_;
  MessagesTo messages_;
};

/// While it lives, the world runs in this thread: messages go where it wants them, and the values
/// that are made live in it.
class WorldScope {
 public:
  explicit WorldScope(World& world) : messages_(world), lives_(world.lifetimes) {}

 private:
  WorldMessages messages_;
  LivesIn lives_;
};

}  // namespace torvane
