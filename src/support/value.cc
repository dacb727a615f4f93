#include "support/value.h"

#include <cstring>
#include <new>

namespace torvane {

namespace {

bool is_constant_text(const TypeTag* tag) {
  for (; tag; tag = tag->base)
    if (tag == &tags::constant_text) return true;
  return false;
}

Era* era_of(const TypeTag& tag, Word word) {
  if (tag.era) return tag.era;
  return tag.era_of ? tag.era_of(word) : nullptr;
}

}  // namespace

const TypeTag& Era::kind(const TypeTag& base) {
  for (const TypeTag& known : kinds_)
    if (known.base == &base) return known;
  kinds_.push_front({.name = base.name, .base = &base, .life = Life::sentence, .era = this});
  return kinds_.front();
}

// A value on its way may still have a tag in the era, even if nobody holds it.
void Eras::end_era() {
  era_->over_ = true;
  lifetimes().drop(
      birth_, [](Word word) { reinterpret_cast<Era*>(word)->drop(); },
      reinterpret_cast<Word>(era_.leak()));
  era_ = make_ref<Era>();
}

// The characters stand behind it, so that a text leads to its copy.
struct HeldValue::Text {
  int holders = 1;
  bool dropped = false;  // and may be held again, by whoever has it on its way
  std::uint64_t birth = lifetimes().now();
  Lifetimes::Turn origin;  // through which the original is sure to live

  char* chars() { return reinterpret_cast<char*>(this + 1); }
  static Text* make(const char* text) {
    std::size_t size = std::strlen(text) + 1;
    auto* copy = new (::operator new(sizeof(Text) + size)) Text;
    std::memcpy(copy->chars(), text, size);
    return copy;
  }
  static Text* of(const char* chars) {
    return reinterpret_cast<Text*>(const_cast<char*>(chars)) - 1;
  }
  void drop() {
    if (--holders > 0 || dropped) return;
    dropped = true;
    lifetimes().drop(birth, end, reinterpret_cast<Word>(this));
  }
  static void end(Word word) {
    auto* text = reinterpret_cast<Text*>(word);
    text->dropped = false;
    if (text->holders == 0) ::operator delete(text);
  }
};

void HeldValue::hold() {
  if (const char* text = value_.text()) {
    hold_text(text);
  } else {
    hold_thing(*value_.tag_);
  }
}

void HeldValue::hold_text(const char* text) {
  const TypeTag* tag = value_.tag_;
  if (is_constant_text(tag)) return;
  if (tag == &tags::held_text) {
    text_ = Text::of(text);
    ++text_->holders;
    return;
  }
  text_ = Text::make(text);
  if (tag == &tags::kept_text) text_->origin = lifetimes().turn_of_kept(text);
  belong_to(era_of(*tag, value_.word_));
}

void HeldValue::hold_thing(const TypeTag& tag) {
  switch (tag.life) {
    case Life::forever:
      break;
    case Life::transient:
      value_ = Value();
      break;
    case Life::stamped:
      mark_ = tag.stamp(value_.word_);
      break;
    case Life::counted:
      tag.retain(value_.word_);
      mark_ = lifetimes().now();
      belong_to(era_of(tag, value_.word_));
      break;
    case Life::sentence:
      belong_to(era_of(tag, value_.word_));
      if (!era_) value_ = Value();
      break;
  }
}

void HeldValue::belong_to(Era* era) {
  if (!era) return;
  era_ = era;
  era->retain();
  ++era->holders_;
}

void HeldValue::share() {
  if (text_) ++text_->holders;
  belong_to(era_);
  if (counts()) {
    value_.tag_->retain(value_.word_);
    mark_ = lifetimes().now();
  }
}

void HeldValue::drop() {
  if (text_) text_->drop();
  if (counts()) lifetimes().drop(mark_, value_.tag_->drop, value_.word_);
  if (era_) {
    --era_->holders_;
    era_->drop();
  }
}

Value HeldValue::look() const {
  if (text_) {
    bool lives = era_ ? !era_->over() : lifetimes().goes_on(text_->origin);
    return lives ? value_ : Value::of_text(text_->chars(), tags::held_text);
  }
  bool over = era_ ? era_->over() : value_.tag_->stamp(value_.word_) != mark_;
  return over ? Value() : value_;
}

}  // namespace torvane
