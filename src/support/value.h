// A value on its way through commands and expressions: one machine word, and a tag of what it
// really is.
//
// The configuration language is untyped: a value is a pointer, an integer, or 0, and expressions
// compare and test it as a word. The tag is the engine's own safety net. `value.as<T>()` is null
// when the word is something else, whatever a declared type claimed, so a wrong value gives null
// and is never followed.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

namespace torvane {

/// What a value is: a signed, pointer-sized word.
using Word = std::intptr_t;

/// How long the thing behind a value may be relied on, for holders (variables) that outlive an
/// evaluation.
enum class Life : std::uint8_t {
  forever,    ///< an integer, a constant's text, a registered object
  sentence,   ///< belongs to the sentence in hand, and dies with the next reset
  counted,    ///< a holder takes a count
  transient,  ///< a text in a buffer of an expression, overwritten at its next evaluation
  stamped,    ///< as long as its tag's stamp of it stays the same; its memory stays for ever
};

/// One kind of thing that a value can be. Tags are compared by address; `base` names the kind that
/// this one also is. A word always holds the pointer of the outermost base, so that a walk up the
/// chain is enough to read it as any of them.
struct TypeTag {
  const char* name;  ///< as the configuration language spells it, such as "LexItem*"
  const TypeTag* base = nullptr;
  Life life = Life::forever;
  void (*retain)(Word) = nullptr;   ///< for Life::counted
  void (*release)(Word) = nullptr;  ///< for Life::counted
  /// For a counted thing that may also belong to the sentence in hand; null: it never does.
  bool (*of_sentence)(Word) = nullptr;
  std::uint64_t (*stamp)(Word) = nullptr;  ///< for Life::stamped
};

/// The tag of T. A class that can be a value specialises this with
///   static const TypeTag& tag();      the tag
///   using Base = B;                   the outermost base whose pointer the word holds (T itself if
///   none)
template <class T>
struct ValueTraits;

namespace tags {
inline constexpr TypeTag text{"char*"};  // any text
inline constexpr TypeTag constant_text{"char*", &text, Life::forever};
inline constexpr TypeTag sentence_text{"char*", &text, Life::sentence};
inline constexpr TypeTag buffer_text{"char*", &text, Life::transient};
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
  /// A text of the sentence in hand (a word, a root, a surface).
  static Value sentence_text(const char* text) { return of_text(text, tags::sentence_text); }
  /// A text in an expression's own buffer.
  static Value buffer_text(const char* text) { return of_text(text, tags::buffer_text); }
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

/// The number of the sentence in hand. Whoever resets a sentence's things (the analyser, the
/// parser, a reused result tree) bumps it, and every held value of that sentence then reads as
/// null.
std::uint64_t sentence_epoch();
void bump_sentence_epoch();

/// A value that outlives the evaluation that made it: what a variable holds. A text is copied (and
/// read as the original pointer while that is sure to live), a counted thing is counted, a thing of
/// the sentence reads as null after the next reset, and so does at once what lives in some
/// expression's own storage.
class HeldValue {
 public:
  HeldValue() = default;
  explicit HeldValue(Value value);
  HeldValue(const HeldValue& other);
  HeldValue(HeldValue&& other) noexcept;
  HeldValue& operator=(HeldValue other) noexcept;
  ~HeldValue() {
    if (value_.tag_ != nullptr) drop();
  }

  Value get() const;

 private:
  struct Text;  // a counted copy
  friend void free_retired_values();
  void drop();

  Value value_;
  std::uint64_t epoch_ = 0;
  Text* text_ = nullptr;
};

/// What holders let go lives on, since a value read from it may still be on its way through an
/// expression. Frees it all: for the moments when no expression is running.
void free_retired_values();

/// The usual ValueTraits: a thing without a base.
template <class T, const TypeTag& Tag>
struct TagOf {
  using Base = T;
  static const TypeTag& tag() { return Tag; }
};

}  // namespace torvane
