#include "lexp/reg_forms.h"

#include <algorithm>
#include <cstring>

#include "shell/irslist.h"
#include "support/text.h"

namespace torvane {

namespace {
constexpr long kLeastBuffer = 256;
constexpr long kLargestBuffer = 1 << 20;
}  // namespace

void RegMatch::init(World&, IRSlist* args) {
  while (!args->empty()) {
    if (const char* text = args->get_str_val()) patterns_.push_back(regcomp(text));
  }
}

Value RegMatch::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* text = input.text();
  if (!text) return Value();
  for (const auto& pattern : patterns_) {
    if (pattern && regexec(pattern.get(), text)) return input;
  }
  return Value();
}

void RegSub::init(World&, IRSlist* args) {
  if (const char* text = args->get_str_val()) pattern_ = regcomp(text);
  if (const char* text = args->get_str_val()) replacement_ = text;
  const char* option = args->get_str_val();
  global_ = option && std::strcmp(option, "g") == 0;
  if (global_) option = args->get_str_val();
  long size = kLeastBuffer;
  if (option) scan_long(option, size);
  rewritten_.reserve(static_cast<std::size_t>(std::clamp(size, kLeastBuffer, kLargestBuffer)));
}

// Leaves the rewritten text in `rewritten_`. "^" fits only at the front of the whole text.
void RegSub::rewrite(const char* text) {
  rewritten_.clear();
  const char* rest = text;
  while (regexec(pattern_.get(), rest, rest == text)) {
    const char* match = pattern_->startp[0];
    const char* end = pattern_->endp[0];
    rewritten_.append(rest, match);
    regsub(pattern_.get(), replacement_->c_str(), rewritten_);
    rest = end;
    if (!global_) break;
    if (match == end) {
      if (!*end) break;
      rewritten_ += *rest++;
    }
  }
  rewritten_ += rest;
}

Value RegSub::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* text = input.text();
  if (!text || !pattern_ || !replacement_) return Value();
  rewrite(text);
  return Value::made_text(rewritten_);
}

}  // namespace torvane
