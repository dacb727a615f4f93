// A value on its way through commands and expressions: one machine word, and a tag of what it
// really is.
//
// The configuration language is untyped: a value is a pointer, an integer, or 0, and expressions
// compare and test it as a word. The tag is the engine's own safety net. `value.as<T>()` is null
// when the word is something else, whatever a declared type claimed, so a wrong value gives null
// and is never followed.
#pragma once

#include <cstdint>
#include <forward_list>
#include <type_traits>
#include <utility>

#include "support/lifetime.h"
#include "support/ref.h"

namespace torvane {

/// What a value is: a signed, pointer-sized word.
using Word = std::intptr_t;

/// How long the thing behind a value may be relied on, for holders (variables) that outlive an
/// evaluation.
enum class Life : std::uint8_t {
  forever,    ///< an integer, a constant's text, a registered object
  sentence,   ///< belongs to a sentence, a tree or the like, and ends with its era
  counted,    ///< a holder takes a count
  transient,  ///< may be gone as soon as the evaluation is
  stamped,    ///< as long as its tag's stamp of it stays the same; its memory stays for ever
};

class Era;

/// One kind of thing that a value can be. Tags are compared by address; `base` names the kind that
/// this one also is. A word always holds the pointer of the outermost base, so that a walk up the
/// chain is enough to read it as any of them.
struct TypeTag {
  const char* name;  ///< as the configuration language spells it, such as "LexItem*"
  const TypeTag* base = nullptr;
  Life life = Life::forever;
  void (*retain)(Word) = nullptr;          ///< for Life::counted
  void (*drop)(Word) = nullptr;            ///< for Life::counted
  std::uint64_t (*stamp)(Word) = nullptr;  ///< for Life::stamped
  /// For Life::sentence: the era that a thing belongs to, as the thing tells; null if it has ended.
  /// A counted thing may belong to one, too.
  Era* (*era_of)(Word) = nullptr;
  Era* era = nullptr;  ///< of a tag that stands in an era: that of everything with the tag
};

/// The tag of a class of counted things (Counted). Things that belong to an era say to which:
///   Era* era_of(const T& thing)
template <class T>
constexpr TypeTag counted_tag(const char* name) {
  TypeTag tag{.name = name, .life = Life::counted};
  tag.retain = [](Word word) { reinterpret_cast<const T*>(word)->retain(); };
  tag.drop = [](Word word) { reinterpret_cast<const T*>(word)->drop(); };
  return tag;
}
template <class T, class EraOf>
constexpr TypeTag counted_tag(const char* name, EraOf) {
  TypeTag tag = counted_tag<T>(name);
  tag.era_of = [](Word word) -> Era* { return EraOf()(*reinterpret_cast<const T*>(word)); };
  return tag;
}

/// The tag of T. A class that can be a value specialises this with
///   static const TypeTag& tag();      the tag
///   using Base = B;                   the outermost base whose pointer the word holds (T itself if
///   none)
template <class T>
struct ValueTraits;

namespace tags {
inline constexpr TypeTag text{"char*"};  // any text
inline constexpr TypeTag constant_text{"char*", &text, Life::forever};
inline constexpr TypeTag buffer_text{"char*", &text, Life::transient};
/// A text that `Lifetimes` keeps until a turn ends, not always the innermost.
inline constexpr TypeTag kept_text{"char*", &text, Life::transient};
/// A holder's copy, from its start on.
inline constexpr TypeTag held_text{"char*", &text, Life::transient};
inline constexpr TypeTag integer{"int"};
/// An atom that came through `quote`: its text is its reader's.
inline constexpr TypeTag name{"char*", &buffer_text, Life::transient};
}  // namespace tags

class Value {
 public:
  constexpr Value() = default;

  static constexpr Value integer(Word n) { return Value(n, n ? &tags::integer : nullptr); }
  static constexpr Value truth(bool b) { return integer(b ? 1 : 0); }
  /// A text that lives as long as the process.
  static Value constant(const char* text) { return of_text(text, tags::constant_text); }
  /// A text of passing life.
  static Value buffer_text(const char* text) { return of_text(text, tags::buffer_text); }
  /// A copy of a text that an expression made.
  static Value made_text(std::string_view text) {
    return of_text(lifetimes().keep(text), tags::kept_text);
  }
  static Value of_text(const char* text, const TypeTag& tag) {
    return Value(reinterpret_cast<Word>(text), text ? &tag : nullptr);
  }

  template <class T>
  static Value of(const T* object) {
    return of_kind(object, ValueTraits<T>::tag());
  }
  /// The same as one of a kind below its class's: a thing that lives longer than its like.
  template <class T>
  static Value of_kind(const T* object, const TypeTag& tag) {
    using Base = typename ValueTraits<T>::Base;
    auto* base = const_cast<Base*>(static_cast<const Base*>(object));
    return Value(reinterpret_cast<Word>(base), object ? &tag : nullptr);
  }

  constexpr Word word() const { return word_; }
  constexpr const TypeTag* tag() const { return tag_; }
  constexpr explicit operator bool() const { return word_ != 0; }

