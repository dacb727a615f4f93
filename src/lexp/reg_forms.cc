// Forms that match and rewrite texts by regular expressions.
#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lexp/form.h"
#include "lexp/offers.h"
#include "shell/irslist.h"
#include "support/regexp.h"
#include "support/text.h"

namespace torvane {

namespace {
constexpr long kLeastBuffer = 256;
constexpr long kLargestBuffer = 1 << 20;
class RegMatch : public Form<RegMatch, CharPred> {
 public:
  static constexpr const char* kName = "reg-match";
  static constexpr const char* kUsage =
      "`(reg-match RE ...)` the text if one expression matches it";
  void init(World&, IRSlist* args) override {
    while (!args->empty()) {
      if (const char* text = args->get_str_val()) patterns_.push_back(regcomp(text));
    }
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* text = input.text();
    if (!text) return Value();
    for (const auto& pattern : patterns_) {
      if (pattern && regexec(pattern.get(), text)) return input;
    }
    return Value();
  }

 private:
  std::vector<std::shared_ptr<regexp>> patterns_;
};

/// The input with the first match, or all of them, replaced.
class RegSub : public Form<RegSub, CharPred> {
 public:
  static constexpr const char* kName = "reg-sub";
  static constexpr const char* kUsage =
      "`(reg-sub RE REPLACEMENT [g])` the text with the first match (with `g` every match) "
      "replaced";
  RegSub() { out_type = type_id_of<const char*>(); }
  void init(World&, IRSlist* args) override {
    if (const char* text = args->get_str_val()) pattern_ = regcomp(text);
    if (const char* text = args->get_str_val()) replacement_ = text;
    const char* option = args->get_str_val();
    global_ = option && std::strcmp(option, "g") == 0;
    if (global_) option = args->get_str_val();
    long size = kLeastBuffer;
    if (option) scan_long(option, size);
    rewritten_.reserve(static_cast<std::size_t>(std::clamp(size, kLeastBuffer, kLargestBuffer)));
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* text = input.text();
    if (!text || !pattern_ || !replacement_) return Value();
    rewrite(text);
    return Value::made_text(rewritten_);
  }

 private:
  // Leaves the rewritten text in `rewritten_`. "^" fits only at the front of the whole text.
  void rewrite(const char* text) {
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

  std::shared_ptr<regexp> pattern_;
  std::optional<std::string> replacement_;
  bool global_ = false;
  std::string rewritten_;
};

constexpr Prototype kRegForms[] = {
    pure_form<RegMatch>(),
    form<RegSub>(),
};

}  // namespace

constinit const Offer offers::reg_forms{kRegForms};

}  // namespace torvane
