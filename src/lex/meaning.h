// One sense of a lexicon entry: what a lexical item carries into the parser. Which kinds exist, and under
// which names, a grammar file decides.
#pragma once

#include <memory>
#include <ostream>
#include <string>

#include "att/att_interpreter_list.h"
#include "att/att_vec.h"
#include "lexp/lexp.h"

namespace torvane {

class Meaning {
 public:
  /// The kind's name; "avm" tells an AVMeaning.
  virtual const char* type() const = 0;
  virtual void print(std::ostream&) const {}
  virtual std::unique_ptr<Meaning> clone() const = 0;
  /// -2 for another kind, else a code of `subsume`.
  virtual int compare(const Meaning* other) const;
  virtual int unifiable(const Meaning* other) const { return compare(other) == 0; }
  virtual void init(IRSlist*) {}
  /// A clone, initialised from the form; null for a kind that works by side effect.
  virtual std::unique_ptr<Meaning> make(IRSlist* form) const;
  virtual ~Meaning() = default;
};

namespace tags {
inline constexpr TypeTag meaning{"Meaning*", nullptr, Life::sentence};
}
template <>
struct ValueTraits<Meaning> : TagOf<Meaning, tags::meaning> {};

/// A sense that is an attribute vector.
class AVMeaning : public Meaning {
 public:
  explicit AVMeaning(AttInterpreterList* att_type) : vec(make_ref<AttVec>(att_type)) {}
  AVMeaning(const AVMeaning& other) : vec(make_ref<AttVec>(*other.vec)) {}
  const char* type() const override { return "avm"; }
  void print(std::ostream& out) const override;
  std::unique_ptr<Meaning> clone() const override;
  int compare(const Meaning* other) const override;
  int unifiable(const Meaning* other) const override;
  void init(IRSlist* form) override;

  Ref<AttVec> vec;  ///< never null, not shared with another meaning
};

/// The vector's holder if the meaning is an AVMeaning, else null.
inline AVMeaning* as_avm(Meaning* meaning);
inline const AVMeaning* as_avm(const Meaning* meaning);

/// A sense that is a text.
class StrMeaning : public Meaning {
 public:
  explicit StrMeaning(const char* kind) : type_name(kind) {}
  const char* type() const override { return type_name; }
  void print(std::ostream& out) const override;
  std::unique_ptr<Meaning> clone() const override;
  int compare(const Meaning* other) const override;
  void init(IRSlist* form) override;

  const char* type_name;  ///< lives for ever, shared by all of the kind
  std::string text;
  bool has_text = false;
};

/// A meaning from a form `(KIND body)`; the head names the prototype. Null for an unknown kind, silently.
std::unique_ptr<Meaning> make_meaning(IRSlist* form);

/// `make-avmeaning-proto` and `make-str-meaning-proto`, the forms `meaning-type` and `avm`.
void register_avmeaning_proto();
/// The family "Meaning" with its reserved kind `phrases`.
void register_meanings();

bool is_avm(const Meaning* meaning);
inline AVMeaning* as_avm(Meaning* meaning) {
  return is_avm(meaning) ? static_cast<AVMeaning*>(meaning) : nullptr;
}
inline const AVMeaning* as_avm(const Meaning* meaning) {
  return is_avm(meaning) ? static_cast<const AVMeaning*>(meaning) : nullptr;
}

}  // namespace torvane