  /// The object, or null if the word is not (also) a T.
  template <class T>
  T* as() const {
    using Base = typename ValueTraits<T>::Base;
    return is(ValueTraits<T>::tag()) ? static_cast<T*>(reinterpret_cast<Base*>(word_)) : nullptr;
  }
  /// The text, or null if the word is none.
  const char* text() const {
    return is(tags::text) ? reinterpret_cast<const char*>(word_) : nullptr;
  }
  /// The word as a number: an integer's value; of anything else the word itself, as the language
  /// has it.
  constexpr Word number() const { return word_; }

  bool is(const TypeTag& wanted) const {
    for (const TypeTag* t = tag_; t; t = t->base)
      if (t == &wanted) return true;
    return false;
  }

  /// Values are equal as words.
  friend constexpr bool operator==(Value a, Value b) { return a.word_ == b.word_; }

 private:
  friend class HeldValue;
  constexpr Value(Word word, const TypeTag* tag) : word_(word), tag_(tag) {}

  Word word_ = 0;
  const TypeTag* tag_ = nullptr;
};

/// The time through which a sentence, a tree or the like lives with all that belongs to it.
/// Counted; holders of its things, which read as null once it is over, are also counted apart.
class Era : public Counted<Era> {
 public:
  Era() : text_{.name = "char*", .base = &tags::text, .life = Life::sentence, .era = this} {}
  Era(const Era&) = delete;
  Era& operator=(const Era&) = delete;

  bool over() const { return over_; }
  /// Somebody holds one of its things.
  bool is_held() const { return holders_ > 0; }
  /// A text, or a thing that does not tell its era by itself, as one of this era.
  Value text(const char* text) const { return Value::of_text(text, text_); }
  template <class T>
  Value of(const T* thing) {
    return Value::of_kind(thing, kind(ValueTraits<T>::tag()));
  }

 private:
  friend class Eras;
  friend class HeldValue;
  const TypeTag& kind(const TypeTag& base);

  TypeTag text_;
  std::forward_list<TypeTag> kinds_;  // those asked for
  int holders_ = 0;
  bool over_ = false;
};

/// The eras of one owner, one after the other; the last one ends with it.
class Eras {
 public:
  Eras() = default;
  ~Eras() { era_->over_ = true; }
  Eras(const Eras&) {}
  Eras& operator=(const Eras&) = delete;

  /// The one in hand.
  Era* now() const { return era_.get(); }
  /// Ends it. One of which nobody holds anything serves again.
  void renew() {
    if (era_->holders_ > 0 || lifetimes().expression_waits()) end_era();
    birth_ = lifetimes().now();
  }
  /// When its owner, or the era in hand, began.
  std::uint64_t birth() const { return birth_; }

 private:
  void end_era();

  Ref<Era> era_ = make_ref<Era>();
  std::uint64_t birth_ = lifetimes().now();
};

/// A value that outlives the evaluation that made it: what a variable holds. A text is copied (and
/// read as the original pointer while that is sure to live), a counted thing is counted, a thing of
/// a sentence reads as null when its era is over, and so does at once what is of passing life.
class HeldValue {
 public:
  HeldValue() = default;
  explicit HeldValue(Value value) : value_(value) {
    if (value.tag_ && value.tag_ != &tags::integer) hold();
  }
  HeldValue(const HeldValue& other)
      : value_(other.value_), mark_(other.mark_), era_(other.era_), text_(other.text_) {
    if (owns()) share();
  }
  HeldValue(HeldValue&& other) noexcept
      : value_(std::exchange(other.value_, Value())),
        mark_(other.mark_),
        era_(std::exchange(other.era_, nullptr)),
        text_(std::exchange(other.text_, nullptr)) {}
  HeldValue& operator=(HeldValue other) noexcept {
    std::swap(value_, other.value_);
    std::swap(mark_, other.mark_);
    std::swap(era_, other.era_);
    std::swap(text_, other.text_);
    return *this;
  }
  ~HeldValue() {
    if (owns()) drop();
  }

  Value get() const { return is_plain() ? value_ : look(); }

 private:
  struct Text;  // a counted copy
  bool counts() const { return value_.tag_ && value_.tag_->life == Life::counted; }
  bool owns() const { return text_ || era_ || counts(); }
  bool is_plain() const {
    return !text_ && !era_ && !(value_.tag_ && value_.tag_->life == Life::stamped);
  }
  void hold();
  void hold_text(const char* text);
  void hold_thing(const TypeTag& tag);
  void belong_to(Era* era);
  void share();
  void drop();
  Value look() const;

  Value value_;
  std::uint64_t mark_ = 0;  // the birth of the count, or the stamp of a stamped thing
  Era* era_ = nullptr;      // what the value belongs to; counted
  Text* text_ = nullptr;
};

/// The usual ValueTraits: a thing without a base.
template <class T, const TypeTag& Tag>
struct TagOf {
  using Base = T;
  static const TypeTag& tag() { return Tag; }
};

}  // namespace torvane
