#include "support/value.h"

#include <cstring>
#include <string>
#include <vector>

namespace torvane {

namespace {

std::uint64_t epoch = 1;

struct Count {
  const TypeTag* tag;
  Word word;
};

std::vector<Count>& retired_counts() {
  static auto& list = *new std::vector<Count>;
  return list;
}

bool outlives_everything(const TypeTag* tag) {
  for (; tag; tag = tag->base)
    if (tag == &tags::constant_text) return true;
  return false;
}

}  // namespace

std::uint64_t sentence_epoch() {
  return epoch;
}
void bump_sentence_epoch() {
  ++epoch;
}

struct HeldValue::Text {
  explicit Text(const char* text) : chars(text) {}
  std::string chars;
  int holders = 1;
  Text* next_retired = nullptr;

  static Text*& retired() {
    static Text* head = nullptr;
    return head;
  }
};

HeldValue::HeldValue(Value value) : value_(value), epoch_(epoch) {
  if (const char* text = value.text()) {
    if (!outlives_everything(value.tag_)) text_ = new Text(text);
  } else if (value.tag_ && value.tag_->life == Life::counted) {
    value.tag_->retain(value.word_);
  } else if (value.tag_ && value.tag_->life == Life::transient) {
    value_ = Value();
  } else if (value.tag_ && value.tag_->life == Life::stamped) {
    epoch_ = value.tag_->stamp(value.word_);
  }
}

HeldValue::HeldValue(const HeldValue& other)
    : value_(other.value_), epoch_(other.epoch_), text_(other.text_) {
  if (text_) {
    ++text_->holders;
  } else if (value_.tag_ && value_.tag_->life == Life::counted) {
    value_.tag_->retain(value_.word_);
  }
}

HeldValue::HeldValue(HeldValue&& other) noexcept
    : value_(std::exchange(other.value_, Value())),
      epoch_(other.epoch_),
      text_(std::exchange(other.text_, nullptr)) {}

HeldValue& HeldValue::operator=(HeldValue other) noexcept {
  std::swap(value_, other.value_);
  std::swap(epoch_, other.epoch_);
  std::swap(text_, other.text_);
  return *this;
}

void HeldValue::drop() {
  if (text_) {
    if (--text_->holders == 0) {
      text_->next_retired = Text::retired();
      Text::retired() = text_;
    }
  } else if (value_.tag_->life == Life::counted) {
    retired_counts().push_back({value_.tag_, value_.word_});
  }
}

Value HeldValue::get() const {
  if (!value_.tag_) return value_;
  if (text_) {
    if (value_.tag_->life == Life::sentence && epoch_ == epoch) return value_;
    return Value::of_text(text_->chars.c_str(), tags::buffer_text);
  }
  if (value_.tag_->life == Life::stamped)
    return value_.tag_->stamp(value_.word_) == epoch_ ? value_ : Value();
  if (epoch_ == epoch) return value_;
  if (value_.tag_->life == Life::sentence) return Value();
  if (value_.tag_->of_sentence && value_.tag_->of_sentence(value_.word_)) return Value();
  return value_;
}

void free_retired_values() {
  while (HeldValue::Text* text = HeldValue::Text::retired()) {
    HeldValue::Text::retired() = text->next_retired;
    delete text;
  }
  // A release may destroy holders, which retire more.
  std::vector<Count>& counts = retired_counts();
  while (!counts.empty()) {
    Count count = counts.back();
    counts.pop_back();
    count.tag->release(count.word);
  }
}

}  // namespace torvane
