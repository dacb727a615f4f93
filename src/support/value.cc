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

Era::Era() {
  kinds_.push_front({.name = "char*", .base = &tags::text, .life = Life::sentence, .era = this});
}

const TypeTag& Era::kind(const TypeTag& base) {
  for (const TypeTag& known : kinds_)
    if (known.base == &base) return known;
  auto place = kinds_.insert_after(
      kinds_.begin(), {.name = base.name, .base = &base, .life = Life::sentence, .era = this});
  return *place;
}

// A value on its way may still have a tag in the era, even if nobody holds it.
void Eras::renew() {
  if (era_ && (era_->shared() || lifetimes().expression_waits())) {
    end();
    lifetimes().retire(
        birth_, [](Word word) { reinterpret_cast<Era*>(word)->release(); },
        reinterpret_cast<Word>(era_.leak()));
  }
  birth_ = lifetimes().now();
}

// The characters stand behind it, so that a text leads to its copy.
struct HeldValue::Text {
  int holders = 1;
  std::uint64_t birth = lifetimes().now();
  Lifetimes::Turn origin;  // through which the original lives

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
  void release() {
    if (--holders > 0) return;
    lifetimes().retire(
        birth, [](Word word) { ::operator delete(reinterpret_cast<Text*>(word)); },
        reinterpret_cast<Word>(this));
  }
};

HeldValue::HeldValue(Value value) : value_(value) {
  const TypeTag* tag = value.tag_;
  if (!tag) return;
  if (const char* text = value.text()) {
    hold_text(text);
  } else {
    hold_thing(*tag);
  }
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
      era_ = Ref<Era>(era_of(tag, value_.word_));
      break;
    case Life::sentence:
      era_ = Ref<Era>(era_of(tag, value_.word_));
      if (!era_) value_ = Value();
      break;
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
  era_ = Ref<Era>(era_of(*tag, value_.word_));
  text_->origin = tag == &tags::kept_text ? lifetimes().turn_of_kept(text) : lifetimes().turn();
}

HeldValue::HeldValue(const HeldValue& other)
    : value_(other.value_), mark_(other.mark_), era_(other.era_), text_(other.text_) {
  if (text_) {
    ++text_->holders;
  } else if (counts()) {
    value_.tag_->retain(value_.word_);
    mark_ = lifetimes().now();
  }
}

HeldValue::HeldValue(HeldValue&& other) noexcept
    : value_(std::exchange(other.value_, Value())),
      mark_(other.mark_),
      era_(std::move(other.era_)),
      text_(std::exchange(other.text_, nullptr)) {}

HeldValue& HeldValue::operator=(HeldValue other) noexcept {
  std::swap(value_, other.value_);
  std::swap(mark_, other.mark_);
  era_.swap(other.era_);
  std::swap(text_, other.text_);
  return *this;
}

void HeldValue::drop() {
  if (text_) {
    text_->release();
  } else if (counts()) {
    lifetimes().retire(mark_, value_.tag_->release, value_.word_);
  }
}

Value HeldValue::get() const {
  if (!value_.tag_) return value_;
  if (text_) {
    bool lives = era_ ? !era_->over() : lifetimes().goes_on(text_->origin);
    return lives ? value_ : Value::of_text(text_->chars(), tags::held_text);
  }
  if (era_) return era_->over() ? Value() : value_;
  if (value_.tag_->life == Life::stamped && value_.tag_->stamp(value_.word_) != mark_)
    return Value();
  return value_;
}

}  // namespace torvane
