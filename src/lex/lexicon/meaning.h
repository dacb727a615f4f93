// One sense of a lexicon entry: what a lexical item carries into the parser. Which kinds exist, and
// under which names, a grammar file decides.
#pragma once

#include <memory>
#include <ostream>
#include <string>

#include "att/att_interpreter_list.h"
#include "att/att_vec.h"
#include "lexp/lexp.h"
#include "shell/offer.h"
#include "support/pool.h"

namespace torvane {

class AVMeaning;

class Meaning {
 public:
  /// The kind's name, as its prototype was registered.
  virtual const char* type() const = 0;
  virtual void print(std::ostream&) const {}
  virtual std::unique_ptr<Meaning> clone() const = 0;
  /// -2 for another kind, else a code of `subsume`.
  virtual Subsumption compare(const Meaning* other) const;
  virtual bool unifiable(const Meaning* other) const {
    return compare(other) == Subsumption::equal;
  }
  virtual void init(World&, IRSlist*) {}
  /// A clone, initialised from the form; null for a kind that works by side effect.
  virtual std::unique_ptr<Meaning> make(World& world, IRSlist* form) const;
  virtual ~Meaning() = default;

  /// The meaning as the class that holds a vector, or null. The name cannot tell: a grammar may
  /// give a kind of text the name "avm".
  virtual const AVMeaning* avm() const { return nullptr; }
  /// The text of a kind of text; null for every other class, and where there is no text.
  virtual const char* kept_text() const { return nullptr; }

 protected:
  Meaning() = default;
  Meaning(const Meaning&) = default;
  Meaning& operator=(const Meaning&) = delete;
};

namespace tags {
inline constexpr TypeTag meaning{"Meaning*", nullptr, Life::sentence};  // by the tags of its era
}  // namespace tags
template <>
struct ValueTraits<Meaning> : TagOf<Meaning, tags::meaning> {};

/// A sense that is an attribute vector.
class AVMeaning : public Meaning, public Pooled<AVMeaning> {
 public:
  explicit AVMeaning(AttInterpreterList* att_type) : vec(make_ref<AttVec>(att_type)) {}
  AVMeaning(const AVMeaning& other) : Meaning(other), vec(make_ref<AttVec>(*other.vec)) {}
  const char* type() const override { return "avm"; }
  void print(std::ostream& out) const override;
  std::unique_ptr<Meaning> clone() const override;
  Subsumption compare(const Meaning* other) const override;
  bool unifiable(const Meaning* other) const override;
  void init(World& world, IRSlist* form) override;
  const AVMeaning* avm() const override { return this; }

  Ref<AttVec> vec;  ///< never null, not shared with another meaning
};

/// The vector's holder if the meaning is an AVMeaning, else null.
inline const AVMeaning* as_avm(const Meaning* meaning) {
  return meaning ? meaning->avm() : nullptr;
}
inline AVMeaning* as_avm(Meaning* meaning) {
  return const_cast<AVMeaning*>(as_avm(static_cast<const Meaning*>(meaning)));
}
inline bool is_avm(const Meaning* meaning) {
  return as_avm(meaning) != nullptr;
}

/// A sense that is a text.
class StrMeaning : public Meaning {
 public:
  explicit StrMeaning(Name kind) : type_name(kind) {}
  const char* type() const override { return type_name.c_str(); }
  void print(std::ostream& out) const override;
  std::unique_ptr<Meaning> clone() const override;
  Subsumption compare(const Meaning* other) const override;
  void init(World& world, IRSlist* form) override;
  const char* kept_text() const override { return has_text ? text.c_str() : nullptr; }

  Name type_name;
  std::string text;
  bool has_text = false;
};

/// A meaning from a form `(KIND body)`; the head names the prototype. Null for an unknown kind,
/// silently.
std::unique_ptr<Meaning> make_meaning(World& world, IRSlist* form);
/// Adds a kind to the family "Meaning"; a known name is reported.
void add_kind(World& world, const char* name, std::unique_ptr<Meaning> prototype, const char* doc);

/// The row of a kind that the engine itself has.
template <class Kind>
constexpr Prototype meaning_kind(const char* name, const char* usage) {
  return {"Meaning", name, usage, nullptr, [](World& world, const Prototype& row) {
            add_kind(world, row.name, std::make_unique<Kind>(), row.doc);
          }};
}

}  // namespace torvane
